// Which commands the menu of the selected photo offers.
#include <gmock/gmock.h>

#include "tests/selected/SelectedTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const std::vector<std::string> All{"CopyMenuItem",         "SelectedPrintMenuItem",
                                   "SelectedEditMenuItem", "SelectedViewFullSizeMenuItem",
                                   "RenameMenuItem",       "DeleteMenuItem"};
const std::vector<std::string> WithoutChange{"CopyMenuItem", "SelectedPrintMenuItem", "SelectedEditMenuItem",
                                             "SelectedViewFullSizeMenuItem"};

class SelectedPhotoMenuTest : public SelectedTest {
 protected:
  // The menu is opened. Those of its commands that can be chosen.
  std::vector<std::string> Offered() {
    main.menu.SelectedPhotoMenu.UserClicked();
    std::vector<std::string> names;
    for (const MenuItem* item :
         {&main.menu.CopyMenuItem, &main.menu.SelectedPrintMenuItem, &main.menu.SelectedEditMenuItem,
          &main.menu.SelectedViewFullSizeMenuItem, &main.menu.RenameMenuItem, &main.menu.DeleteMenuItem}) {
      if (item->CanBeChosen()) names.push_back(item->Name());
    }
    return names;
  }
};

TEST_F(SelectedPhotoMenuTest, WithNoPhotoSelectedNothingIsOffered) {
  LoadStrip({"a.bmp"});
  EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(SelectedPhotoMenuTest, ASelectedPhotoIsOfferedAllCommands) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  EXPECT_THAT(Offered(), ElementsAreArray(All));
}

TEST_F(SelectedPhotoMenuTest, AWriteProtectedPhotoCanBeNeitherRenamedNorDeleted) {
  LoadStrip({"a.bmp", "b.bmp"});
  drive.SetMode(Photo("a.bmp"), 0444);
  SelectInStrip(1);
  EXPECT_THAT(Offered(), ElementsAreArray(WithoutChange));
  SelectInStrip(2);
  EXPECT_THAT(Offered(), ElementsAreArray(All));
}

TEST_F(SelectedPhotoMenuTest, APhotoSelectedInTheOpenFolderOrTheTrashcanIsOfferedTheSame) {
  OpenFamily({"x.bmp"});
  SelectInView(1);
  EXPECT_THAT(Offered(), ElementsAreArray(All));
  MakePhoto("C:\\Program\\Trashcan\\t.bmp", 0x00203040);
  desk.DestFolderFiles(TrashcanSlot).Refresh();
  Select_a_Folder(main, TrashcanSlot);
  run.Wait(0.08);
  run.LoadAll();
  EXPECT_THAT(Offered(), IsEmpty());
  SelectInView(1);
  EXPECT_THAT(Offered(), ElementsAreArray(All));
}

TEST_F(SelectedPhotoMenuTest, APhotoThatCannotBeShownIsNoneThatIsSelected) {
  drive.Write(Photo("a.bmp"), "BM and nothing of a bitmap");
  LoadStrip({});
  SelectInStrip(1);
  EXPECT_THAT(Offered(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
