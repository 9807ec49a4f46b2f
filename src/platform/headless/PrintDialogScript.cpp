#include "platform/headless/PrintDialogScript.h"

namespace pixorra {

namespace {

constexpr const char* SetupDialog = "print setup dialog";
constexpr const char* PrintDialog = "print dialog";
constexpr const char* PropertiesDialog = "printer properties dialog";
constexpr const char* FileNameDialog = "print to file dialog";

}  // namespace

void PrintDialogScript::Expect(const char* kind, bool accepted, std::function<void()> meanwhile) {
  script_.Add(Script::Answer{kind, {}, {}, accepted ? 1 : 0, {}, std::move(meanwhile)});
}

void PrintDialogScript::ExpectPrintSetup(bool accepted, std::function<void()> meanwhile) {
  Expect(SetupDialog, accepted, std::move(meanwhile));
}

void PrintDialogScript::ExpectPrintDialog(bool accepted, std::function<void()> meanwhile) {
  Expect(PrintDialog, accepted, std::move(meanwhile));
}

void PrintDialogScript::ExpectProperties(bool accepted) {
  Expect(PropertiesDialog, accepted, {});
}

void PrintDialogScript::ExpectFileName(const std::string& name) {
  script_.Add(Script::Answer{FileNameDialog, {}, {}, 0, name, {}});
}

std::optional<std::string> PrintDialogScript::AnswerFileName(const std::string& proposed) {
  stir_();
  const auto answer = script_.AnswerFor(FileNameDialog, {}, proposed);
  if (!answer || answer->Typed.empty()) return std::nullopt;
  return answer->Typed;
}

bool PrintDialogScript::AnswerPrintSetup() {
  return Answer(SetupDialog);
}

bool PrintDialogScript::AnswerPrintDialog() {
  return Answer(PrintDialog);
}

bool PrintDialogScript::AnswerProperties() {
  return Answer(PropertiesDialog);
}

bool PrintDialogScript::Answer(const char* kind) {
  stir_();
  const auto answer = script_.AnswerFor(kind, {}, {});
  if (answer && answer->Meanwhile) answer->Meanwhile();
  return answer && answer->Number != 0;
}

}  // namespace pixorra
