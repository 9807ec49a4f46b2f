#include "printing/PageLines.h"

#include "base/FileDateTime.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/OneLine.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

std::string InfoLine(MainForm& main, double width, double height, const std::string& path) {
  const DateValue date = GetFileDateToRead(main.host.files, path);
  return " W" + TrimmedStr(width) + " x H" + TrimmedStr(height) + "  - " + OneLine(main.host.files.ShownPath(path)) +
         "  [" + FormatDate(date, "hh:mmampm") + " " + FormatDate(date, "d/mmm/yyyy") + "]";
}

std::string CompanyLine(const MainForm& main) {
  const std::string& company = main.core.CompanyNameLabel.Caption();
  return Trim(company).empty() ? " " : "Printed by: " + OneLine(company);
}

}  // namespace pixorra
