#include "browse/FindFolder.h"

#include <cstddef>
#include <utility>

#include "base/Host.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

std::vector<std::optional<FolderReader::Answer>> AskFolders(Host& host, const std::vector<FolderQuestion>& questions,
                                                            const EnoughAnswers& enough) {
  constexpr double Patience = 5;  // seconds
  constexpr std::size_t MostAtOnce = 3;
  std::vector<std::optional<FolderReader::Answer>> answers(questions.size());
  std::size_t answered = 0;
  bool isEnough = false;
  std::vector<std::unique_ptr<FolderReader::Reading>> readings;
  const std::function<void()> askOn = [&] {
    while (readings.size() < questions.size() && readings.size() - answered < MostAtOnce && !isEnough) {
      const std::size_t i = readings.size();
      readings.push_back(questions[i](host.folderReader, [&, i](const FolderReader::Answer& answer) {
        ++answered;
        answers[i] = answer;
        isEnough = isEnough || (enough && enough(answer));
        askOn();
      }));
    }
  };
  askOn();
  host.toolkit.WaitUntil([&] { return isEnough || answered == questions.size(); }, Patience);
  if (host.toolkit.Ended()) answers.assign(questions.size(), std::nullopt);
  return answers;
}

std::optional<std::string> FindFolder(Host& host, const std::string& path) {
  return FindFolders(host, {path}).front();
}

std::vector<std::optional<std::string>> FindFolders(Host& host, const std::vector<std::string>& paths) {
  std::vector<FolderQuestion> questions;
  for (const std::string& path : paths) {
    questions.emplace_back(
        [path](FolderReader& reader, FolderReader::Handler then) { return reader.FindFolder(path, std::move(then)); });
  }
  std::vector<std::optional<std::string>> found;
  for (const auto& answer : AskFolders(host, questions))
    found.push_back(answer && answer->Error == error::None ? std::optional(answer->Path) : std::nullopt);
  return found;
}

}  // namespace pixorra
