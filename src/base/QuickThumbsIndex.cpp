#include "base/QuickThumbsIndex.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/runtime/Errors.h"

namespace pixorra {

using namespace quickthumbs;

namespace {

// Bytes past the file's end read as zero.
EntryKey ReadKey(File& file, std::int64_t record) {
  EntryKey key{};
  file.ReadAt(OffsetOf(record) + static_cast<std::int64_t>(KeyOffset), key.data(), key.size());
  return key;
}

// The key without the blanks after its name.
std::string Shortened(const EntryKey& key) {
  const std::string_view bytes(reinterpret_cast<const char*>(key.data()), key.size());
  const std::string_view name = bytes.substr(0, NameBytes);
  const std::size_t last = name.find_last_not_of(' ');
  std::string text(name.substr(0, last == std::string_view::npos ? 0 : last + 1));
  return text.append(bytes.substr(NameBytes));
}

bool IsEmptyRecord(const EntryKey& key) {
  return key[0] == 0;
}

std::unordered_map<std::string, std::int64_t> ReadRecords(File& file, std::int64_t length) {
  std::unordered_map<std::string, std::int64_t> records;
  // A last record that is cut short counts: what is missing of it reads as zero.
  const std::int64_t count = (length + RecordBytes - 1) / RecordBytes;
  for (std::int64_t record = 1; record <= count; ++record) {
    const EntryKey key = ReadKey(file, record);
    if (!IsEmptyRecord(key)) records.emplace(Shortened(key), record);  // the first one of a key stays
  }
  return records;
}

}  // namespace

std::int64_t QuickThumbsIndex::NextRecord(std::int64_t fileLength) {
  if (fileLength == 0) return 1;
  // A last record that ends after its fields is whole: what follows them has no meaning, and may be missing.
  const bool oneMore = fileLength % RecordBytes >= static_cast<std::int64_t>(FieldsBytes);
  return fileLength / RecordBytes + (oneMore ? 1 : 0) + 2;
}

std::int64_t QuickThumbsIndex::Find(const std::string& path, File& file, const EntryKey& key) {
  const std::string wanted = Shortened(key);
  for (const bool again : {false, true}) {
    const Remembered& remembered = Current(path, file);
    const auto found = remembered.Records.find(wanted);
    if (found == remembered.Records.end()) return 0;
    if (ReadKey(file, found->second) == key) return found->second;
    // Changed within the same moment as the last write that is known.
    if (!again) Forget(path);
  }
  return 0;
}

void QuickThumbsIndex::Added(const std::string& path, File& file, const EntryKey& key, std::int64_t record) {
  TakeStamp(path, file);
  if (!files_.empty() && files_.back().Path == path) files_.back().Records.emplace(Shortened(key), record);
}

void QuickThumbsIndex::Marked(const std::string& path, File& file) {
  TakeStamp(path, file);
}

void QuickThumbsIndex::Forget(const std::string& path) {
  std::erase_if(files_, [&](const Remembered& remembered) { return remembered.Path == path; });
}

QuickThumbsIndex::Remembered& QuickThumbsIndex::Current(const std::string& path, File& file) {
  // Taken ahead of the reading, so that a change during it is seen the next time.
  const FileStamp stamp = file.Stamp();
  if (stamp.Length > LongestFile) throw RuntimeError(error::Overflow);
  const auto known = std::ranges::find(files_, path, &Remembered::Path);
  if (known != files_.end() && known->Stamp == stamp) {
    std::rotate(known, known + 1, files_.end());
    return files_.back();
  }
  Forget(path);
  Remembered anew{path, stamp, ReadRecords(file, stamp.Length)};
  if (files_.size() == MostFiles) files_.erase(files_.begin());
  return files_.emplace_back(std::move(anew));
}

// The file's length and time are the program's own doing; what is remembered of it holds on.
void QuickThumbsIndex::TakeStamp(const std::string& path, File& file) {
  const auto known = std::ranges::find(files_, path, &Remembered::Path);
  if (known != files_.end()) known->Stamp = file.Stamp();
}

}  // namespace pixorra
