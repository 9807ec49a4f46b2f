// Settings kept in memory, for as long as this object lives.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "platform/runtime/Text.h"
#include "platform/services/Settings.h"

namespace pixorra {

class HeadlessSettings : public Settings {
 public:
  std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                         const std::string& otherwise) override {
    const auto found = texts_.find(Names(application, section, key));
    return found != texts_.end() ? found->second : otherwise;
  }
  void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& text) override {
    texts_[Names(application, section, key)] = text;
  }

 private:
  using Key = std::tuple<std::string, std::string, std::string>;
  static Key Names(const std::string& application, const std::string& section, const std::string& key) {
    return {LCase(application), LCase(section), LCase(key)};
  }
  std::map<Key, std::string> texts_;
};

}  // namespace pixorra
