#include "platform/codecs/JpegReader.h"

#include <algorithm>
#include <array>

#include "platform/codecs/JpegScans.h"
#include "platform/codecs/SizeBound.h"

namespace pixorra {
namespace {

// Progressive pictures are kept as whole coefficient arrays; this much for them, in bytes.
constexpr long MostReaderMemory = 1024L * 1024 * 1024;
// 255 is no ink.
std::uint8_t InkToLight(unsigned ink, unsigned black) {
  return static_cast<std::uint8_t>((ink * black * 2 + 255) / 510);
}

}  // namespace

JpegReader::~JpegReader() {
  jpeg_destroy_decompress(&reader_);
}

void JpegReader::Watch(j_common_ptr codec) {
  if (reinterpret_cast<const Progress*>(codec->progress)->IsStopped()) GiveUp(codec, jpeg::BadData);
}

int JpegReader::Open() {
  int orientation = 1;
  errors_.Install(reinterpret_cast<j_common_ptr>(&reader_));
  const bool read = errors_.Run([this, &orientation] {
    jpeg_create_decompress(&reader_);
    reader_.mem->max_memory_to_use = MostReaderMemory;
    progress_.monitor.progress_monitor = Watch;
    reader_.progress = &progress_.monitor;
    source_.Install(reader_);
    orientation = OrientationOf(source_.Head());
    jpeg_read_header(&reader_, TRUE);
  });
  if (!read) return errors_.status;
  if (!IsBacked(Width(), Height(), source_.FileBytes(), JpegPixelsPerByte)) return jpeg::TooLarge;
  if (reader_.data_precision != 8) return jpeg::Unsupported;
  if (Channels() != 1 && Channels() != 3 && Channels() != 4) return jpeg::Ok;
  reader_.out_color_space = Channels() == 4 ? JCS_CMYK : JCS_EXT_BGR;
  orientation_ = orientation;
  return jpeg::Ok;
}

int JpegReader::Reduce(int denominator) {
  reader_.scale_num = 1;
  reader_.scale_denom = static_cast<unsigned>(denominator);
  return errors_.Run([this] { jpeg_calc_output_dimensions(&reader_); }) ? jpeg::Ok : errors_.status;
}

std::int64_t JpegReader::WorkingMemory() {
  return JpegWorkingMemory(reader_);
}

// Raises the library's errors.
void JpegReader::ConsumeScans(ScanWork& work) {
  for (int came = 0; came != JPEG_REACHED_EOI;) {
    Watch(reinterpret_cast<j_common_ptr>(&reader_));
    came = jpeg_consume_input(&reader_);
    if (came == JPEG_SCAN_COMPLETED) ++scansRead_;
    const bool row = came == JPEG_ROW_COMPLETED || came == JPEG_SCAN_COMPLETED;
    if (row && !work.Add(reader_)) GiveUp(reinterpret_cast<j_common_ptr>(&reader_), jpeg::TooMuchWork);
  }
}

// The library refuses a second frame header only after it has taken over what that says.
void JpegReader::RestoreFrame(const jpeg_decompress_struct& before) {
  reader_.image_width = before.image_width;
  reader_.image_height = before.image_height;
  reader_.num_components = before.num_components;
  reader_.data_precision = before.data_precision;
  reader_.progressive_mode = before.progressive_mode;
  reader_.arith_code = before.arith_code;
}

// All scans are read before the first row is made. What came ahead of damage is kept: to the library the file then ends
// where the damage is.
int JpegReader::ReadScans() {
  const jpeg_decompress_struct before = reader_;
  ScanWork work(reader_);
  reader_.buffered_image = TRUE;
  bool read = errors_.Run([this, &work] {
    jpeg_start_decompress(&reader_);
    ConsumeScans(work);
  });
  const bool damaged = errors_.status == jpeg::BadData || errors_.status == jpeg::Unsupported;
  if (!read && damaged && !progress_.IsStopped() && scansRead_ > 0) {
    RestoreFrame(before);
    source_.EndHere();
    reader_.unread_marker = 0;
    read = errors_.Run([this, &work] { ConsumeScans(work); });
  }
  return read ? jpeg::Ok : errors_.status;
}

// Raises the library's errors.
void JpegReader::BeginRows() {
  if (reader_.buffered_image) {
    jpeg_start_output(&reader_, std::max(1, scansRead_));
  } else {
    jpeg_start_decompress(&reader_);
  }
}

int JpegReader::Read(std::uint8_t* topRow, std::ptrdiff_t step, int bytesPerPixel) {
  if (!ComesAsCmyk() && reader_.out_color_space != JCS_EXT_BGR) return jpeg::Unsupported;
  bool ended = false;
  if (!errors_.Run([this, &ended] { ended = source_.IsAtEnd(); })) return errors_.status;
  if (ended) return jpeg::NoPicture;
  if (jpeg_has_multiple_scans(&reader_)) {
    if (const int status = ReadScans(); status != jpeg::Ok) return status;
  }
  const bool read = errors_.Run([=, this] {
    BeginRows();
    const TurnedPlaces places = PlacesFor(orientation_, static_cast<int>(reader_.output_width),
                                          static_cast<int>(reader_.output_height), topRow, step, bytesPerPixel);
    if (ComesAsCmyk()) {
      ReadCmykRows(places, bytesPerPixel);
    } else if (orientation_ == 1) {
      ReadRows(topRow, step);
    } else {
      ReadTurnedRows(places);
    }
    if (!reader_.buffered_image) jpeg_finish_decompress(&reader_);
  });
  // What came ahead of the damage shows, as that of a file that ends early does.
  if (!read) CopyTurnedRows();
  if (!read && (progress_.IsStopped() || errors_.status != jpeg::BadData || reader_.output_scanline == 0))
    return errors_.status;
  return errors_.cutBeforeFirstRow ? jpeg::NoPicture : jpeg::Ok;
}

void JpegReader::ReadRows(std::uint8_t* topRow, std::ptrdiff_t step) {
  std::array<JSAMPROW, 16> rows;
  while (reader_.output_scanline < reader_.output_height) {
    const unsigned wanted =
        std::min(static_cast<unsigned>(rows.size()), reader_.output_height - reader_.output_scanline);
    for (unsigned i = 0; i < wanted; ++i)
      rows[i] = topRow + static_cast<std::ptrdiff_t>(reader_.output_scanline + i) * step;
    jpeg_read_scanlines(&reader_, rows.data(), wanted);
  }
}

// Some rows at a time, and of these column by column: in a picture that lies on its side they are neighbours there.
void JpegReader::ReadTurnedRows(const TurnedPlaces& places) {
  constexpr unsigned MostRows = 16;
  turning_ = {(*reader_.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&reader_), JPOOL_IMAGE,
                                           reader_.output_width * 3, MostRows),
              0, places};
  while (reader_.output_scanline < reader_.output_height) {
    while (turning_.count < MostRows && reader_.output_scanline < reader_.output_height)
      turning_.count += jpeg_read_scanlines(&reader_, turning_.rows + turning_.count, MostRows - turning_.count);
    CopyTurnedRows();
  }
}

// Also after damage: the rows that came ahead of it are there.
void JpegReader::CopyTurnedRows() {
  const TurnedPlaces& places = turning_.places;
  std::uint8_t* to = places.first;
  for (unsigned x = 0; x < reader_.output_width && turning_.count > 0; ++x, to += places.across) {
    for (unsigned y = 0; y < turning_.count; ++y)
      std::copy_n(turning_.rows[y] + std::ptrdiff_t{x} * 3, 3, to + static_cast<std::ptrdiff_t>(y) * places.down);
  }
  turning_.places.first += static_cast<std::ptrdiff_t>(turning_.count) * places.down;
  turning_.count = 0;
}

void JpegReader::ReadCmykRows(const TurnedPlaces& places, int bytesPerPixel) {
  JSAMPARRAY inks =
      (*reader_.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&reader_), JPOOL_IMAGE, reader_.output_width * 4, 1);
  // Files with an Adobe segment store inks inverted; others as they are.
  const unsigned flip = reader_.saw_Adobe_marker ? 0U : 255U;
  while (reader_.output_scanline < reader_.output_height) {
    std::uint8_t* to = places.first + static_cast<std::ptrdiff_t>(reader_.output_scanline) * places.down;
    jpeg_read_scanlines(&reader_, inks, 1);
    const std::uint8_t* from = inks[0];
    for (unsigned x = 0; x < reader_.output_width; ++x, from += 4, to += places.across) {
      const unsigned black = from[3] ^ flip;
      to[0] = InkToLight(from[2] ^ flip, black);
      to[1] = InkToLight(from[1] ^ flip, black);
      to[2] = InkToLight(from[0] ^ flip, black);
      if (bytesPerPixel == 4) to[3] = 255;
    }
  }
}

}  // namespace pixorra
