// Documents on their way to a print server that is slow, hangs, or cannot be reached any more.
#include <QBuffer>
#include <QTimer>
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <optional>
#include <utility>

#include "platform/qt/printing/CupsServer.h"
#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/platform/qt/printing/PrintLine.h"
#include "tests/platform/qt/printing/PrintServer.h"

namespace pixorra {
namespace {

// A document of one page. Something is done when so many of its bytes have been read, at its end at the latest.
class WatchedDocument final : public QBuffer {
 public:
  WatchedDocument(int megabytes, double when, std::function<void()> act) : when_(when), act_(std::move(act)) {
    QByteArray bytes("%PDF-1.4\n");
    for (int i = 0; i < megabytes * 1024; ++i) bytes += '%' + QByteArray(1022, 'x') + '\n';
    bytes +=
        "1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
        "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 842 595]>>endobj\ntrailer<</Root 1 0 R>>\n%%EOF\n";
    setData(bytes);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }

 protected:
  qint64 readData(char* bytes, qint64 most) override {
    const qint64 count = QBuffer::readData(bytes, most);
    const bool due = count <= 0 || static_cast<double>(pos()) > when_ * static_cast<double>(size());
    if (due && act_) std::exchange(act_, nullptr)();
    return count;
  }

 private:
  double when_;
  std::function<void()> act_;
};

Picture Noise() {
  Bitmap noise(1000, 1000, PixelFormat::Bgr24);
  std::uint32_t seed = 1;
  for (int y = 0; y < noise.Height(); ++y) {
    for (int x = 0; x < 3 * noise.Width(); ++x)
      noise.Row(y)[x] = static_cast<std::uint8_t>((seed = seed * 1103515245 + 12345) >> 16);
  }
  return Picture(std::move(noise));
}

class SubmissionTest : public QtTest {
 protected:
  void SetUp() override {
    if (!server.WhyNot().empty()) GTEST_SKIP() << server.WhyNot();
    line.emplace(server.Port());
    cupsSetServer(QStringLiteral("127.0.0.1:%1").arg(line->Port()).toUtf8().constData());
  }
  // Gives why it was not handed over; empty where it was.
  std::string Submit(
      const CupsPatience& patience, QIODevice& document, const std::function<void()>& idle = [] {}) {
    const auto reached = CupsServer::Reach(patience);
    if (reached == nullptr) return "no server";
    try {
      EXPECT_EQ(reached->Submit("Office", "Photos", {{"media", "A4"}}, document, idle), 1);
      return {};
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.Number(), error::Printer);
      return failure.Description();
    }
  }

  PrintServer server;
  std::optional<PrintLine> line;
};

// The server has all of it, and its answer takes longer than those to other questions.
TEST_F(SubmissionTest, ServerThatIsSlowToFinishGetsTheTimeItNeeds) {
  bool hangs = false;
  int turns = 0;
  WatchedDocument document(0, 1, [&] {
    server.Hang();
    hangs = true;
  });
  const CupsPatience patience{.AnswerSeconds = 2, .DocumentSeconds = 600};
  // Each turn of a wait takes 20 milliseconds or more.
  constexpr int Turns = 150;
  EXPECT_EQ(Submit(patience, document,
                   [&] {
                     if (hangs && ++turns == Turns) server.GoOn();
                   }),
            "");
  EXPECT_GE(turns, Turns);
  EXPECT_EQ(server.PagesOf(1), 1);
}

TEST_F(SubmissionTest, DocumentThatArrivedWhileTheAnswerIsLostIsNotToldAsFailed) {
  WatchedDocument document(1, 1, [&] { line->LoseAnswers(); });
  EXPECT_EQ(Submit({.DocumentSeconds = 3}, document), "");
  EXPECT_EQ(server.PagesOf(1), 1);
  EXPECT_TRUE(server.BecomesIdle());
}

TEST_F(SubmissionTest, DocumentThatIsCutOffIsToldAndNeverComesOut) {
  WatchedDocument document(8, 0.5, [&] { line->BreakOff(); });
  EXPECT_EQ(Submit({}, document), "The document did not reach the printer \"Office\": the connection broke off");
  EXPECT_TRUE(server.BecomesIdle()) << "no job waits for the rest of it";
  EXPECT_TRUE(server.HasNothing());
}

TEST_F(SubmissionTest, WhereTheServerHangsForGoodNobodyIsToldThatNothingComesOut) {
  WatchedDocument document(0, 1, [&] { server.Hang(); });
  EXPECT_EQ(Submit({.AnswerSeconds = 2, .DocumentSeconds = 0.5}, document),
            "The print system does not answer any more. The printer \"Office\" may print the document all the same");
  server.GoOn();
  EXPECT_EQ(server.PagesOf(1), 1) << "as it did";
}

// The print server takes each piece only after another turn of the windows.
TEST_F(SubmissionTest, WindowsLiveWhileADocumentIsOnItsWay) {
  QtPrinting printing(backend, {.DocumentSeconds = 20});
  PrintSurface& page = printing.Printer();
  page.PaintPicture(Noise(), 0, 0, 9000, 9000, 0, 0, 15000, 15000);
  line->HoldUpAfter(100'000);
  QTimer clock;
  int turns = 0;
  QObject::connect(&clock, &QTimer::timeout, &clock, [&] {
    line->LetGoOn(2);
    ++turns;
  });
  clock.start(1);
  page.EndDoc();
  EXPECT_GE(turns, 10);
  EXPECT_EQ(server.PagesOf(1), 1);
}

// Not a single write waits for the server: its way goes on only in turns of the windows.
TEST_F(SubmissionTest, ServerThatStopsReadingInMidDocumentHoldsNoTurnUp) {
  WatchedDocument document(12, 1, [] {});
  line->HoldUpAfter(100'000);
  int turns = 0;
  EXPECT_EQ(Submit({.AnswerSeconds = 2}, document,
                   [&] {
                     line->LetGoOn(8);
                     ++turns;
                   }),
            "");
  EXPECT_GE(turns, 50);
  EXPECT_EQ(server.PagesOf(1), 1);
}

}  // namespace
}  // namespace pixorra
