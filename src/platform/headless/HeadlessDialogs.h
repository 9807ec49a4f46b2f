// Boxes of the host, answered by the script. A box that nobody expected is a failure and is closed in the way that
// changes least.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/headless/HeadlessBackend.h"
#include "platform/services/Dialogs.h"

namespace pixorra {

class HeadlessDialogs : public Dialogs {
 public:
  // A box that has been up, the answer given included.
  struct Box {
    std::string Title;
    std::string Text;
    BoxIcon Icon = BoxIcon::None;
    BoxButtons Buttons = BoxButtons::Ok;
    BoxAnswer Answer = BoxAnswer::Ok;
  };

  HeadlessDialogs(Toolkit& toolkit, HeadlessBackend& backend, Script& script)
      : toolkit_(toolkit), backend_(backend), script_(script) {}

  BoxAnswer MsgBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;
  std::string InputBox(const std::string& prompt, const std::string& title, const std::string& present) override;
  std::optional<Colour> ChooseColour(Colour start) override;
  void Beep() override { ++beeps_; }

  // `text` is the whole text or a part of it. `meanwhile` runs while the box is up.
  void ExpectBox(const std::string& title, const std::string& text, BoxAnswer answer = BoxAnswer::Ok,
                 std::function<void()> meanwhile = {});
  // Empty typing cancels.
  void ExpectInput(const std::string& title, const std::string& prompt, const std::string& typed);
  void ExpectColour(std::optional<Colour> chosen);

  const std::vector<Box>& Boxes() const { return boxes_; }
  // What the last input box and colour dialog started with.
  const std::string& PresentInput() const { return presentInput_; }
  Colour PresentColour() const { return presentColour_; }
  int Beeps() const { return beeps_; }

 private:
  std::optional<Script::Answer> Ask(const std::string& kind, const std::string& title, const std::string& text);

  Toolkit& toolkit_;
  HeadlessBackend& backend_;
  Script& script_;
  std::vector<Box> boxes_;
  std::string presentInput_;
  Colour presentColour_ = 0;
  int beeps_ = 0;
};

}  // namespace pixorra
