#include "platform/codecs/JpegSource.h"

#include <algorithm>
#include <array>

// The library's own messages, after its header.
#include <jerror.h>

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr std::array<JOCTET, 2> End{0xFF, JPEG_EOI};

void Nothing(j_decompress_ptr) {}

}  // namespace

JpegSource::JpegSource(File& file)
    : fileBytes_(static_cast<std::size_t>(file.Length())),
      file_(&file),
      portion_(std::make_unique_for_overwrite<std::uint8_t[]>(PortionBytes)) {}

void JpegSource::Install(jpeg_decompress_struct& reader) {
  reader_ = &reader;
  if (file_ == nullptr) {
    jpeg_mem_src(&reader, bytes_.data(), static_cast<unsigned long>(bytes_.size()));
    return;
  }
  manager_.source = this;
  manager_.manager.init_source = Nothing;
  manager_.manager.fill_input_buffer = Fill;
  manager_.manager.skip_input_data = Skip;
  manager_.manager.resync_to_restart = jpeg_resync_to_restart;
  manager_.manager.term_source = Nothing;
  reader.src = &manager_.manager;
  Fetch(0);
  if (manager_.manager.bytes_in_buffer == 0) GiveUp(reinterpret_cast<j_common_ptr>(&reader), jpeg::BadData);
}

std::span<const std::uint8_t> JpegSource::Head() const {
  return file_ == nullptr ? bytes_ : std::span<const std::uint8_t>(portion_.get(), next_);
}

std::size_t JpegSource::ReadAt(std::size_t at, std::span<std::uint8_t> into) {
  auto* const common = reinterpret_cast<j_common_ptr>(reader_);
  if (common->progress != nullptr) common->progress->progress_monitor(common);
  std::size_t came = 0;
  const int failure =
      ErrorsIgnored([&] { came = file_->ReadAt(static_cast<std::int64_t>(at), into.data(), into.size()); });
  if (failure != error::None) GiveUp(common, jpeg::BadFile);
  return came;
}

void JpegSource::Fetch(std::size_t at) {
  const std::size_t came = ReadAt(at, {portion_.get(), PortionBytes});
  next_ = at + came;
  manager_.manager.next_input_byte = portion_.get();
  manager_.manager.bytes_in_buffer = came;
}

// After the file's end there is one mark of the picture's end after the other, as with bytes in memory. What the
// library notes here of bytes that it has not taken may be old: it has taken all.
boolean JpegSource::Fill(j_decompress_ptr reader) {
  JpegSource& source = *reinterpret_cast<Manager*>(reader->src)->source;
  source.Fetch(source.next_);
  if (reader->src->bytes_in_buffer > 0) return TRUE;
  WARNMS(reader, JWRN_JPEG_EOF);
  reader->src->next_input_byte = End.data();
  reader->src->bytes_in_buffer = End.size();
  return TRUE;
}

void JpegSource::Skip(j_decompress_ptr reader, long count) {
  jpeg_source_mgr& manager = *reader->src;
  const auto skipped = static_cast<std::size_t>(std::max(0L, count));
  const std::size_t here = std::min(skipped, manager.bytes_in_buffer);
  manager.next_input_byte += here;
  manager.bytes_in_buffer -= here;
  reinterpret_cast<Manager*>(reader->src)->source->next_ += skipped - here;
}

bool JpegSource::IsAtEnd() {
  jpeg_source_mgr& manager = *reader_->src;
  if (file_ != nullptr && manager.bytes_in_buffer < End.size()) Fetch(next_ - manager.bytes_in_buffer);
  return manager.bytes_in_buffer < End.size() || std::equal(End.begin(), End.end(), manager.next_input_byte);
}

void JpegSource::EndHere() {
  reader_->src->next_input_byte = End.data();
  reader_->src->bytes_in_buffer = End.size();
  next_ = std::max(next_, fileBytes_);
}

}  // namespace pixorra
