// A strip of three photos, and a folder that holds another one, for tests of what an undo brings back.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "pictures/QuickThumbs.h"
#include "pictures/Scratch.h"
#include "tests/drop/DropTest.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {

class UndoTest : public DropTest {
 protected:
  // Slot 1 is the folder "F".
  void Prepare() {
    LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
    MakePhoto(Folder("F") + "\\old.bmp", 0x00ABCDEF);
    Show("F");
  }
  void PrepareOpen() {
    Prepare();
    Select_a_Folder(main, 1);
    run.LoadAll();
  }
  void Drop(int photo) { person.Drag(strip.SrcThumbnail(photo), desk.DestFolderPreview(1)); }
  void Undo() { person.Click(strip.UndoButton); }

  std::vector<std::string> In(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.bmp;*.jpg", 0);
    std::sort(names.begin(), names.end());
    return names;
  }
  std::vector<std::string> ViewNames() const {
    std::vector<std::string> names;
    for (int i = 1; i <= desk.DestSlotCount; ++i) names.push_back(desk.DestThumbName(i).Caption());
    return names;
  }
  // By the record in the cache file.
  bool IsMarkedOnDisk(const std::string& photo) {
    const Scratch<ImageBox> seen(main.pictures.TempImage, NextScratchIndex(main.pictures));
    bool bDragged = false;
    return QuickThumbsOf(main).ReadQuickThumb(photo, *seen, bDragged) && bDragged;
  }
  bool RemembersADrop() const { return !main.drop.LastDropFile.empty(); }
  static Colour MiddleOf(const Picture& picture) {
    if (picture.IsNothing()) return 0;
    const std::uint8_t* pixel = picture.Pixels().Row(picture.Height() / 2) + 3 * (picture.Width() / 2);
    return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
  }
  // The thumbnail, of a photo of one colour, without the shading of dragged photos.
  bool IsClean(int slot) const {
    const Bitmap& pixels = strip.SrcThumbnail(slot).GetPicture().Pixels();
    const int bytes = pixels.BytesPerPixel();
    const bool plain =
        std::equal(pixels.Row(10) + 10 * bytes, pixels.Row(10) + 10 * bytes + 3, pixels.Row(11) + 11 * bytes);
    return plain && !IsMarked(slot) && strip.SrcThumbName(slot).ForeColor() == strip.SrcThumbName(0).ForeColor();
  }
};

}  // namespace pixorra
