// What went otherwise than a script expected: gathered, and told at once to whoever listens.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pixorra {

class Failures {
 public:
  // A test's own way to fail; none: the texts are only kept.
  std::function<void(const std::string&)> OnFailure;

  void Report(const std::string& text) {
    all_.push_back(text);
    if (OnFailure) OnFailure(text);
  }
  const std::vector<std::string>& All() const { return all_; }
  // Takes those that a test wanted.
  std::vector<std::string> Take() { return std::exchange(all_, {}); }

 private:
  std::vector<std::string> all_;
};

}  // namespace pixorra
