#include "platform/codecs/JpegErrors.h"

#include <jerror.h>

namespace pixorra {
namespace {

JpegErrors& ErrorsOf(j_common_ptr codec) {
  return *reinterpret_cast<JpegErrors*>(codec->err);
}

int StatusOf(int message) {
  switch (message) {
    case JERR_OUT_OF_MEMORY:
      return jpeg::OutOfMemory;
    case JERR_NO_BACKING_STORE:
    case JERR_IMAGE_TOO_BIG:
    case JERR_WIDTH_OVERFLOW:
      return jpeg::TooLarge;
    case JERR_SOF_UNSUPPORTED:
    case JERR_BAD_PRECISION:
    case JERR_ARITH_NOTIMPL:
    case JERR_CONVERSION_NOTIMPL:
    case JERR_BAD_J_COLORSPACE:
    case JERR_NOTIMPL:
      return jpeg::Unsupported;
    default:
      return jpeg::BadData;
  }
}

void ErrorExit(j_common_ptr codec) {
  GiveUp(codec, StatusOf(codec->err->msg_code));
}

// Warnings are ignored, as a damaged picture still shows what it has. One is noted: the data's end before the first row
// of blocks was whole.
void EmitMessage(j_common_ptr codec, int level) {
  if (level >= 0) return;
  ++codec->err->num_warnings;
  if (!codec->is_decompressor || codec->err->msg_code != JWRN_HIT_MARKER) return;
  const auto* reader = reinterpret_cast<j_decompress_ptr>(codec);
  if (reader->unread_marker == JPEG_EOI && reader->input_scan_number <= 1 && reader->input_iMCU_row == 0) {
    ErrorsOf(codec).cutBeforeFirstRow = reader->total_iMCU_rows > 1;
  }
}

void OutputMessage(j_common_ptr) {}

}  // namespace

void JpegErrors::Install(j_common_ptr codec) {
  codec->err = jpeg_std_error(&manager);
  manager.error_exit = ErrorExit;
  manager.emit_message = EmitMessage;
  manager.output_message = OutputMessage;
}

void GiveUp(j_common_ptr codec, int status) {
  JpegErrors& errors = ErrorsOf(codec);
  errors.status = status;
  std::longjmp(errors.back, 1);
}

}  // namespace pixorra
