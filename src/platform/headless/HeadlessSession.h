// A session without a desktop: it keeps what was asked of it.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/services/Session.h"

namespace pixorra {

class HeadlessSession : public Session {
 public:
  std::unique_ptr<Awake> KeepAwake(const std::string& why) override { return std::make_unique<Wish>(*reasons_, why); }
  bool WantsLessMotion() override { return lessMotion_; }

  void SetWantsLessMotion(bool wants) { lessMotion_ = wants; }
  // Why the screen stays on, the first that asked first.
  const std::vector<std::string>& AwakeFor() const { return *reasons_; }

 private:
  class Wish : public Awake {
   public:
    Wish(std::vector<std::string>& reasons, std::string why) : reasons_(reasons), why_(std::move(why)) {
      reasons_.push_back(why_);
    }
    ~Wish() override {
      for (auto at = reasons_.begin(); at != reasons_.end(); ++at) {
        if (*at != why_) continue;
        reasons_.erase(at);
        return;
      }
    }
    Wish(const Wish&) = delete;
    Wish& operator=(const Wish&) = delete;

   private:
    std::vector<std::string>& reasons_;
    std::string why_;
  };

  std::unique_ptr<std::vector<std::string>> reasons_ = std::make_unique<std::vector<std::string>>();
  bool lessMotion_ = false;
};

}  // namespace pixorra
