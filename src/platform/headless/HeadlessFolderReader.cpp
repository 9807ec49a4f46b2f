#include "platform/headless/HeadlessFolderReader.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/Text.h"

namespace pixorra {

// Whoever asked holds the request; it ends with that.
class HeadlessFolderReader::Held : public Reading {
 public:
  explicit Held(std::shared_ptr<Request> request) : request_(std::move(request)) {}
  ~Held() override { request_->Then = {}; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  std::shared_ptr<Request> request_;
};

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::Ask(const std::string& folder, Look look,
                                                                 Handler handler) {
  const auto request = std::make_shared<Request>(Request{folder, std::move(look), std::move(handler)});
  if (hold_) {
    waiting_.push_back(request);
  } else {
    AnswerSoon(request);
  }
  return std::make_unique<Held>(request);
}

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::Read(const std::string& folder, int attributes,
                                                                  Handler handler) {
  const auto look = [&files = files_, folder, attributes](FolderReader::Answer& answer) {
    answer.Names = files.Folders(folder, attributes);
  };
  return Ask(folder, look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::ReadFiles(const std::string& folder,
                                                                       const std::string& pattern, Handler handler) {
  const auto look = [&files = files_, folder, pattern](FolderReader::Answer& answer) {
    answer.Path = files.FolderPath(folder);
    answer.Names = files.Names(answer.Path, pattern, attribute::Normal);
    std::sort(answer.Names.begin(), answer.Names.end(), NameLess);
    const std::string start = answer.Path + (answer.Path.ends_with('\\') ? "" : "\\");
    for (const std::string& name : answer.Names) {
      std::optional<std::int64_t>& length = answer.Lengths.emplace_back();
      ErrorsIgnored([&] { length = files.Length(start + name); });
    }
  };
  return Ask(folder, look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::FindFile(const std::string& folder,
                                                                      const std::string& pattern, Handler handler) {
  const auto look = [&files = files_, folder, pattern](FolderReader::Answer& answer) {
    answer.Path = files.FolderPath(folder);
    answer.Names = files.Names(answer.Path, pattern, attribute::Normal);
    if (answer.Names.size() > 1) answer.Names.resize(1);
  };
  return Ask(folder, look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::FindFolder(const std::string& folder, Handler handler) {
  const auto look = [&files = files_, folder](FolderReader::Answer& answer) { answer.Path = files.FolderPath(folder); };
  return Ask(folder, look, std::move(handler));
}

void HeadlessFolderReader::AnswerSoon(const std::shared_ptr<Request>& request) {
  posting_.Post([request] {
    const Handler then = std::exchange(request->Then, {});
    if (!then) return;
    FolderReader::Answer answer;
    if (const int failure = ErrorsIgnored([&] { request->Look(answer); }); failure != error::None) {
      answer = {};
      answer.Error = failure;
    }
    then(answer);
  });
}

std::vector<std::string> HeadlessFolderReader::Waiting() const {
  std::vector<std::string> folders;
  for (const auto& request : waiting_) {
    if (const auto held = request.lock()) folders.push_back(held->Folder);
  }
  return folders;
}

bool HeadlessFolderReader::Answer(const std::string& folder) {
  for (auto at = waiting_.begin(); at != waiting_.end(); ++at) {
    const auto held = at->lock();
    if (held == nullptr || held->Folder != folder) continue;
    waiting_.erase(at);
    AnswerSoon(held);
    return true;
  }
  return false;
}

}  // namespace pixorra
