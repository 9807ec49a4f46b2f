// While it lives the toolkit's own dialogs speak the user's language, where the host has their words in it.
#pragma once

#include <QTranslator>

namespace pixorra {

class ToolkitLanguage {
 public:
  ToolkitLanguage();
  ~ToolkitLanguage();
  ToolkitLanguage(const ToolkitLanguage&) = delete;
  ToolkitLanguage& operator=(const ToolkitLanguage&) = delete;

 private:
  QTranslator words_;
  bool installed_;
};

}  // namespace pixorra
