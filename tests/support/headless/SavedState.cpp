#include "tests/support/headless/SavedState.h"

namespace pixorra {

std::vector<std::string> SavedState::Lines() const {
  const auto quoted = [](const std::string& text) { return "\"" + text + "\""; };
  std::vector<std::string> lines = {Window, quoted(ShopTitle), std::to_string(Rename), std::to_string(Duplicates)};
  for (const bool ticked :
       {RememberFilmStrip, RememberFolders, EmptyTrashcan, Jpeg, Bitmap, Gif, KeepDate, AutoPreview}) {
    lines.emplace_back(ticked ? "1" : "0");
  }
  lines.push_back(quoted(CameraLocation));
  lines.push_back(quoted(FilmStrip));
  for (std::size_t i = 0; i < 8; ++i) lines.push_back(quoted(i < Folders.size() ? Folders[i] : ""));
  lines.emplace_back("0");
  return lines;
}

}  // namespace pixorra
