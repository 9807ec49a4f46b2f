// What a test has told the person to do in the dialogs of the print system. One that nobody expected is a failure, and
// is cancelled.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/headless/Script.h"

namespace pixorra {

class PrintDialogScript {
 public:
  // `stir` runs when a dialog comes up: somebody acts.
  PrintDialogScript(Script& script, std::function<void()> stir) : script_(script), stir_(std::move(stir)) {}

  // `meanwhile` is what the person does in the dialog, such as choosing a printer.
  void ExpectPrintSetup(bool accepted, std::function<void()> meanwhile = {});
  void ExpectPrintDialog(bool accepted, std::function<void()> meanwhile = {});
  void ExpectProperties(bool accepted);
  // At the first drawing of a document that becomes a file. An empty name cancels.
  void ExpectFileName(const std::string& name);

 protected:
  // Were they accepted?
  bool AnswerPrintSetup();
  bool AnswerPrintDialog();
  bool AnswerProperties();
  // Nothing where it was cancelled. `proposed` is the name that the box starts with.
  std::optional<std::string> AnswerFileName(const std::string& proposed);

 private:
  bool Answer(const char* kind);
  void Expect(const char* kind, bool accepted, std::function<void()> meanwhile);

  Script& script_;
  std::function<void()> stir_;
};

}  // namespace pixorra
