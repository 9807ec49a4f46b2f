#include "platform/headless/Script.h"

#include <algorithm>

namespace pixorra {

bool Script::RunOne(Moment moment) {
  const auto fitting = std::find_if(reactions_.begin(), reactions_.end(), [&](const Reaction& reaction) {
    const bool now = reaction.When == moment || (moment == Moment::Wait && reaction.When == Moment::Events);
    return now && (!reaction.Fits || reaction.Fits());
  });
  if (fitting == reactions_.end()) return false;
  const Reaction reaction = std::move(*fitting);
  reactions_.erase(fitting);
  reaction.Run();
  return true;
}

std::optional<Script::Answer> Script::AnswerFor(const std::string& kind, const std::string& title,
                                                const std::string& text) {
  const auto fitting = std::find_if(answers_.begin(), answers_.end(), [&](const Answer& answer) {
    return answer.Kind == kind && (answer.Title.empty() || answer.Title == title) &&
           text.find(answer.Text) != std::string::npos;
  });
  if (fitting == answers_.end()) {
    failures_.Report("unexpected " + kind + " \"" + title + "\": \"" + text + "\"");
    return std::nullopt;
  }
  const Answer answer = std::move(*fitting);
  answers_.erase(fitting);
  return answer;
}

void Script::ReportUnmet() {
  for (const Answer& answer : answers_) {
    failures_.Report("expected " + answer.Kind + " \"" + answer.Title + "\" never came up: \"" + answer.Text + "\"");
  }
  for (const Reaction& reaction : reactions_) failures_.Report("expected " + reaction.What + ", it never came up");
  answers_.clear();
  reactions_.clear();
}

}  // namespace pixorra
