// Paths by text alone: every host name has one spelling, and no path leads out of its root.
#include <gtest/gtest.h>

#include "platform/posix/HostNames.h"
#include "platform/posix/PathMapping.h"
#include "platform/posix/ShareMounts.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "tests/platform/posix/RandomBytes.h"

namespace pixorra {
namespace {

PathMapping WithVolumes() {
  return PathMapping({{'C', "/", "File System"}, {'D', "/media/anna/CARD", "CARD"}, {'E', "/media/anna", "all"}},
                     "/run/user/1000/gvfs");
}

int NumberOf(const PathMapping& mapping, const std::string& path) {
  return ErrorsIgnored([&] { mapping.ToHost(path); });
}

TEST(HostNames, PlainNamesAreTheSameInBothSpellings) {
  for (const char* name :
       {"a.jpg", "two words", "\xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80", ".hidden", "...", "a\nb", "*?|<>"}) {
    EXPECT_EQ(NameFromHost(name), name);
    EXPECT_EQ(NameToHost(name), name);
  }
}

TEST(HostNames, WhatABackslashPathHasNoRoomForBecomesPrivateUseCharacters) {
  EXPECT_EQ(NameFromHost("a\\b"),
            "a\xEF\x81\x9C"
            "b");
  EXPECT_EQ(NameFromHost("a:b"),
            "a\xEF\x80\xBA"
            "b");
  EXPECT_EQ(NameFromHost("a\"b"),
            "a\xEF\x80\xA2"
            "b");
  EXPECT_EQ(NameFromHost("\xE4.jpg"), "\xEF\x9F\xA4.jpg");
  EXPECT_EQ(NameFromHost("\xEF\x81\x9C"), "\xEF\x9F\xAF\xEF\x9E\x81\xEF\x9E\x9C");
}

TEST(HostNames, WhatNoHostFolderHoldsIsNoName) {
  for (const std::string& name :
       {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("/"),
        std::string("a\0b", 3), std::string("a\\b"), std::string("a:b"), std::string("a\"b"), std::string("\xE4"),
        // The spelling of bytes that together are a character.
        std::string("\xEF\x9F\x83\xEF\x9E\xA4")})
    EXPECT_EQ(NameToHost(name), std::nullopt) << name;
}

TEST(HostNames, EveryHostNameComesBackFromItsSpelling) {
  RandomBytes random(1);
  for (int i = 0; i < 50'000; ++i) {
    const std::string host = random.HostName();
    const std::string name = NameFromHost(host);
    ASSERT_TRUE(IsValidUtf8(name));
    ASSERT_EQ(name.find_first_of("\\:/\""), std::string::npos) << ::testing::PrintToString(host);
    ASSERT_EQ(NameToHost(name), host) << ::testing::PrintToString(host);
  }
}

TEST(HostNames, WhatIsTakenAsANameHasNoOtherSpelling) {
  RandomBytes random(2);
  for (int i = 0; i < 50'000; ++i) {
    const std::string name = random.Anything();
    const std::optional<std::string> host = NameToHost(name);
    if (!host) continue;
    ASSERT_EQ(NameFromHost(*host), name) << ::testing::PrintToString(name);
    ASSERT_EQ(host->find('/'), std::string::npos);
    ASSERT_EQ(host->find('\0'), std::string::npos);
    ASSERT_TRUE(*host != "." && *host != ".." && !host->empty());
  }
}

TEST(HostNames, PeopleReadUtf8AndMayWriteItBack) {
  EXPECT_EQ(NameForPeople(NameFromHost("12:30\\noon")), "12:30\\noon");
  RandomBytes random(3);
  for (int i = 0; i < 50'000; ++i) {
    const std::string name = NameFromHost(random.HostName());
    const std::string shown = NameForPeople(name);
    ASSERT_TRUE(IsValidUtf8(shown));
    ASSERT_EQ(NameFromPeople(shown), name) << ::testing::PrintToString(shown);
  }
}

TEST(ShareMounts, MountsAreNamedForServerAndShare) {
  EXPECT_EQ(MountOfShare({"nas", "photos"}), "smb-share:server=nas,share=photos");
  EXPECT_EQ(MountOfShare({"nas", "my photos,x=%"}), "smb-share:server=nas,share=my%20photos%2Cx%3D%25");
  const std::optional<Share> share = ShareOfMount("smb-share:domain=home,server=nas,share=my%20photos,user=anna");
  ASSERT_TRUE(share);
  EXPECT_EQ(share->Server, "nas");
  EXPECT_EQ(share->Name, "my photos");
}

TEST(ShareMounts, OtherFoldersAreNoShares) {
  for (const char* name :
       {"", "smb-share:", "smb-share:server=nas", "smb-share:server=,share=x", "mtp:host=x",
        "smb-share:server=..,share=x", "smb-share:server=a%2Fb,share=x", "smb-share:server=a,share=%00"})
    EXPECT_FALSE(ShareOfMount(name)) << name;
}

TEST(ShareMounts, EveryShareComesBackFromItsMount) {
  RandomBytes random(4);
  for (int i = 0; i < 20'000; ++i) {
    const Share share{random.HostName(), random.HostName()};
    const std::optional<Share> back = ShareOfMount(MountOfShare(share));
    ASSERT_TRUE(back);
    ASSERT_EQ(back->Server, share.Server);
    ASSERT_EQ(back->Name, share.Name);
  }
}

TEST(PathMapping, TheHostsRootIsDriveC) {
  const PathMapping mapping;
  EXPECT_EQ(mapping.ToHost("C:\\home\\anna\\a.jpg").Text(), "/home/anna/a.jpg");
  EXPECT_EQ(mapping.ToHost("c:\\\\home\\").Text(), "/home");
  EXPECT_EQ(mapping.ToHost("C:\\").Text(), "/");
  EXPECT_EQ(mapping.ToHost("C:").Text(), "/");
  EXPECT_TRUE(mapping.ToHost("C:").IsRoot());
  EXPECT_EQ(mapping.ToProgram("/home/anna/a.jpg"), "C:\\home\\anna\\a.jpg");
  EXPECT_EQ(mapping.ToProgram("/"), "C:\\");
  EXPECT_EQ(mapping.ToProgram("//home/./anna/../"), "C:\\home");
  EXPECT_EQ(mapping.ToProgram("/../.."), "C:\\");
  EXPECT_EQ(mapping.ToProgram("relative"), std::nullopt);
}

TEST(PathMapping, TheVolumeThatLiesNearestHoldsAPath) {
  const PathMapping mapping = WithVolumes();
  EXPECT_EQ(mapping.ToProgram("/media/anna/CARD/DCIM"), "D:\\DCIM");
  EXPECT_EQ(mapping.ToProgram("/media/anna/CARD"), "D:\\");
  EXPECT_EQ(mapping.ToProgram("/media/anna/CARDS"), "E:\\CARDS");
  EXPECT_EQ(mapping.ToProgram("/media"), "C:\\media");
  EXPECT_EQ(mapping.ToHost("d:\\DCIM").Text(), "/media/anna/CARD/DCIM");
  EXPECT_TRUE(mapping.IsVolumeRoot("/media/anna"));
  EXPECT_FALSE(mapping.IsVolumeRoot("/media"));
}

TEST(PathMapping, ARootElsewhereHoldsNothingOutsideIt) {
  const PathMapping mapping({{'C', "/tmp/drive", "Test"}});
  EXPECT_EQ(mapping.ToHost("C:\\a").Text(), "/tmp/drive/a");
  EXPECT_EQ(mapping.ToHost("C:\\").Text(), "/tmp/drive");
  EXPECT_EQ(mapping.ToProgram("/tmp/drive/a"), "C:\\a");
  EXPECT_EQ(mapping.ToProgram("/tmp/other"), std::nullopt);
  EXPECT_EQ(mapping.ToProgram("/tmp/drive/../other"), std::nullopt);
}

TEST(PathMapping, SharesLieInTheFolderOfMounts) {
  const PathMapping mapping = WithVolumes();
  const HostPath path = mapping.ToHost("\\\\nas\\my photos\\Summer");
  EXPECT_EQ(path.Text(), "/run/user/1000/gvfs/smb-share:server=nas,share=my%20photos/Summer");
  EXPECT_FALSE(path.IsRoot());
  EXPECT_TRUE(mapping.ToHost("\\\\nas\\my photos\\").IsRoot());
  EXPECT_EQ(mapping.ToProgram(path.Text()), "\\\\nas\\my photos\\Summer");
  EXPECT_EQ(mapping.ToProgram("/run/user/1000/gvfs/smb-share:server=nas,share=p"), "\\\\nas\\p");
  EXPECT_EQ(mapping.ToProgram("/run/user/1000/gvfs/mtp:host=x"), "C:\\run\\user\\1000\\gvfs\\mtp\xEF\x80\xBAhost=x");
}

TEST(PathMapping, PathsThatAreNoneRaise) {
  const PathMapping mapping = WithVolumes();
  for (const std::string& path :
       {std::string(), std::string("a"), std::string("\\a"), std::string("C:a"), std::string("1:\\a"),
        std::string("C:\\..\\a"), std::string("C:\\a\\.\\b"), std::string("C:\\a/b"), std::string("C:\\a:b"),
        std::string("C:\\a\0b", 6), std::string("/home"), std::string("\\\\..\\share"), std::string("\\\\nas\\..\\x")})
    EXPECT_EQ(NumberOf(mapping, path), error::BadFileName) << path;
  for (const char* path : {"Q:\\a", "\\\\", "\\\\nas", "\\\\nas\\"})
    EXPECT_EQ(NumberOf(mapping, path), error::PathNotFound) << path;
  EXPECT_EQ(NumberOf(PathMapping(), "\\\\nas\\share"), error::PathNotFound);
}

TEST(PathMapping, NoPathLeadsOutOfItsRoot) {
  const PathMapping mapping({{'C', "/tmp/drive", "Test"}}, "/tmp/mounts");
  RandomBytes random(5);
  int taken = 0;
  for (int i = 0; i < 100'000; ++i) {
    const std::string path = (i % 2 == 0 ? "C:\\" : "") + random.Anything();
    const int number = ErrorsIgnored([&] {
      const HostPath host = mapping.ToHost(path);
      ++taken;
      ASSERT_TRUE(host.Root == "/tmp/drive" || host.Root == "/tmp/mounts");
      for (const std::string& name : host.Names) {
        ASSERT_FALSE(name.empty() || name == "." || name == "..") << ::testing::PrintToString(path);
        ASSERT_EQ(name.find('/'), std::string::npos) << ::testing::PrintToString(path);
        ASSERT_EQ(name.find('\0'), std::string::npos) << ::testing::PrintToString(path);
      }
    });
    ASSERT_TRUE(number == 0 || number == error::BadFileName || number == error::PathNotFound);
    if (::testing::Test::HasFatalFailure()) return;
  }
  EXPECT_GT(taken, 1000);
}

TEST(PathMapping, EveryHostPathComesBack) {
  const PathMapping mapping = WithVolumes();
  RandomBytes random(6);
  const char* roots[] = {"", "/media/anna/CARD", "/media/anna", "/run/user/1000/gvfs/smb-share:server=nas,share=p"};
  for (int i = 0; i < 30'000; ++i) {
    std::string host = roots[random.Below(4)];
    const int depth = 1 + random.Below(4);
    for (int level = 0; level < depth; ++level) host += '/' + random.HostName();
    const std::string program = mapping.ToProgram(host).value();
    ASSERT_EQ(mapping.ToHost(program).Text(), host) << ::testing::PrintToString(program);
    ASSERT_EQ(mapping.ProgramPath(mapping.ShownPath(program)), program) << ::testing::PrintToString(program);
  }
}

TEST(PathMapping, PeopleReadTheHostsSpelling) {
  const PathMapping mapping = WithVolumes();
  EXPECT_EQ(mapping.ShownPath("C:\\home\\anna"), "/home/anna");
  EXPECT_EQ(mapping.ShownPath("C:\\home\\"), "/home/");
  EXPECT_EQ(mapping.ShownPath("C:\\"), "/");
  EXPECT_EQ(mapping.ShownPath("D:\\"), "/media/anna/CARD/");
  EXPECT_EQ(mapping.ShownPath("D:"), "/media/anna/CARD");
  EXPECT_EQ(mapping.ShownPath("D:\\DCIM"), "/media/anna/CARD/DCIM");
  EXPECT_EQ(mapping.ShownPath("\\\\nas\\p\\x"), "smb://nas/p/x");
  EXPECT_EQ(mapping.ShownPath("C:\\12\xEF\x80\xBA"
                              "30"),
            "/12:30");
  EXPECT_EQ(mapping.ShownPath("12\xEF\x80\xBA"
                              "30"),
            "12:30");
  EXPECT_EQ(mapping.ShownPath(""), "");
  EXPECT_EQ(mapping.ShownPath("Q:\\a"), "Q:\\a");
  EXPECT_EQ(mapping.ShownPath("text with \\ in it"), "text with \\ in it");
}

TEST(PathMapping, EitherSpellingIsTakenFromPeople) {
  const PathMapping mapping = WithVolumes();
  EXPECT_EQ(mapping.ProgramPath("/home/anna/"), "C:\\home\\anna");
  EXPECT_EQ(mapping.ProgramPath("/media/anna/CARD/"), "D:\\");
  EXPECT_EQ(mapping.ProgramPath("C:\\home\\anna"), "C:\\home\\anna");
  EXPECT_EQ(mapping.ProgramPath("smb://nas/p/x/"), "\\\\nas\\p\\x");
  EXPECT_EQ(mapping.ProgramPath("/12:30\\noon"),
            "C:\\12\xEF\x80\xBA"
            "30\xEF\x81\x9C"
            "noon");
  EXPECT_EQ(mapping.ProgramPath("~/photos"), "~/photos");
  EXPECT_EQ(mapping.ProgramPath("photos"), "photos");
  EXPECT_EQ(mapping.ProgramPath(""), "");
}

TEST(PathMapping, ATestDriveShowsTheProgramsSpelling) {
  const PathMapping mapping({{'C', "/tmp/drive", "Test"}}, {}, true);
  EXPECT_EQ(mapping.ShownPath("C:\\12\xEF\x80\xBA"
                              "30"),
            "C:\\12\xEF\x80\xBA"
            "30");
}

TEST(PathMapping, AnythingCanBeShownAndTyped) {
  const PathMapping mapping = WithVolumes();
  RandomBytes random(7);
  for (int i = 0; i < 50'000; ++i) {
    const std::string text = random.Anything();
    mapping.ShownPath(text);
    const std::string program = mapping.ProgramPath(text);
    const int number = NumberOf(mapping, program);
    ASSERT_TRUE(number == 0 || number == error::BadFileName || number == error::PathNotFound);
  }
}

TEST(PathMapping, APathOfAnyDriveIsKnownBelowTheRootAlone) {
  const PathMapping plain;
  const std::string odd = "E:\\other\\" + NameFromHost("b:c\\d.jpg");
  for (const std::string& path :
       {std::string("C:\\home\\a.jpg"), std::string("D:\\DCIM\\a.jpg"), odd, std::string("\\\\server\\share\\a.jpg")}) {
    const std::string below = PathBelowRoot(WithVolumes(), path);
    EXPECT_TRUE(below.starts_with("C:\\")) << below;
    EXPECT_EQ(plain.ToHost(below).Text(), WithVolumes().ToHost(path).Text()) << path;
  }
  EXPECT_EQ(PathBelowRoot(WithVolumes(), "D:\\DCIM\\a.jpg"), "C:\\media\\anna\\CARD\\DCIM\\a.jpg");
  EXPECT_EQ(ErrorsIgnored([] { PathBelowRoot(WithVolumes(), "Z:\\a.jpg"); }), error::PathNotFound);
  // Of a volume that has no place of its own on the host.
  const PathMapping nowhere({{'C', "/", "File System"}, {'D', "CARD", "Card"}});
  EXPECT_EQ(ErrorsIgnored([&] { PathBelowRoot(nowhere, "D:\\a.jpg"); }), error::PathNotFound);
}

}  // namespace
}  // namespace pixorra
