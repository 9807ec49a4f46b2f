// floor_bench [FOLDER]: the least that a program with windows does: an empty one or, of a folder, the list of its
// files' names.
#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Floor"));
  window.resize(782, 606);
  if (argc > 1) {
    auto* list = new QListWidget(&window);
    list->setUniformItemSizes(true);
    list->addItems(QDir(QString::fromLocal8Bit(argv[1])).entryList(QDir::Files));
    list->resize(window.size());
  }
  window.show();
  return QApplication::exec();
}
