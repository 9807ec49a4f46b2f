#include "platform/headless/HeadlessShell.h"

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

void HeadlessShell::RegisterProgram(const std::string& ending, const std::string& program, const VersionInfo& info) {
  programs_[LCase(ending)] = program;
  infos_[program] = info;
}

std::string HeadlessShell::FindExecutable(const std::string& path) {
  const std::size_t stop = path.find_last_of(".\\");
  if (stop == std::string::npos || path[stop] != '.') return {};
  const auto found = programs_.find(LCase(path.substr(stop)));
  return found != programs_.end() ? found->second : std::string();
}

Shell::VersionInfo HeadlessShell::ReadVersionInfo(const std::string& program) {
  const auto found = infos_.find(program);
  return found != infos_.end() ? found->second : VersionInfo{};
}

void HeadlessShell::Open(const std::string& target, const std::string& workingFolder) {
  opened_.push_back({target, workingFolder});
}

void HeadlessShell::Run(const std::string& command) {
  if (!missing_.empty() && command.rfind(missing_, 0) == 0) throw RuntimeError(error::FileNotFound);
  run_.push_back(command);
}

}  // namespace pixorra
