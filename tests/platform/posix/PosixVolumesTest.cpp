// What is there to begin from: the file system, media, shares and cameras.
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <thread>

#include "platform/posix/PosixVolumes.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/platform/posix/ServedMount.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

// How often this thread has waited for something so far.
long Waits() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  return usage.ru_nvcsw;
}

class PosixVolumesTest : public ::testing::Test {
 protected:
  PosixVolumesTest() {
    drive.MakeFolder("C:\\run\\gvfs");
    drive.MakeFolder("C:\\media\\card");
    environment.RuntimeDir = drive.HostPath("C:\\run");
    mapping = std::make_shared<FixedMapping>(
        PathMapping({{'C', "/", "File System"}, {'E', drive.HostPath("C:\\media\\card"), "EOS card"}},
                    drive.HostPath("C:\\run\\gvfs")));
  }
  void Mount(const std::string& name) const {
    std::filesystem::create_directory(drive.HostPath("C:\\run\\gvfs") + "/" + name);
  }
  TemporaryDrive drive;
  Environment environment;
  std::shared_ptr<MappingSource> mapping;
};

TEST_F(PosixVolumesTest, VolumesAreListedWithTheNamesThatTheirOwnersKnow) {
  Mount("smb-share:server=nas,share=our%20photos");
  Mount("mtp:host=Maker_Phone%2B_12");
  Mount("gphoto2:host=%5Busb%3A001%2C004%5D");
  Mount("sftp:host=elsewhere");
  PosixVolumes volumes(environment, mapping);
  const std::vector<PlaceOfVolume> list = volumes.List();
  ASSERT_EQ(list.size(), 5U);
  EXPECT_EQ(list[0], (PlaceOfVolume{"File System", VolumeKind::FileSystem, "C:\\"}));
  EXPECT_EQ(list[1], (PlaceOfVolume{"EOS card", VolumeKind::Removable, "E:\\"}));
  EXPECT_EQ(list[2].Label, "[usb:001,004]");
  EXPECT_EQ(list[2].Kind, VolumeKind::Camera);
  EXPECT_EQ(list[3].Label, "Maker Phone+ 12");
  EXPECT_EQ(list[3].Kind, VolumeKind::Camera);
  EXPECT_EQ(list[4], (PlaceOfVolume{"our photos on nas", VolumeKind::Share, "\\\\nas\\our photos"}));
}

TEST_F(PosixVolumesTest, PathOfACameraLeadsToItsFolders) {
  Mount("mtp:host=Phone");
  std::filesystem::create_directory(drive.HostPath("C:\\run\\gvfs") + "/mtp:host=Phone/DCIM");
  PosixVolumes volumes(environment, mapping);
  PosixFiles files(mapping);
  EXPECT_THAT(files.Folders(volumes.List().back().Path, attribute::Normal), ElementsAre("DCIM"));
}

TEST_F(PosixVolumesTest, StampIsAnotherOneAfterEachChangeAndNoOther) {
  PosixVolumes volumes(environment, mapping);
  const std::uint64_t before = volumes.Stamp();
  EXPECT_EQ(volumes.Stamp(), before);
  Mount("smb-share:server=nas,share=photos");
  const std::uint64_t after = volumes.Stamp();
  EXPECT_NE(after, before);
  EXPECT_EQ(volumes.Stamp(), after);
  std::filesystem::remove(drive.HostPath("C:\\run\\gvfs") + "/smb-share:server=nas,share=photos");
  EXPECT_NE(volumes.Stamp(), after);
}

TEST_F(PosixVolumesTest, StampFollowsTheKernelsMounts) {
  if (!HavePrivateMounts()) GTEST_SKIP() << "nothing can be mounted here";
  PosixVolumes volumes(environment, mapping);
  const std::uint64_t before = volumes.Stamp();
  MemoryDisk disk(drive.HostPath("C:\\media\\card"), "size=64k");
  ASSERT_TRUE(disk.Mounted());
  EXPECT_NE(volumes.Stamp(), before);
}

TEST_F(PosixVolumesTest, WhatTheDesktopMountsOnAMountIsLookedAtOnceInAWhileAndWhenItIsListed) {
  const MemoryDisk gvfs(drive.HostPath("C:\\run\\gvfs"), "size=64k");
  if (!gvfs.Mounted()) GTEST_SKIP() << "nothing can be mounted here";
  PosixVolumes seldom(environment, mapping, std::chrono::hours(1));
  PosixVolumes often(environment, mapping, std::chrono::milliseconds(0));
  const std::uint64_t before = seldom.Stamp();
  const std::uint64_t oftenBefore = often.Stamp();
  Mount("smb-share:server=nas,share=photos");
  EXPECT_EQ(seldom.Stamp(), before);
  // The thread is given a moment, and may want more.
  while (often.Stamp() == oftenBefore) std::this_thread::yield();
  while (seldom.List().size() != 3) std::this_thread::yield();
  EXPECT_NE(seldom.Stamp(), before);
  // The kernel's word of a change leads to a look.
  const std::uint64_t listed = seldom.Stamp();
  Mount("smb-share:server=nas,share=videos");
  const MemoryDisk card(drive.HostPath("C:\\media\\card"), "size=64k");
  EXPECT_NE(seldom.Stamp(), listed);
  EXPECT_EQ(seldom.List().size(), 4U);
}

TEST_F(PosixVolumesTest, AMountThatHangsHoldsNothingUpAndWhatWasThereCounts) {
  if (!HavePrivateMounts()) GTEST_SKIP() << "nothing can be mounted here";
  Mount("smb-share:server=nas,share=photos");
  environment.ConfigHome = drive.HostPath("C:\\config");
  PosixVolumes volumes(environment, mapping);
  const std::vector<PlaceOfVolume> before = volumes.List();
  HangingMount hanging(drive.HostPath("C:\\run\\gvfs"));
  if (!hanging.Mounted()) GTEST_SKIP() << "no such mount can be had here";
  volumes.Stamp();
  const long waits = Waits();
  for (int i = 0; i < 200; ++i) {
    EXPECT_EQ(volumes.List(), before);
    volumes.Stamp();
  }
  EXPECT_LT(Waits() - waits, 100) << "the one at first was the only one";
  MountedMapping started(environment);
  hanging.End();
  Mount("smb-share:server=nas,share=videos");
  while (volumes.List().size() != before.size() + 1) std::this_thread::yield();
  EXPECT_EQ(volumes.List().back().Label, "videos on nas");
}

TEST_F(PosixVolumesTest, NothingOfTheDesktopIsNoFault) {
  environment.RuntimeDir.clear();
  PosixVolumes volumes(environment, mapping);
  EXPECT_EQ(volumes.List().size(), 2U);
  EXPECT_EQ(volumes.Stamp(), volumes.Stamp());
}

TEST_F(PosixVolumesTest, ADeviceKeepsItsIdentityWhateverTheNameOfItsStorage) {
  EXPECT_EQ(VolumeOfDesktopMount("mtp:host=Maker_Phone,storage=Karte").Identity, "device:mtp:host=Maker_Phone");
  EXPECT_EQ(VolumeOfDesktopMount("mtp:host=Maker_Phone").Identity, "device:mtp:host=Maker_Phone");
  EXPECT_EQ(VolumeOfDesktopMount("smb-share:server=nas,share=photos").Identity, "");
}

TEST_F(PosixVolumesTest, AllThatTheDesktopMountsIsItsMountListedOrNot) {
  PosixVolumes volumes(environment, mapping);
  const auto isMount = [&](const std::string& below) {
    return volumes.IsMountOfDesktop(mapping->Current().ToProgram(drive.HostPath("C:\\run\\gvfs") + below).value());
  };
  for (const char* mount : {"", "/sftp:host=far", "/dav:host=cloud,ssl=true", "/ftp:host=old", "/nfs:host=nas",
                            "/smb-share:server=nas,share=photos", "/afc:host=phone", "/mtp:host=Phone",
                            "/mtp:host=Phone/Internal storage", "/gphoto2:host=EOS", "/gphoto2:host=EOS/DCIM"})
    EXPECT_TRUE(isMount(mount)) << mount;
  for (const char* folder : {"/sftp:host=far/photos", "/mtp:host=Phone/Internal storage/DCIM",
                             "/gphoto2:host=EOS/DCIM/100CANON", "/smb-share:server=nas,share=photos/Trip"})
    EXPECT_FALSE(isMount(folder)) << folder;
  for (const char* path : {"C:\\", "E:\\", "E:\\DCIM", "Q:\\x", "C:\\home\\anna", "\\\\nas", ""})
    EXPECT_FALSE(volumes.IsMountOfDesktop(path)) << path;
}

TEST_F(PosixVolumesTest, TheStoresOfADeviceWithALetterAreMountsToo) {
  const auto lettered = std::make_shared<FixedMapping>(
      PathMapping({{'C', "/", "File System"}, {'F', drive.HostPath("C:\\run\\gvfs") + "/mtp:host=Phone", "Phone"}},
                  drive.HostPath("C:\\run\\gvfs")));
  PosixVolumes volumes(environment, lettered);
  EXPECT_TRUE(volumes.IsMountOfDesktop("F:\\"));
  EXPECT_TRUE(volumes.IsMountOfDesktop("F:\\Internal storage"));
  EXPECT_FALSE(volumes.IsMountOfDesktop("F:\\Internal storage\\DCIM"));
}

// Its root is then a root to every rule that keeps roots from harm.
TEST_F(PosixVolumesTest, ACameraThatTheDesktopMountsIsADriveOfItsOwn) {
  environment.ConfigHome = drive.HostPath("C:\\config");
  const auto mounted = std::make_shared<MountedMapping>(environment);
  PosixVolumes volumes(environment, mounted);
  const std::uint64_t before = volumes.Stamp();
  Mount("gphoto2:host=EOS_90D");
  std::filesystem::create_directory(drive.HostPath("C:\\run\\gvfs") + "/gphoto2:host=EOS_90D/DCIM");
  EXPECT_NE(volumes.Stamp(), before);
  const PlaceOfVolume camera = volumes.List().back();
  EXPECT_EQ(camera.Label, "EOS 90D");
  EXPECT_EQ(camera.Kind, VolumeKind::Camera);
  ASSERT_EQ(camera.Path.size(), 3U) << camera.Path;
  EXPECT_EQ(camera.Path.substr(1), ":\\");
  PosixFiles files(mounted);
  EXPECT_EQ(files.FolderPath(camera.Path + "dcim"), camera.Path + "DCIM");
  std::filesystem::remove_all(drive.HostPath("C:\\run\\gvfs") + "/gphoto2:host=EOS_90D");
  volumes.Stamp();
  EXPECT_FALSE(files.FolderExists(camera.Path));
  Mount("gphoto2:host=EOS_90D");
  volumes.Stamp();
  EXPECT_EQ(volumes.List().back().Path, camera.Path) << "the same letter again";
}

TEST_F(PosixVolumesTest, ACameraKeepsItsLetterWhereTheVeryFirstLookHangs) {
  environment.ConfigHome = drive.HostPath("C:\\config");
  Mount("gphoto2:host=EOS_90D");
  const auto mounted = std::make_shared<MountedMapping>(environment);
  const std::vector<Volume> before = mounted->Current().Volumes();
  PosixVolumes volumes(environment, mounted);
  const HangingMount hanging(drive.HostPath("C:\\run\\gvfs"));
  if (!hanging.Mounted()) GTEST_SKIP() << "no such mount can be had here";
  volumes.Stamp();
  EXPECT_EQ(mounted->Current().Volumes(), before);
  EXPECT_EQ(volumes.List().back().Label, "EOS 90D");
}

TEST_F(PosixVolumesTest, ACameraIsADriveFromTheStartWhereTheDesktopIsSlowToAnswer) {
  environment.ConfigHome = drive.HostPath("C:\\config");
  const ServedMount slow(drive.HostPath("C:\\run\\gvfs"), "gphoto2:host=EOS_90D", 4 * DesktopMountsLook::Patience);
  if (!slow.Mounted()) GTEST_SKIP() << "no such mount can be had here";
  MountedMapping started(environment);
  EXPECT_THAT(started.DesktopMounts(), ElementsAre("gphoto2:host=EOS_90D"));
  EXPECT_EQ(started.Current().Volumes().back().ShownName, "EOS 90D");
}

}  // namespace
}  // namespace pixorra
