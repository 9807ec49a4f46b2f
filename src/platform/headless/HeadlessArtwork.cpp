#include "platform/headless/HeadlessArtwork.h"

#include <algorithm>
#include <cstdint>

#include "platform/runtime/Errors.h"

namespace pixorra {

const std::vector<std::string>& HeadlessArtwork::Names() {
  static const std::vector<std::string> names = {
      "AllButton",
      "AllButtonPressed",
      "BrowseButton",
      "BrowseButtonPressed",
      "CameraButton",
      "CameraButtonPressed",
      "ClosedFolder",
      "Clouds",
      "Critical",
      "DeleteAll",
      "DeleteButton",
      "DeleteButtonPressed",
      "DeleteDragged",
      "DeletePhotos",
      "DestBackground",
      "DestBackgroundDark",
      "DropIcon",
      "FilmLeader",
      "HandPointer",
      "HideFolder",
      "Information",
      "InvalidPicture",
      "Logo",
      "LogoDark",
      "NotReadyIcon",
      "OpenFolder",
      "PrintButton",
      "PrintButtonPressed",
      "Question",
      "ReelDragIcon",
      "SelectionFrame",
      "ShowFolder",
      "Splash",
      "SplashDark",
      "SrcBackground",
      "SwapButton",
      "SwapButtonPressed",
      "TrashcanClosed",
      "TrashcanOpen",
      "UndoButton",
      "UndoButtonPressed",
      "Warning",
  };
  return names;
}

Picture HeadlessArtwork::Drawing(const std::string& name, int width, int height) {
  const bool ofDesktop = name.starts_with("desktop:");
  if (!ofDesktop && std::find(Names().begin(), Names().end(), name) == Names().end())
    throw RuntimeError(error::FileNotFound);
  Picture& picture = drawn_[{name, width, height}];
  if (picture.IsNothing()) {
    std::uint32_t hash = 2166136261U;
    for (const char letter : name) hash = (hash ^ static_cast<std::uint8_t>(letter)) * 16777619U;
    Bitmap pixels(width, height, PixelFormat::Bgra32);
    pixels.Fill(hash & 0x00FFFFFFU);
    picture = Picture(std::move(pixels), name);
  }
  return picture;
}

}  // namespace pixorra
