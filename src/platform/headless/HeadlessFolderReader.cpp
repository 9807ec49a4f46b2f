#include "platform/headless/HeadlessFolderReader.h"

#include <utility>

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

std::unique_ptr<FolderReader::Reading> HeadlessFolderReader::Read(const std::string& folder, int attributes,
                                                                  Handler handler) {
  const auto request = std::make_shared<Request>(Request{folder, attributes, std::move(handler)});
  if (hold_) {
    waiting_.push_back(request);
  } else {
    AnswerSoon(request);
  }
  return std::make_unique<Held>(request);
}

void HeadlessFolderReader::AnswerSoon(const std::shared_ptr<Request>& request) {
  posting_.Post([&files = files_, request] {
    const Handler then = std::exchange(request->Then, {});
    if (!then) return;
    FolderReader::Answer answer;
    answer.Error = ErrorsIgnored([&] { answer.Names = files.Folders(request->Folder, request->Attributes); });
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
