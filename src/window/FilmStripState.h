// The film strip: its folder's list, the slots, the bar, the buttons below it, and their counters.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/Bars.h"
#include "base/Host.h"
#include "base/LoadedPaths.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Shape.h"
#include "platform/controls/Timer.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

// The volume of the film strip's folder, as it was when the strip was loaded.
struct WatchedMedium {
  std::string Folder;
  std::string Root;
  std::string Identity;
  std::uint64_t Stamp = 0;  // of the list of volumes
  bool Away = false;
  int Turns = 0;  // since the last look
};

inline constexpr int GuardHeld = 12345;

struct FilmStripState {
 private:
  Form& window_;  // ahead of the controls, which lie on it
  Host& host_;

 public:
  FilmStripState(Form& window, Host& host);

  // --- counters and choices --------------------------------------------------------------------------------------
  int SrcSlotCount = 0;       // the highest slot number; 0 is the template and not counted
  int SrcShownCount = 0;      // slots shown now
  int SrcPageBase = 0;        // first shown position of the present page, a multiple of 50
  BarScale SrcBarScale;       // of SrcScrollbar
  std::string SrcLoadedPath;  // folder that the loaded slots belong to
  bool NoFilmStrip = true;
  std::string CameraLocation;
  bool AutoScrollPending = false;
  std::string ThumbsPaused = "False";  // a text, read by converting it
  int ThumbsTimerGuard = 0;            // GuardHeld while the handler of ThumbsTimer runs, or is not to
  LoadedPaths loadedPaths;
  WatchedMedium SrcMedium;

  // --- controls, back to front -------------------------------------------------------------------------------------
  FileListBox SrcFileList{window_, "SrcFileList", host_.files};
  Shape SrcBackShape{window_, "SrcBackShape"};  // the band behind the strip
  Label SrcPicsTotal{window_, "SrcPicsTotal"};
  Label SrcFolderPath{window_, "SrcFolderPath"};
  Label SrcPicsCount{window_, "SrcPicsCount"};
  PictureBox SrcThumbsWindow{window_, "SrcThumbsWindow"};  // clips the strip
  PictureBox SrcCanvas{SrcThumbsWindow, "SrcCanvas"};      // carries the slots; moved to scroll
  // A slot is one index in these three.
  ControlArray<ImageBox> SrcBackground{SrcCanvas, "SrcBackground"};
  ControlArray<ImageBox> SrcThumbnail{SrcCanvas, "SrcThumbnail"};
  ControlArray<Label> SrcThumbName{SrcCanvas, "SrcThumbName"};
  Shape SrcThumbFrame{SrcCanvas, "SrcThumbFrame"};  // around the selected thumbnail; its Tag holds the slot number
  Label NoFilmStripHint{SrcThumbsWindow, "NoFilmStripHint"};  // what to do first, where there is no film strip
  ScrollBar SrcScrollbar{window_, "SrcScrollbar", Orientation::Horizontal};
  ImageBox CameraButton{window_, "CameraButton"};
  ImageBox BrowseButton{window_, "BrowseButton"};
  ImageBox SwapButton{window_, "SwapButton"};
  ImageBox DeleteButton{window_, "DeleteButton"};
  ImageBox UndoButton{window_, "UndoButton"};
  ImageBox AllButton{window_, "AllButton"};
  ImageBox PrintButton{window_, "PrintButton"};
  Frame FilmStripModeFrame{window_, "FilmStripModeFrame"};
  OptionButton AllOption{FilmStripModeFrame, "AllOption"};
  OptionButton RemainingOption{FilmStripModeFrame, "RemainingOption"};
  OptionButton AutoScrollOption{FilmStripModeFrame, "AutoScrollOption"};
  ComboBox PreviousList{window_, "PreviousList"};  // hidden; the folders last used, most recent first
  Timer ThumbsTimer{window_, "ThumbsTimer", 20};
  Timer AutoScrollTimer{window_, "AutoScrollTimer", 50};

 private:
  void DefineStrip(Host& host);
  void DefineButtons(Host& host);
};

// Of a slot, from 1. The full path of its photo; empty: it is there no longer, and the slot is dead.
inline const std::string& PhotoOf(const FilmStripState& strip, int slot) {
  return strip.SrcThumbnail(slot).Tag();
}
// Its photo has been dragged.
inline bool IsMarked(const FilmStripState& strip, int slot) {
  return !strip.SrcThumbName(slot).Tag().empty();
}
// How many slots the folder is to have.
inline int SlotsWanted(const FilmStripState& strip) {
  return std::min(strip.SrcFileList.ListCount(), MostThumbnails);
}
// The slot that was selected last, 0 before the first; SrcThumbFrame is visible while it is selected still.
int SelectedSlot(const FilmStripState& strip);
void SelectSlot(FilmStripState& strip, int slot);

}  // namespace pixorra
