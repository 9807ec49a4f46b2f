// Names that other systems would not allow, all the way: listed, shown, dropped, marked, and back at the next start.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <map>
#include <set>

#include "tests/drop/DropTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string>& OddNames() {
  static const std::vector<std::string> names = {"two  blanks .bmp",
                                                 " leading.bmp",
                                                 "it's \"quoted\".bmp",
                                                 "100%25 %s %n.bmp",
                                                 "line\nfeed.bmp",
                                                 "tab\tand\rreturn.bmp",
                                                 "back\\slash.bmp",
                                                 "x\\..\\..\\up.bmp",
                                                 "C:colon.bmp",
                                                 "semi;colon,comma.bmp",
                                                 "question?star*.bmp",
                                                 "[brackets]#.bmp",
                                                 "-rf.bmp",
                                                 "$(echo) `echo` &.bmp",
                                                 "\xD0\xA4\xD0\xBE\xD1\x82\xD0\xBE.bmp",
                                                 "\xE5\x86\x99\xE7\x9C\x9F.bmp",
                                                 "\xF0\x9F\x93\xB7.bmp",
                                                 "bad\xFF\xFE\x80utf8.bmp",
                                                 "cut\xE5\x86.bmp",
                                                 "dots...bmp",
                                                 std::string(200, 'n') + ".bmp",
                                                 "case.bmp",
                                                 "CASE.bmp"};
  return names;
}

class OddNamesTest : public ProgramTest {
 protected:
  OddNamesTest() {
    Colour colour = 0x00000300;
    for (const std::string& name : OddNames()) {
      WriteHost("C:\\Strip", name, BmpOf(PlainBitmap(80, 60, colour += 0x00000900)));
    }
    drive.MakeFolder("C:\\F");
  }
  void WriteHost(const std::string& folder, const std::string& name, const std::string& bytes) {
    drive.MakeFolder(folder);
    std::ofstream file(drive.HostPath(folder) + "/" + name, std::ios::binary);
    file << bytes;
    ASSERT_TRUE(file.good()) << name;
  }
  // By host name.
  std::map<std::string, std::string> Photos(const std::string& folder) {
    std::map<std::string, std::string> photos;
    for (const auto& entry : fs::directory_iterator(drive.HostPath(folder))) {
      if (entry.path().extension() != ".bmp") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      photos[entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return photos;
  }
  ProgramRun& Begin(const std::string& strip, const std::string& folder) {
    SavedState saved;
    saved.Rename = 2;
    saved.Duplicates = 3;
    saved.FilmStrip = strip;
    saved.Folders = {folder};
    WriteSavedState(saved);
    return Again();
  }
  ProgramRun& Again() {
    ProgramRun& run = Started();
    run.LoadAll();
    run.Wait(3);
    return run;
  }
  static void Drop(ProgramRun& run, Control& source) {
    DesktopState& desk = run.main.desk;
    ImageBox& preview = desk.DestFolderPreview(1);
    run.person.Drag(source, preview.Visible() ? preview : desk.DestFolder(1));
    run.LoadAll();
  }
};

TEST_F(OddNamesTest, EveryPhotoIsListedShownDroppedAndComesBackMarked) {
  const std::map<std::string, std::string> before = Photos("C:\\Strip");
  const int count = static_cast<int>(OddNames().size());
  ASSERT_EQ(static_cast<int>(before.size()), count);
  ProgramRun& run = Begin("C:\\Strip", "C:\\F");
  const FilmStripState& strip = run.main.strip;
  ASSERT_EQ(strip.SrcSlotCount, count);
  std::set<std::string> shown;
  for (int i = 1; i <= count; ++i) {
    const Picture& picture = strip.SrcThumbnail(i).GetPicture();
    EXPECT_FALSE(picture == run.main.pictures.InvalidPicture) << strip.SrcThumbnail(i).Tag();
    const std::uint8_t* pixel = picture.Pixels().Row(30);
    shown.insert(std::string(pixel, pixel + 3));
  }
  EXPECT_EQ(static_cast<int>(shown.size()), count) << "each shows itself and no other one";

  Drop(run, run.main.strip.AllButton);
  // One of the two that only their case tells apart finds its name taken, and gets a number.
  std::map<std::string, std::string> copies = Photos("C:\\F");
  ASSERT_EQ(static_cast<int>(copies.size()), count);
  int renamed = 0;
  for (const auto& [name, bytes] : before) {
    if (copies.contains(name)) {
      EXPECT_TRUE(copies[name] == bytes) << name;
      continue;
    }
    ++renamed;
    EXPECT_TRUE(copies.contains("CASE1.bmp") || copies.contains("case1.bmp")) << name;
  }
  EXPECT_EQ(renamed, 1);
  EXPECT_TRUE(Photos("C:\\Strip") == before);
  EXPECT_EQ(run.main.desk.DestSlotCount, count);
  run.Close();

  ProgramRun& second = Again();
  ASSERT_EQ(second.main.strip.SrcSlotCount, count);
  for (int i = 1; i <= count; ++i) {
    EXPECT_EQ(second.main.strip.SrcThumbName(i).Tag(), "MARK") << second.main.strip.SrcThumbnail(i).Tag();
  }
  EXPECT_EQ(second.main.desk.DestSlotCount, count);
  // Nothing was made outside the folders.
  std::set<std::string> top;
  for (const auto& entry : fs::directory_iterator(drive.HostRoot())) top.insert(entry.path().filename().string());
  for (const std::string& name : top) EXPECT_TRUE(name.find("up.bmp") == std::string::npos) << name;
}

TEST_F(OddNamesTest, FoldersOfOddNamesComeBackToo) {
  // The saved state has no escape of a quote, so such a folder is the one kind that does not survive.
  for (const char* name : {"blank at end ", "100% %s", "line\nfeed", "a:b", "back\\slash", "\xE5\x86\x99\xE7\x9C\x9F",
                           "bad\xFF\x80utf8", "comma, here", "it's"}) {
    SCOPED_TRACE(name);
    const std::string host = drive.HostPath("C:\\Odd");
    fs::remove_all(host);
    fs::create_directories(host + "/" + name);
    const std::vector<std::string> folders = drive.DriveFiles().Names("C:\\Odd", "*", attribute::Directory);
    ASSERT_EQ(folders.size(), 1U);
    const std::string folder = "C:\\Odd\\" + folders[0];
    ProgramRun& run = Begin("C:\\Strip", folder);
    ASSERT_EQ(run.main.desk.FoldersShown, 1);
    EXPECT_EQ(run.main.desk.DestFolderFiles(1).Path(), folder);
    Drop(run, run.main.strip.SrcThumbnail(1));
    EXPECT_EQ(run.main.desk.DestPicsCount(1).Caption(), "1 pics");
    run.Close();
    const int photos = static_cast<int>(
        std::count_if(fs::directory_iterator(host + "/" + name), fs::directory_iterator(),
                      [](const fs::directory_entry& entry) { return entry.path().extension() == ".bmp"; }));
    EXPECT_EQ(photos, 1);
    EXPECT_EQ(Again().main.desk.DestFolderFiles(1).Path(), folder);
    // And as a film strip.
    ProgramRun& strip = Begin(folder, "C:\\F");
    EXPECT_FALSE(strip.main.strip.NoFilmStrip);
    EXPECT_EQ(strip.main.strip.SrcSlotCount, 1);
  }
}

TEST_F(OddNamesTest, AFolderThatVanishesBetweenItsListingAndItsReadingLeavesWhatCameUpAndTheRestAway) {
  WriteSavedState(StateLines("C:\\Strip", {"C:\\F"}));
  ProgramRun& run = Started();
  run.Wait(0.05);
  const int cameUp = run.main.strip.SrcSlotCount;
  drive.Remove("C:\\Strip");
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, cameUp);
  EXPECT_LT(cameUp, static_cast<int>(OddNames().size()));
  run.Close();
  EXPECT_FALSE(drive.Exists("C:\\Strip"));
}

}  // namespace
}  // namespace pixorra
