// Pictures of other programs on the clipboard, as the desktop offers them: encoded, and decoded when they are asked
// for.
#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <fstream>
#include <malloc.h>

#include "platform/qt/QtClipboard.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

// As the clipboard of a desktop gives a PNG file.
class OfferedPng final : public QMimeData {
 public:
  explicit OfferedPng(QByteArray png) { setData(QStringLiteral("image/png"), png); }
  bool hasFormat(const QString& format) const override { return format == Decoded || QMimeData::hasFormat(format); }
  QVariant retrieveData(const QString& format, QMetaType type) const override {
    if (format != Decoded) return QMimeData::retrieveData(format, type);
    const QImage image = QImage::fromData(data(QStringLiteral("image/png")));
    return image.isNull() ? QVariant() : QVariant(image);
  }

 private:
  static constexpr QLatin1String Decoded{"application/x-qt-image"};
};

class ClipboardTest : public QtTest {
 protected:
  // Of one colour: a small file whatever its size.
  static QByteArray Png(int width, int height, QImage::Format format = QImage::Format_Mono) {
    QImage image(width, height, format);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
  }
  static void Offer(const QByteArray& png) { QGuiApplication::clipboard()->setMimeData(new OfferedPng(png)); }
  // Says that it is so large, and holds nothing that is.
  static QByteArray ClaimedPng(quint32 width, quint32 height) {
    QByteArray png = Png(8, 8);
    for (int i = 0; i < 4; ++i) {
      png[16 + i] = static_cast<char>(width >> (24 - 8 * i));
      png[20 + i] = static_cast<char>(height >> (24 - 8 * i));
    }
    // The header's check sum.
    quint32 sum = 0xFFFFFFFFU;
    for (int i = 12; i < 29; ++i) {
      sum ^= static_cast<quint8>(png[i]);
      for (int bit = 0; bit < 8; ++bit) sum = (sum & 1U) != 0 ? 0xEDB88320U ^ sum >> 1 : sum >> 1;
    }
    sum = ~sum;
    for (int i = 0; i < 4; ++i) png[29 + i] = static_cast<char>(sum >> (24 - 8 * i));
    return png;
  }

  QtClipboard clipboard;
};

TEST_F(ClipboardTest, AnOfferedPictureIsRead) {
  Offer(Png(40, 30, QImage::Format_RGB32));
  ASSERT_TRUE(clipboard.HasBitmap());
  EXPECT_EQ(clipboard.GetBitmap().Width(), 40);
}

TEST_F(ClipboardTest, ATooLargePictureIsSaidToBeTooLargeAndADamagedOneIsNothing) {
  Offer(ClaimedPng(22000, 22000));
  EXPECT_EQ(ErrorsIgnored([&] { clipboard.GetBitmap(); }), error::Overflow);
  Offer(ClaimedPng(300000, 300000));
  EXPECT_EQ(ErrorsIgnored([&] { clipboard.GetBitmap(); }), error::Overflow);
  Offer(QByteArray("\x89PNG\r\n\x1A\n no more", 16));
  ASSERT_TRUE(clipboard.HasBitmap());
  EXPECT_TRUE(clipboard.GetBitmap().IsNothing());
  Offer(Png(400, 300).left(60));
  clipboard.GetBitmap();  // as much of it as there is, or nothing
}

// The most memory that the process has had since it was last asked to begin anew, in bytes.
std::int64_t MostMemoryHad() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::int64_t kilobytes = 0;
    if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

TEST_F(ClipboardTest, ALargePictureIsHeldInOnlyOneFormBesideTheToolkits) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer keeps memory that was given back";
#endif
  const QByteArray png = Png(6000, 5000, QImage::Format_RGB32);
  Offer(png);
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  const std::int64_t before = MostMemoryHad();
  const Picture picture = clipboard.GetBitmap();
  EXPECT_EQ(picture.Width(), 6000);
  // Four bytes a pixel of the toolkit's, and three of the picture's.
  EXPECT_LT(MostMemoryHad() - before, 30'000'000LL * 7 + 40'000'000);
}

}  // namespace
}  // namespace pixorra
