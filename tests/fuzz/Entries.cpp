#include "tests/fuzz/Entries.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/QuickThumbsIndex.h"
#include "base/SavedRecords.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegReader.h"
#include "platform/posix/PathMapping.h"
#include "platform/runtime/Errors.h"

namespace pixorra::fuzz {

namespace {

void MustHold(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

std::string TextOf(Bytes bytes) {
  return {bytes.begin(), bytes.end()};
}

// A file in memory.
class MemoryFile : public File {
 public:
  explicit MemoryFile(Bytes bytes) : bytes_(bytes) {}
  std::int64_t Length() override { return static_cast<std::int64_t>(bytes_.size()); }
  FileStamp Stamp() override { return {.Length = Length()}; }
  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    if (offset < 0 || offset >= Length()) return 0;
    const std::size_t read = std::min(count, bytes_.size() - static_cast<std::size_t>(offset));
    if (read > 0) std::memcpy(into, bytes_.data() + offset, read);
    return read;
  }
  void WriteAt(std::int64_t, const void*, std::size_t) override { throw RuntimeError(error::PathAccess); }
  void Flush() override {}
  void Empty() override { throw RuntimeError(error::PathAccess); }

 private:
  Bytes bytes_;
};

quickthumbs::EntryKey KeyAt(Bytes bytes, std::int64_t record) {
  quickthumbs::EntryKey key{};
  const auto at = static_cast<std::size_t>(quickthumbs::OffsetOf(record)) + quickthumbs::KeyOffset;
  for (std::size_t i = 0; i < key.size() && at + i < bytes.size(); ++i) key[i] = bytes[at + i];
  return key;
}

// No more pixels than a test has the time for.
constexpr std::size_t MostPixels = 4U << 20U;

void ReducedJpeg(Bytes bytes) {
  for (const int denominator : {1, 2, 4, 8}) {
    JpegReader reader(bytes);
    if (reader.Open() != 0 || reader.Reduce(denominator) != 0) return;
    MustHold(reader.Width() > 0 && reader.Height() > 0, "a picture has a size");
    MustHold(reader.ReducedWidth() == (reader.Width() + denominator - 1) / denominator, "the reduced width");
    const auto width = static_cast<std::size_t>(reader.ReducedWidth());
    const auto height = static_cast<std::size_t>(reader.ReducedHeight());
    if (width * height > MostPixels) continue;
    // A byte behind the rows must stay as it is.
    std::vector<std::uint8_t> rows(width * height * 3 + 1, 0xA5);
    reader.Read(rows.data(), static_cast<std::ptrdiff_t>(width * 3), 3);
    MustHold(rows.back() == 0xA5, "nothing is written beyond the rows");
  }
}

}  // namespace

void SavedState(Bytes bytes) {
  const std::string text = TextOf(bytes);
  SavedRecordReader asText(text);
  for (std::size_t values = 0; !asText.AtEnd(); ++values) {
    MustHold(values <= text.size(), "reading comes to an end");
    static_cast<void>(asText.Text());
  }
  SavedRecordReader mixed(text);
  for (std::size_t values = 0; !mixed.AtEnd(); ++values) {
    MustHold(values <= text.size(), "reading comes to an end");
    const std::optional<int> number = values % 2 == 0 ? mixed.Number() : mixed.ShortNumber();
    MustHold(values % 2 == 0 || !number || (*number >= -32768 && *number <= 32767), "16 bits");
  }
}

void CacheFile(Bytes bytes) {
  MemoryFile file(bytes);
  const auto records = static_cast<std::int64_t>((bytes.size() + quickthumbs::RecordBytes - 1) /
                                                 static_cast<std::size_t>(quickthumbs::RecordBytes));
  std::vector<quickthumbs::EntryKey> keys = {quickthumbs::MakeEntryKey("a.jpg", 1234, 38153.5)};
  for (std::int64_t i = 1; i <= std::min<std::int64_t>(records, 20); ++i) keys.push_back(KeyAt(bytes, i));
  QuickThumbsIndex index;
  for (const quickthumbs::EntryKey& key : keys) {
    if (key[0] == 0) continue;  // no photo's name begins so: an empty record
    std::int64_t scanned = 0;
    for (std::int64_t i = 1; i <= records && scanned == 0; ++i) {
      if (KeyAt(bytes, i) == key) scanned = i;
    }
    MustHold(index.Find("C:\\Thumbnails.tmp", file, key) == scanned, "an entry is found as a scan finds it");
  }
  MustHold(QuickThumbsIndex::NextRecord(file.Length()) >= 1, "records are numbered from 1");
}

void PictureFile(Bytes bytes) {
  ReducedJpeg(bytes);
  try {
    const Bitmap bitmap = DecodePicture(bytes);
    MustHold(bitmap.Width() > 0 && bitmap.Height() > 0, "a picture has a size");
  } catch (const RuntimeError& refused) {
    MustHold(refused.Number() == error::BadPicture || refused.Number() == error::OutOfMemory, "what decoding raises");
  }
}

void Path(Bytes bytes) {
  const PathMapping mapping({{'C', "/base", "Disk"}, {'D', "/base/media/card", "Card"}}, "/mounts");
  const std::string text = TextOf(bytes);
  for (const std::string& path : {text, "C:\\" + text, "D:\\x\\" + text, "\\\\server\\share\\" + text}) {
    static_cast<void>(mapping.ShownPath(path));
    static_cast<void>(mapping.ProgramPath(path));
    try {
      const HostPath host = mapping.ToHost(path);
      for (const std::string& name : host.Names) {
        MustHold(!name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
                     name.find('\0') == std::string::npos,
                 "a name stays in its folder");
      }
      const std::string whole = host.Text();
      MustHold(whole.starts_with("/base") || whole.starts_with("/mounts"), "a path stays in its root");
    } catch (const RuntimeError& refused) {
      MustHold(refused.Number() == error::BadFileName || refused.Number() == error::PathNotFound, "what a path raises");
    }
  }
  // A name of the host comes back from its spelling.
  std::string name = text.substr(0, std::min(text.size(), text.find_first_of(std::string("/\0", 2))));
  if (name.empty() || name == "." || name == "..") return;
  const std::optional<std::string> spelled = mapping.ToProgram("/base/" + name);
  MustHold(spelled.has_value(), "every host name has a spelling");
  MustHold(mapping.ToHost(*spelled).Text() == "/base/" + name, "a host name comes back");
}

}  // namespace pixorra::fuzz
