// The film strip: its folder's list, the slots, the bar, the buttons below it, and their counters.
#pragma once

#include <string>

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

namespace pixorra {

struct Host;

// A film frame's width, and how many frames make a page of the strip.
inline constexpr int SrcFrameWidth = 97;
inline constexpr int SrcFramesPerPage = 50;
// The bar's Max at least, in its units of 2 pixels.
inline constexpr int LeastSrcMax = 50;

struct FilmStripState {
  FilmStripState(Form& window, Host& host);

  // --- counters and choices --------------------------------------------------------------------------------------
  int SrcSlotCount = 0;       // the highest slot number; 0 is the template and not counted
  int SrcShownCount = 0;      // slots shown now
  int SrcPageBase = 0;        // first shown position of the present page, a multiple of 50
  std::string SrcLoadedPath;  // folder that the loaded slots belong to
  bool NoFilmStrip = true;
  std::string CameraLocation;
  bool AutoScrollPending = false;
  std::string ThumbsPaused = "False";  // a text, read by converting it
  int ThumbsTimerGuard = 0;            // 12345 while the handler of ThumbsTimer runs
  LoadedPaths loadedPaths;

  // --- controls, back to front -------------------------------------------------------------------------------------
  FileListBox SrcFileList;
  Shape SrcBackShape;  // the band behind the strip
  Label SrcPicsTotal;
  Label SrcFolderPath;
  Label SrcPicsCount;
  PictureBox SrcThumbsWindow;  // clips the strip
  PictureBox SrcCanvas;        // carries the slots; moved to scroll
  // A slot is one index in these three.
  ControlArray<ImageBox> SrcBackground;
  ControlArray<ImageBox> SrcThumbnail;
  ControlArray<Label> SrcThumbName;
  Shape SrcThumbFrame;  // around the selected thumbnail; its Tag holds the slot number
  ScrollBar SrcScrollbar;
  ImageBox CameraButton;
  ImageBox BrowseButton;
  ImageBox SwapButton;
  ImageBox DeleteButton;
  ImageBox UndoButton;
  ImageBox AllButton;
  ImageBox PrintButton;
  Frame FilmStripModeFrame;
  OptionButton AllOption;
  OptionButton RemainingOption;
  OptionButton AutoScrollOption;
  ComboBox PreviousList;  // hidden; the folders last used, most recent first
  Timer ThumbsTimer;
  Timer AutoScrollTimer;

 private:
  void DefineStrip(Host& host);
  void DefineButtons(Host& host);
};

}  // namespace pixorra
