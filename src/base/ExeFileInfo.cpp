#include "base/ExeFileInfo.h"

#include "platform/runtime/Text.h"

namespace pixorra {

std::string AssociatedProgramPath(Shell& shell, const std::string& file) {
  return file.find('\\') == std::string::npos ? std::string() : shell.FindExecutable(file);
}

std::string ProgramDisplayName(Shell& shell, const std::string& program) {
  Shell::VersionInfo record;
  ReadVersionInfo(shell, program, record);
  const std::string product = Trim(record.ProductName);
  return product.empty() ? Trim(record.FileDescription) : product;
}

void ReadVersionInfo(Shell& shell, const std::string& program, Shell::VersionInfo& record) {
  record = shell.ReadVersionInfo(program);
}

}  // namespace pixorra
