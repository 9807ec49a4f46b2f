// The strip during a run of all photos, and what the program remembers of a drop by its slot.
#include <gtest/gtest.h>

#include "tests/drop/DropTest.h"
#include "window/DropState.h"

namespace pixorra {
namespace {

class RunScrollTest : public DropTest {
 protected:
  void LoadMany(int count) {
    drive.MakeFolder("C:\\Strip");
    for (int i = 1; i <= count; ++i) drive.Write(Photo("p" + std::to_string(1000 + i) + ".bmp"), "x");
    LoadStrip({});
  }
  bool IsInView(int slot) const {
    const int left = strip.SrcCanvas.Left() + strip.SrcBackground(slot).Left();
    return left >= 0 && left + 97 <= strip.SrcThumbsWindow.Width();
  }
};

TEST_F(RunScrollTest, TheRunBringsThePhotoWhoseTurnItIsIntoViewFromAndOnEveryPage) {
  LoadMany(130);
  for (const int slot : {1, 2, 30, 52, 77, 101, 129, 130}) {
    for (const int value : {0, 2600, 6000}) {
      for (int i = 1; i <= 130; ++i) strip.SrcThumbName(i).SetTag(i == slot ? "" : "MARK");
      person.MoveBar(strip.SrcScrollbar, value);
      person.Drag(strip.AllButton, desk.DestFolder(TrashcanSlot));
      EXPECT_TRUE(IsMarked(slot));
      EXPECT_TRUE(IsInView(slot)) << slot << " from " << value;
    }
  }
}

TEST_F(RunScrollTest, ADropFromASlotWhoseNumberIsTooWideLeavesTheMemoryOfTheLastDropWhole) {
  LoadStrip({"a.bmp", "b.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  ImageBox& beyond = strip.SrcThumbnail.Load(32768);
  strip.SrcThumbName.Load(32768);
  beyond.SetTag(Photo("b.bmp"));
  CopyDraggedPhoto(main, 1, beyond);
  EXPECT_TRUE(Has("F", "b.bmp"));
  EXPECT_EQ(main.drop.LastDropSrcIndex, 1);
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\a.bmp");
}

}  // namespace
}  // namespace pixorra
