// What a test has told the person to do when something comes up while the program has the turn: answers to boxes,
// choices from pop-up menus, and things to do in waits. Each is used once.
#pragma once

#include <functional>
#include <list>
#include <optional>
#include <string>

#include "platform/headless/Failures.h"

namespace pixorra {

class Script {
 public:
  explicit Script(Failures& failures) : failures_(failures) {}

  enum class Moment {
    Wait,    // in waits alone, when everything that is pending has been handled
    Events,  // whenever the program lets events run, waits included
    Popup,   // while a pop-up menu is up
  };
  struct Reaction {
    std::string What;  // names it when it never came to pass
    Moment When = Moment::Wait;
    std::function<bool()> Fits;
    std::function<void()> Run;
  };
  // A box or dialog of the host. Its text holds `Text`; an empty title or text fits any.
  struct Answer {
    std::string Kind;
    std::string Title;
    std::string Text;
    int Number = 0;
    std::string Typed;
    std::function<void()> Meanwhile;  // while it is up
  };

  void Add(Reaction reaction) { reactions_.push_back(std::move(reaction)); }
  void Add(Answer answer) { answers_.push_back(std::move(answer)); }

  // Runs the first reaction that fits, if one does.
  bool RunOne(Moment moment);
  // Takes the first answer for such a box; none, and a failure reported, where nobody expected it.
  std::optional<Answer> AnswerFor(const std::string& kind, const std::string& title, const std::string& text);
  // Reports everything that was expected and never came up, and forgets it.
  void ReportUnmet();

 private:
  Failures& failures_;
  std::list<Reaction> reactions_;
  std::list<Answer> answers_;
};

}  // namespace pixorra
