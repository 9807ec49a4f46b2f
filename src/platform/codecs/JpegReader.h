// One JPEG picture in memory or in a file, decoded whole or reduced straight into rows of the caller's, and turned
// upright as its Exif data says. All sizes are those of the upright picture.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/codecs/JpegErrors.h"
#include "platform/codecs/JpegSource.h"
#include "platform/codecs/Orientation.h"

namespace pixorra {

class ScanWork;

class JpegReader {
 public:
  // The bytes must outlive the reader.
  explicit JpegReader(std::span<const std::uint8_t> bytes) : JpegReader(bytes, bytes.size()) {}
  // Of the beginning of a file that is `fileBytes` long.
  JpegReader(std::span<const std::uint8_t> bytes, std::size_t fileBytes) : source_(bytes, fileBytes) {}
  // The file must outlive the reader, which reads it by portions: what it holds of it is bounded. Its Exif data is
  // looked for in the first portion. Raises what Length does; that it cannot be read is a status, BadFile.
  explicit JpegReader(File& file) : source_(file) {}
  ~JpegReader();
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  // Reads the header. A status, as the others; nothing else may be asked before it succeeded. Sizes that the bytes
  // cannot back are refused here.
  int Open();
  // In place of what the picture's own bytes note: it is a part of a file that notes it. Once it is open.
  void SetOrientation(int orientation) { orientation_ = orientation; }
  int Width() const { return static_cast<int>(IsOnItsSide() ? reader_.image_height : reader_.image_width); }
  int Height() const { return static_cast<int>(IsOnItsSide() ? reader_.image_width : reader_.image_height); }
  // In the file: 1 grey, 3 colours, 4 inks.
  int Channels() const { return reader_.num_components; }

  // A read in progress ends with a failure when this becomes true. It must outlive the reader.
  void StopOn(const std::atomic<bool>& stop) { progress_.stop = &stop; }

  // The pixels are wanted at 1/denominator of the size; 1, 2, 4 or 8.
  int Reduce(int denominator);
  int ReducedWidth() const { return static_cast<int>(IsOnItsSide() ? reader_.output_height : reader_.output_width); }
  int ReducedHeight() const { return static_cast<int>(IsOnItsSide() ? reader_.output_width : reader_.output_height); }

  // What the read will take beside the rows, in bytes: with progressive pictures, six for each pixel in full colour.
  std::int64_t WorkingMemory();

  // Decodes into ReducedHeight() rows, the top one at `topRow` and each next one `step` bytes further (or back). A row
  // takes ReducedWidth() times `bytesPerPixel` bytes and nothing is written beyond: 3 for blue, green, red; 4, for
  // pictures of four channels only, adds a byte of 255. After damage the rest is grey, or as it was; a progressive
  // picture shows what its scans had brought by then, from the second one on. Once only.
  int Read(std::uint8_t* topRow, std::ptrdiff_t step, int bytesPerPixel);

 private:
  // `monitor` must be first, as the library passes that back.
  struct Progress {
    jpeg_progress_mgr monitor{};
    const std::atomic<bool>* stop = nullptr;
    bool IsStopped() const { return stop != nullptr && *stop; }
  };

  static void Watch(j_common_ptr codec);
  bool ComesAsCmyk() const { return reader_.out_color_space == JCS_CMYK; }
  bool IsOnItsSide() const { return LiesOnItsSide(orientation_); }
  void ConsumeScans(ScanWork& work);
  void RestoreFrame(const jpeg_decompress_struct& before);
  int ReadScans();
  void BeginRows();
  void ReadRows(std::uint8_t* topRow, std::ptrdiff_t step);
  void ReadTurnedRows(const TurnedPlaces& places);
  void CopyTurnedRows();
  void ReadCmykRows(const TurnedPlaces& places, int bytesPerPixel);

  JpegSource source_;
  int orientation_ = 1;
  int scansRead_ = 0;  // whole ones, of a picture that comes in several
  // Stored rows that have been decoded and not turned yet.
  struct {
    JSAMPARRAY rows = nullptr;
    unsigned count = 0;
    TurnedPlaces places;
  } turning_;
  JpegErrors errors_;
  jpeg_decompress_struct reader_{};
  Progress progress_;
};

}  // namespace pixorra
