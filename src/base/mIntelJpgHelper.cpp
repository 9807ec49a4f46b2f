#include "base/mIntelJpgHelper.h"

#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "base/mIntelJPGLib.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// The codec prepared for one transfer; what it holds is freed exactly once, however the transfer ends.
class Transfer {
 public:
  Transfer(JpegBridge& bridge, const std::string& failure) : codec_(bridge.codec), status_(codec_.ijlInit(record)) {
    if (status_ != ijl::Ok) IJLErrorMessage(bridge, failure, status_);
  }
  ~Transfer() {
    if (IsReady()) codec_.ijlFree(record);
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  bool IsReady() const { return status_ == ijl::Ok; }

  JPEG_CORE_PROPERTIES record;

 private:
  JpegCodec& codec_;
  int status_;
};

// A file name, or an address and a length.
struct Source {
  JpegRoute route = JpegRoute::File;
  std::string fileName;
  const std::uint8_t* address = nullptr;
  std::int32_t length = 0;
};

std::int32_t ReducedSize(std::int32_t size, int lScale) {
  if (lScale != 2 && lScale != 4 && lScale != 8) return size;
  return static_cast<std::int32_t>((static_cast<double>(size) + lScale - 1) / lScale);
}

// Sets the colours for the header's channels and returns how many channels the surface needs.
std::int32_t SetColours(JPEG_CORE_PROPERTIES& record) {
  switch (record.JPGChannels) {
    case 1:
      record.JPGColor = ijl::Grey;
      record.DIBColor = ijl::Bgr;
      return 3;
    case 3:
      record.JPGColor = ijl::YCbCr;
      record.DIBColor = ijl::Bgr;
      return 3;
    case 4:
      record.JPGColor = ijl::YCbCrAFpx;
      record.DIBColor = ijl::RgbaFpx;
      return 4;
    default:
      return 0;
  }
}

// Deliberate: the memory route says 3 channels whatever the surface has, so that the codec refuses a picture of four.
void DescribeSurface(JPEG_CORE_PROPERTIES& record, const cDIBsection& surface, JpegRoute route, std::int32_t width,
                     std::int32_t height, std::int32_t channels) {
  record.DIBWidth = width;
  if (route == JpegRoute::Memory) {
    record.DIBPadBytes = surface.BytesPerScanLine() - 3 * width;
    record.DIBChannels = 3;
  } else {
    record.DIBPadBytes = DibPadBytes(width, channels);
    record.DIBChannels = channels;
  }
  record.DIBHeight = -height;
  record.DIBBytes = surface.DIBSectionBitsPtr();
}

std::string ReadFailure(const Source& source) {
  if (source.route == JpegRoute::Memory) return "FAILED TO READ IMAGE DATA - ";
  return "FAILED TO READ IMAGE DATA (" + source.fileName + ")";
}

bool LoadFrom(JpegBridge& bridge, cDIBsection& surface, const Source& source, int lScale) {
  Transfer transfer(bridge, "Failed to initialise the IJL library: ");
  if (!transfer.IsReady()) return false;
  JPEG_CORE_PROPERTIES& record = transfer.record;
  record.JPGFile = source.fileName;
  record.JPGBytes = source.address;
  record.JPGSizeBytes = source.length;
  if (const int status = bridge.codec.ijlRead(record, HeaderMode(source.route)); status != ijl::Ok) {
    IJLErrorMessage(bridge, "FAILED TO READ IMAGE PARAMS - ", status);
    return false;
  }
  const std::int32_t width = ReducedSize(record.JPGWidth, lScale);
  const std::int32_t height = ReducedSize(record.JPGHeight, lScale);
  const std::int32_t channels = SetColours(record);
  if (!surface.Create(width, height, channels)) return false;
  DescribeSurface(record, surface, source.route, width, height, channels);

  const std::optional<int> mode = PixelMode(source.route, lScale);
  const int status = mode ? bridge.codec.ijlRead(record, *mode) : ijl::Ok;
  if (status != ijl::Ok) IJLErrorMessage(bridge, ReadFailure(source), status);
  return status == ijl::Ok;
}

void DescribeWriting(JPEG_CORE_PROPERTIES& record, const cDIBsection& surface, int quality) {
  record.DIBWidth = surface.dib_width();
  record.DIBHeight = -surface.dib_height();
  record.DIBChannels = record.JPGChannels = surface.dib_channels();
  const bool colour = record.DIBChannels == 3;
  record.DIBColor = colour ? ijl::Bgr : ijl::RgbaFpx;
  record.JPGColor = colour ? ijl::YCbCr : ijl::YCbCrAFpx;
  record.JPGSubsampling = colour ? 1 : 3;
  record.DIBBytes = surface.DIBSectionBitsPtr();
  record.DIBPadBytes = DibPadBytes(surface.dib_width(), surface.dib_channels());
  record.JPGWidth = surface.dib_width();
  record.JPGHeight = surface.dib_height();
  record.jquality = quality;
}

constexpr const char* EncodeFailure = "Failed to initialise the IJL library";

}  // namespace

bool LoadJPG(JpegBridge& bridge, cDIBsection& surface, const std::string& fileName, int lScale) {
  std::unique_ptr<File> file;
  if (ErrorsIgnored([&] { file = bridge.files.Open(fileName, OpenMode::Read); }) != error::None) return false;
  return LoadJPG(bridge, surface, *file, lScale);
}

bool LoadJPG(JpegBridge& bridge, cDIBsection& surface, File& file, int lScale) {
  if (const std::span<const std::uint8_t> ready = bridge.codec.AtHand(file); !ready.empty()) {
    bool shown = false;
    const int failure = ErrorsIgnored([&] {
      shown = LoadJPGFromMemory(bridge, surface, ready.data(), static_cast<std::int32_t>(ready.size()), lScale);
    });
    return failure == error::None && shown;
  }
  // Taken out of the bridge, as a message box inside may lead to another call.
  FileBytes bytes = std::exchange(bridge.spare, {});
  bool loaded = false;
  const int number = ErrorsIgnored([&] {
    bytes.Read(file);
    if (bytes.Size() == 0) throw RuntimeError(error::BadSubscript);
    loaded = LoadJPGFromMemory(bridge, surface, bytes.Data(), static_cast<std::int32_t>(bytes.Size()), lScale);
  });
  if (bytes.Capacity() <= JpegBridge::MostSpare) bridge.spare = std::move(bytes);
  return number == error::None && loaded;
}

bool LoadJPGFromFile(JpegBridge& bridge, cDIBsection& surface, const std::string& fileName, int lScale) {
  return LoadFrom(bridge, surface, {.route = JpegRoute::File, .fileName = fileName}, lScale);
}

bool LoadJPGFromMemory(JpegBridge& bridge, cDIBsection& surface, const std::uint8_t* address, std::int32_t length,
                       int lScale) {
  return LoadFrom(bridge, surface, {.route = JpegRoute::Memory, .fileName = {}, .address = address, .length = length},
                  lScale);
}

bool SaveJPG(JpegBridge& bridge, const cDIBsection& surface, const std::string& fileName, int quality) {
  Transfer transfer(bridge, EncodeFailure);
  if (!transfer.IsReady()) return false;
  DescribeWriting(transfer.record, surface, quality);
  transfer.record.JPGFile = fileName;
  return bridge.codec.ijlWrite(transfer.record, ijl::FileWriteWhole) == ijl::Ok;
}

bool EncodeJPG(JpegBridge& bridge, const cDIBsection& surface, int quality, std::vector<std::uint8_t>& jpeg) {
  Transfer transfer(bridge, EncodeFailure);
  if (!transfer.IsReady()) return false;
  DescribeWriting(transfer.record, surface, quality);
  if (bridge.codec.ijlWrite(transfer.record, ijl::BufferWriteWhole) != ijl::Ok) return false;
  jpeg = std::move(transfer.record.JPGWritten);
  return true;
}

bool SavePictureAsJPG(JpegBridge& bridge, const Picture& picture, const std::string& fileName, int quality) {
  cDIBsection surface;
  surface.CreateFromPicture(picture);
  return SaveJPG(bridge, surface, fileName, quality);
}

std::int32_t DibPadBytes(std::int32_t width, std::int32_t channels) {
  const auto whole = [](std::int64_t value) { return CLng(static_cast<double>(value)); };
  const std::int32_t bytes = whole(std::int64_t{width} * channels);
  return (whole(std::int64_t{bytes} + 3) & ~3) - bytes;
}

void IJLErrorMessage(JpegBridge& bridge, const std::string& prefix, int status) {
  const std::string text =
      "IJL ERROR: [" + TrimmedStr(status) + "]" + " - " + StatusText(bridge.codec, status) + " - " + prefix;
  bridge.dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, "Intel(R) JPEG Library");
}

}  // namespace pixorra
