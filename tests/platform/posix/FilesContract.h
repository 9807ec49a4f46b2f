// What every Files must do, tried on the host's files and on a wrapper that passes everything on.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {

enum class FilesKind { Posix, FaultyWithoutFault };

inline std::string KindName(const ::testing::TestParamInfo<FilesKind>& kind) {
  return kind.param == FilesKind::Posix ? "Posix" : "FaultyWithoutFault";
}

class FilesContract : public ::testing::TestWithParam<FilesKind> {
 protected:
  FilesContract() : wrapper_(drive_.DriveFiles()) {}

  Files& TheFiles() {
    if (GetParam() == FilesKind::Posix) return drive_.DriveFiles();
    return wrapper_;
  }

  std::string ReadWhole(const std::string& path) {
    const std::unique_ptr<File> file = TheFiles().Open(path, OpenMode::Read);
    std::string bytes(static_cast<std::size_t>(file->Length()), '\0');
    bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    return bytes;
  }

  int NumberOfOpen(const std::string& path, OpenMode mode) {
    return ErrorsIgnored([&] { TheFiles().Open(path, mode); });
  }

  TemporaryDrive drive_;

 private:
  FaultyFiles wrapper_;
};

// Runs a suite on every kind.
#define PIXORRA_ON_ALL_FILES(suite) \
  INSTANTIATE_TEST_SUITE_P(On, suite, ::testing::Values(FilesKind::Posix, FilesKind::FaultyWithoutFault), KindName)

}  // namespace pixorra
