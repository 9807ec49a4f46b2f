#include "platform/headless/HeadlessShell.h"

#include <cstddef>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

std::string WithSingleBackslashes(std::string path) {
  for (std::size_t at = 0; (at = path.find("\\\\", at)) != std::string::npos;) path.erase(at, 1);
  return path;
}

}  // namespace

void HeadlessShell::RegisterProgram(const std::string& ending, const std::string& program, const VersionInfo& info) {
  programs_[LCase(ending)] = program;
  infos_[program] = info;
}

std::string HeadlessShell::FindExecutable(const std::string& path) {
  // Raises FileNotFound and PathNotFound itself.
  if (files_ != nullptr) files_->Length(path);
  const std::size_t stop = path.find_last_of(".\\");
  if (stop == std::string::npos || path[stop] != '.') return {};
  const auto found = programs_.find(LCase(path.substr(stop)));
  return found != programs_.end() ? found->second : std::string();
}

Shell::VersionInfo HeadlessShell::ReadVersionInfo(const std::string& program) {
  const auto found = infos_.find(program);
  if (found == infos_.end()) return {};
  VersionInfo info = found->second;
  for (std::string* field : {&info.CompanyName, &info.FileDescription, &info.FileVersion, &info.InternalName,
                             &info.LegalCopyright, &info.OriginalFileName, &info.ProductName, &info.ProductVersion})
    if (field->empty()) *field = "?";
  return info;
}

void HeadlessShell::Open(const std::string& target, const std::string& workingFolder) {
  opened_.push_back({target, workingFolder});
}

bool HeadlessShell::IsThere(const std::string& command) const {
  if (!missing_.empty() && command.starts_with(missing_)) return false;
  if (files_ == nullptr) return true;
  for (std::size_t end = command.find(' ');; end = command.find(' ', end + 1)) {
    const std::string program = command.substr(0, end);
    if (offered_.contains(WithSingleBackslashes(program)) || files_->FileExists(program)) return true;
    if (end == std::string::npos) return false;
  }
}

void HeadlessShell::Run(const std::string& command) {
  if (!IsThere(command)) throw RuntimeError(error::FileNotFound);
  run_.push_back(command);
}

void HeadlessShell::OfferProgram(const std::string& path, const std::string& name) {
  if (!installed_.contains(name)) return;
  const bool isFree =
      files_ == nullptr || (files_->FolderExists(path.substr(0, path.rfind('\\'))) && !files_->NameTaken(path));
  if (isFree) offered_[path] = name;
}

bool HeadlessShell::OpenScreenSaverSettings() {
  if (hasOwnWindows_) ++screenSaverSettings_;
  return hasOwnWindows_;
}

bool HeadlessShell::OpenSystemInformation() {
  if (hasOwnWindows_) ++systemInformation_;
  return hasOwnWindows_;
}

}  // namespace pixorra
