#include "app/Seeding.h"

#include <string>

#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "platform/services/Shipped.h"

namespace pixorra {

namespace {

void WriteBeside(Files& files, const std::string& path, const std::string& bytes) {
  const std::unique_ptr<File> file = files.Open(path, OpenMode::Replace);
  file->WriteAt(0, bytes.data(), bytes.size());
  file->Flush();
}

void Seed(Files& files, const std::string& folder, const std::string& name, Shipped& shipped) {
  const std::string path = JoinPath(folder, name);
  if (files.NameTaken(path)) return;
  const std::string part = path + ".part";
  const bool failed = ErrorsIgnored([&] {
                        WriteBeside(files, part, shipped.Bytes(name));
                        files.Rename(part, path);
                        files.FlushFolder(folder);
                      }) != error::None;
  if (failed) static_cast<void>(ErrorsIgnored([&] { files.Delete(part); }));
}

}  // namespace

void SeedShippedFiles(Files& files, Places& places, Shipped& shipped) {
  static_cast<void>(ErrorsIgnored([&] {
    const std::string folder = places.ProgramFolder();
    for (const char* name : {"Clouds.jpg", "Readme.txt"}) Seed(files, folder, name, shipped);
  }));
}

}  // namespace pixorra
