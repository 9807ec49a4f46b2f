// A folder reader whose answers come when a test wants them. The folders are those of real Files.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "platform/services/Files.h"
#include "platform/services/FolderReader.h"
#include "platform/services/Posting.h"

namespace pixorra {

class HeadlessFolderReader : public FolderReader {
 public:
  HeadlessFolderReader(Files& files, Posting& posting) : files_(files), posting_(posting) {}

  std::unique_ptr<Reading> Read(const std::string& folder, int attributes, Handler handler) override;
  std::unique_ptr<Reading> ReadFiles(const std::string& folder, const std::string& pattern, Handler handler) override;
  std::unique_ptr<Reading> FindFile(const std::string& folder, const std::string& pattern, Handler handler) override;
  std::unique_ptr<Reading> FindFolder(const std::string& folder, Handler handler) override;

  // From here on no folder answers by itself, or each one does in the next turn of the loop, as at first.
  void Hold(bool hold) { hold_ = hold; }
  // Folders that have been asked for and have not answered, in their order.
  std::vector<std::string> Waiting() const;
  // The first that waits at this folder answers in the next turn, by what is there then; false where none waits.
  bool Answer(const std::string& folder);

 private:
  class Held;
  using Look = std::function<void(FolderReader::Answer&)>;
  struct Request {
    std::string Folder;
    HeadlessFolderReader::Look Look;
    Handler Then;
  };
  std::unique_ptr<Reading> Ask(const std::string& folder, Look look, Handler handler);
  void AnswerSoon(const std::shared_ptr<Request>& request);

  Files& files_;
  Posting& posting_;
  std::list<std::weak_ptr<Request>> waiting_;
  bool hold_ = false;
};

}  // namespace pixorra
