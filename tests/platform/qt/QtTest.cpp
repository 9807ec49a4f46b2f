#include "tests/platform/qt/QtTest.h"

#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>

#include "platform/qt/ClientArea.h"
#include "platform/qt/FormPeer.h"

namespace pixorra {

namespace {

void SendMouseNow(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, QPointF(at), QPointF(widget.mapToGlobal(at)), button, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void RunAgain(const QProcessEnvironment& environment) {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=%1.%2").arg(info->test_suite_name(), info->name())});
  ASSERT_TRUE(process.waitForFinished(60000));
  const std::string output = process.readAll().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << output;
  EXPECT_NE(output.find("1 test from"), std::string::npos) << output;
}

}  // namespace

QtTest::QtTest() {
  backend.Attach(toolkit);
  backend.SetErrorHandler([](int number, const std::string& description) {
    ADD_FAILURE() << "an error that nobody wanted: " << number << " " << description;
  });
}

QtTest::~QtTest() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtTest::Settle() {
  for (int i = 0; i < 3; ++i) backend.ProcessEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget& QtTest::WindowOf(Form& form) {
  return static_cast<FormPeer*>(form.GetPeer())->Window();
}

QWidget& QtTest::ClientOf(Form& form) {
  return static_cast<FormPeer*>(form.GetPeer())->Client();
}

QImage QtTest::Shot(Form& form) {
  Settle();
  return ClientOf(form).grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void QtTest::Press(QWidget& widget, QPoint at, Qt::MouseButton button) {
  SendMouseNow(widget, QEvent::MouseButtonPress, at, button, button);
}

void QtTest::Move(QWidget& widget, QPoint at, Qt::MouseButtons held) {
  SendMouseNow(widget, QEvent::MouseMove, at, Qt::NoButton, held);
}

void QtTest::Release(QWidget& widget, QPoint at, Qt::MouseButton button) {
  SendMouseNow(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void QtTest::Click(QWidget& widget, QPoint at, Qt::MouseButton button) {
  Press(widget, at, button);
  Release(widget, at, button);
}

void QtTest::Key(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers modifiers) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&widget, &release);
}

void QtTest::Type(QWidget& widget, const QString& text) {
  for (const QChar character : text) {
    const int code = character.toUpper().unicode();
    Key(widget, code < 128 ? code : 0, QString(character));
  }
}

void QtTest::Meanwhile(const std::function<void()>& act) {
  QTimer::singleShot(0, act);
}

void QtTest::OnAFineScreen(const std::function<void()>& test) {
  if (qGuiApp->devicePixelRatio() == Fineness) {
    test();
    return;
  }
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(Fineness));
  RunAgain(environment);
}

void QtTest::OnAScreenOf(int width, int height, const std::function<void()>& test) {
  if (QGuiApplication::primaryScreen()->size() == QSize(width, height)) {
    test();
    return;
  }
  RunAgainOn(R"({"screens": [{"name": "One", "x": 0, "y": 0, "width": )" + std::to_string(width) + R"(, "height": )" +
                 std::to_string(height) + R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})",
             1);
}

void QtTest::RunAgainOn(const std::string& screens, double scale) {
  QTemporaryDir folder;
  QFile description(folder.filePath(QStringLiteral("screens.json")));
  ASSERT_TRUE(description.open(QIODevice::WriteOnly));
  description.write(screens.c_str());
  description.close();
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), "offscreen:configfile=" + description.fileName());
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
  RunAgain(environment);
}

}  // namespace pixorra
