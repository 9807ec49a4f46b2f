// Waiting for folders that may be far away.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/services/FolderReader.h"

namespace pixorra {

struct Host;

// What to ask a reader of folders.
using FolderQuestion = std::function<std::unique_ptr<FolderReader::Reading>(FolderReader&, FolderReader::Handler)>;
// Whether the wait may end with this answer.
using EnoughAnswers = std::function<bool(const FolderReader::Answer&)>;

// An answer for each question, a failure among them, all of them in the same few seconds; nothing for what has not been
// answered then or when it is enough, and for all where the program ends. Events run meanwhile. A few are asked at a
// time: folders of a disk that hangs leave room for those of others.
std::vector<std::optional<FolderReader::Answer>> AskFolders(Host& host, const std::vector<FolderQuestion>& questions,
                                                            const EnoughAnswers& enough = {});

// The folder's path as the disk spells it, of those that answer so.
std::optional<std::string> FindFolder(Host& host, const std::string& path);
// The same for each of these paths.
std::vector<std::optional<std::string>> FindFolders(Host& host, const std::vector<std::string>& paths);

}  // namespace pixorra
