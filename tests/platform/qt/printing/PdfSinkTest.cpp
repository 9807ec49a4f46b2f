// What becomes of a document that its file cannot take.
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/qt/printing/PdfSink.h"
#include "platform/runtime/Errors.h"

namespace pixorra {
namespace {

TEST(PdfSinkTest, DocumentThatIsTooLongForItsFormatFails) {
  QFile file(QStringLiteral("/dev/null"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  PdfSink sink(file);
  const QByteArray piece(1 << 20, 'x');
  for (int i = 0; i < 2047; ++i) sink.write(piece);
  EXPECT_TRUE(sink.Flush()) << "a little below 2 gigabytes";
  sink.write(piece);
  EXPECT_FALSE(sink.Flush());
}

}  // namespace
}  // namespace pixorra
