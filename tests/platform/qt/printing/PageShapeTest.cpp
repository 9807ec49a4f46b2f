// The pages of a document have the shape of its destination's paper.
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "platform/qt/printing/PdfFile.h"
#include "platform/qt/printing/QtPrintSurface.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class PaperDestination final : public PrintDestination {
 public:
  PaperDestination(QString file, QSizeF size) : file_(std::move(file)), size_(size) {}
  std::string Name() override { return "Paper"; }
  std::string DriverName() override { return "Paper"; }
  PrintPaper Paper() override { return {.Size = size_, .SideMargin = 18, .EndMargin = 18}; }
  std::unique_ptr<PrintJob> Begin(const std::string&) override {
    auto file = std::make_unique<PdfFile>(file_, true);
    EXPECT_TRUE(file->Open());
    return file;
  }

 private:
  QString file_;
  QSizeF size_;
};

using PageShapeTest = QtTest;

TEST_F(PageShapeTest, PaperThatIsNearlyAUsualOneKeepsItsOwnSize) {
  const QTemporaryDir folder;
  for (const QSizeF size : {QSizeF(595, 842), QSizeF(593, 840), QSizeF(613, 794)}) {
    PaperDestination paper(folder.filePath("out.pdf"), size);
    QtPrintSurface page(paper);
    page.Print("a page");
    page.EndDoc();
    QFile file(folder.filePath("out.pdf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString box =
        QStringLiteral("/MediaBox [0 0 %1 %2]").arg(size.width(), 0, 'f', 6).arg(size.height(), 0, 'f', 6);
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains(box.toLatin1()))
        << content.mid(content.indexOf("/MediaBox"), 50).toStdString() << " for " << box.toStdString();
  }
}

}  // namespace
}  // namespace pixorra
