// What a slide show calls its photos and its folder, on a desktop whose paths are the host's.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

#include "platform/posix/MappingSource.h"
#include "tests/slideshow/CompanionTest.h"

namespace pixorra {
namespace {

class CardMapping : public MappingSource {
 public:
  explicit CardMapping(std::string hostRoot) : hostRoot_(std::move(hostRoot)) { Mount(true); }
  const PathMapping& Current() override { return mapping_; }
  void Mount(bool mounted) {
    mapping_ = mounted ? PathMapping({{'C', "/", "File System"}, {'D', hostRoot_, "Card"}}) : PathMapping();
  }

 private:
  std::string hostRoot_;
  PathMapping mapping_;
};

class TitlesTest : public CompanionTest {
 protected:
  // A photo whose name is the host's own.
  void AddHostPhoto(const std::string& name) {
    const std::string folder = drive.HostRoot() + "/Photos/";
    std::filesystem::create_directories(folder);
    std::ofstream(folder + name, std::ios::binary) << BmpOf(PlainBitmap(Width, Height, 0x000000FF));
  }
  void BeginOnHost() {
    companion =
        std::make_unique<Companion>(CompanionHost{toolkit, files, reader, frames, platform.settings, session},
                                    Request{.What = Request::Wish::Show, .Folder = drive.HostRoot() + "/Photos"});
    companion->Start();
    Wait(1);
  }

  // The drive's files by the paths that a person of the host reads, on a card that may be pulled out.
  std::shared_ptr<CardMapping> mapping = std::make_shared<CardMapping>(drive.HostRoot());
  PosixFiles files{mapping};
  HeadlessFolderReader reader{files, platform.posting};
  CodecPictures pictures{files};
  HeadlessFrames frames{files, pictures, platform.posting};
};

TEST_F(TitlesTest, ATitleIsSpelledAsTheFileIsWithoutItsLastExtension) {
  AddHostPhoto("12:30 \"x\" a\\b.2.jpg");
  BeginOnHost();
  EXPECT_EQ(companion->TitleLabel.Caption(), "12:30 \"x\" a\\b.2");
  EXPECT_EQ(companion->Photo.AccessibleName(), "12:30 \"x\" a\\b.2");
}

TEST_F(TitlesTest, ALineEndInANameIsABlankInTheTitle) {
  AddHostPhoto("one\ntwo\x7F.jpg");
  BeginOnHost();
  EXPECT_EQ(companion->TitleLabel.Caption(), "one two ");
}

TEST_F(TitlesTest, AFolderOfACardThatIsPulledOutIsNamedAsItWasBefore) {
  AddHostPhoto("a.jpg");
  BeginOnHost();
  mapping->Mount(false);
  Wait(20);
  EXPECT_NE(Notice().find("cannot be opened"), std::string::npos);
  EXPECT_EQ(companion->FolderLabel.Caption(), drive.HostRoot() + "/Photos");
}

}  // namespace
}  // namespace pixorra
