#include "platform/headless/HeadlessDialogs.h"

#include "platform/controls/Toolkit.h"

namespace pixorra {

namespace {

// While it lives no form takes input.
class BoxUp {
 public:
  BoxUp(Toolkit& toolkit, HeadlessBackend& backend, const std::string& box)
      : toolkit_(toolkit), backend_(backend), outer_(backend.BoxIsUp()) {
    toolkit_.PushBox();
    backend_.SetBoxUp(box);
  }
  ~BoxUp() {
    toolkit_.PopBox();
    backend_.SetBoxUp(outer_);
  }
  BoxUp(const BoxUp&) = delete;
  BoxUp& operator=(const BoxUp&) = delete;

 private:
  Toolkit& toolkit_;
  HeadlessBackend& backend_;
  std::string outer_;
};

}  // namespace

std::optional<Script::Answer> HeadlessDialogs::Ask(const std::string& kind, const std::string& title,
                                                   const std::string& text) {
  // Nobody is waited for any more.
  if (toolkit_.EndAsked()) return std::nullopt;
  const BoxUp up(toolkit_, backend_, kind + " \"" + title + "\": \"" + text + "\"");
  const std::optional<Script::Answer> answer = script_.AnswerFor(kind, title, text);
  backend_.Stir();
  if (answer && answer->Meanwhile) answer->Meanwhile();
  if (toolkit_.EndAsked()) return std::nullopt;
  return answer;
}

BoxAnswer HeadlessDialogs::MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) {
  const std::size_t at = boxes_.size();
  const BoxAnswer least = buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
  boxes_.push_back({title, text, icon, buttons, least});
  const auto answer = Ask("box", title, text);
  const BoxAnswer other = buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Cancel;
  if (answer && answer->Number == static_cast<int>(other)) boxes_[at].Answer = other;
  return boxes_[at].Answer;
}

std::string HeadlessDialogs::InputBox(const std::string& prompt, const std::string& title, const std::string& present) {
  presentInput_ = present;
  const auto answer = Ask("input box", title, prompt);
  return answer ? answer->Typed : std::string();
}

std::optional<Colour> HeadlessDialogs::ChooseColour(Colour start) {
  presentColour_ = start;
  const auto answer = Ask("colour dialog", {}, {});
  if (!answer || answer->Typed.empty()) return std::nullopt;
  return static_cast<Colour>(answer->Number);
}

void HeadlessDialogs::ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer,
                                std::function<void()> meanwhile) {
  script_.Add(Script::Answer{"box", title, text, static_cast<int>(answer), {}, std::move(meanwhile)});
}

void HeadlessDialogs::ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed) {
  script_.Add(Script::Answer{"input box", title, prompt, 0, typed, {}});
}

void HeadlessDialogs::ExpectColour(std::optional<Colour> chosen) {
  script_.Add(
      Script::Answer{"colour dialog", {}, {}, static_cast<int>(chosen.value_or(0)), chosen ? "chosen" : "", {}});
}

}  // namespace pixorra
