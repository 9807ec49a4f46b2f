// The back end with windows held to the contract.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include "platform/codecs/ThreadedFrames.h"
#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/controls/TreeView.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtArtwork.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPosting.h"
#include "platform/qt/QtShipped.h"
#include "platform/qt/printing/QtPrinting.h"
#include "tests/platform/contract/ContractPlatform.h"
#include "tests/platform/qt/hands/Hands.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

void LookAt(QWidget& widget, Seen& seen) {
  if (auto* pushed = qobject_cast<QAbstractButton*>(&widget)) {
    seen.Text = pushed->text().toStdString();
    seen.Value = pushed->isChecked() ? 1 : 0;
  } else if (auto* bar = qobject_cast<QAbstractSlider*>(&widget)) {
    seen.Value = bar->value();
  } else if (auto* progress = qobject_cast<QProgressBar*>(&widget)) {
    seen.Value = progress->value();
  } else if (auto* lines = qobject_cast<QPlainTextEdit*>(&widget)) {
    seen.Text = lines->toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n")).toStdString();
  } else if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    seen.Text = line->text().toStdString();
  } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    seen.Text = combo->currentText().toStdString();
    seen.Value = combo->currentIndex();
    seen.Count = combo->count();
  } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    seen.Value = list->currentRow();
    seen.Count = list->count();
  }
}

void AddLines(const QTreeWidget& tree, const QTreeWidgetItem& item, const std::string& indent,
              std::vector<std::string>& lines) {
  for (int i = 0; i < item.childCount(); ++i) {
    const QTreeWidgetItem& child = *item.child(i);
    const bool opens = child.childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
    const std::string mark = !opens ? ". " : child.isExpanded() ? "- " : "+ ";
    const bool selected = tree.currentItem() == &child && child.isSelected();
    lines.push_back(indent + mark + child.text(0).toStdString() + (selected ? " *" : ""));
    if (child.isExpanded()) AddLines(tree, child, indent + "  ", lines);
  }
}

// What a screen reader is told at the item's place.
std::string SpokenAt(QTreeWidget& tree, const QRect& row) {
  QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(&tree);
  const QPoint at = tree.viewport()->mapToGlobal(row.center());
  const QAccessibleInterface* item = whole != nullptr ? whole->childAt(at.x(), at.y()) : nullptr;
  return item != nullptr ? item->text(QAccessible::Name).toStdString() : std::string();
}

bool IsOnTop(const QWidget& window) {
  return window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

class QtContract final : public ContractPlatform {
 public:
  QtContract() {
    backend_.Attach(toolkit_);
    backend_.SetErrorHandler([](int number, const std::string& description) {
      ADD_FAILURE() << "an error that nobody wanted: " << number << " " << description;
    });
  }
  ~QtContract() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  Toolkit& GetToolkit() override { return toolkit_; }
  Dialogs& GetDialogs() override { return dialogs_; }
  Clipboard& GetClipboard() override { return clipboard_; }
  TextDrawing& GetText() override { return backend_.Text(); }
  Artwork& GetArtwork() override { return artwork_; }
  Printing& GetPrinting() override { return printing_; }
  Clock& GetClock() override { return clock_; }
  Posting& GetPosting() override { return posting_; }
  Shipped& GetShipped() override { return shipped_; }
  std::unique_ptr<FolderReader> MakeFolderReader(TemporaryDrive& drive) override {
    PathMapping mapping({{'C', drive.HostRoot(), "File System"}});
    return std::make_unique<PosixFolderReader>(std::make_shared<FixedMapping>(std::move(mapping)), posting_);
  }
  std::unique_ptr<PhotoFrames> MakeFrames(TemporaryDrive& drive) override {
    PathMapping mapping({{'C', drive.HostRoot(), "File System"}});
    return std::make_unique<ThreadedFrames>(std::make_shared<PosixFiles>(std::move(mapping)), posting_);
  }

  void CopyElsewhere(const Picture& picture) override {
    QGuiApplication::clipboard()->setImage(SharedImage(picture.Pixels()).copy());
  }

  bool CatchPrint() override {
    printing_.PrintToFile(File("out.pdf").toStdString());
    return !QStandardPaths::findExecutable(QStringLiteral("gs")).isEmpty();
  }
  std::vector<PrintedSheet> Printed() override {
    if (!QFile::exists(File("out.pdf"))) return {};
    QProcess::execute(QStringLiteral("gs"), {"-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=png16m", "-r72",
                                             "-sOutputFile=" + File("page%d.png"), File("out.pdf")});
    std::vector<PrintedSheet> sheets;
    for (int i = 1; QFile::exists(File(QStringLiteral("page%1.png").arg(i))); ++i) {
      const QImage sheet(File(QStringLiteral("page%1.png").arg(i)));
      const QImage inner = sheet.copy(sheet.rect().adjusted(FileMargin, FileMargin, -FileMargin, -FileMargin));
      sheets.push_back({sheet.width() > sheet.height(), ToPicture(inner).Pixels().Clone()});
    }
    return sheets;
  }

  void PrintIntoFiles() override { printing_.SetCurrentPrinter(PdfPrinter::PrinterName); }
  void AnswerPrintFile(const std::string& name) override {
    const auto up = [] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); };
    Hands::Meanwhile([up] { return up() != nullptr; },
                     [this, up, name] {
                       if (name.empty()) return up()->reject();
                       const auto path = QDir(folder_.path()).filePath(QString::fromStdString(name));
                       up()->findChild<QLineEdit*>("fileNameEdit")->setText(path);
                       QMetaObject::invokeMethod(up(), "accept");
                     });
  }
  std::vector<std::string> PrintedFiles() override {
    std::vector<std::string> names;
    for (const QString& name : QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden)) {
      names.push_back(name.toStdString());
    }
    return names;
  }

  void Settle() override {
    for (int i = 0; i < 3; ++i) backend_.ProcessEvents();
  }
  Seen Look(Control& control) override {
    Seen seen;
    if (control.GetKind() == Kind::Form) {
      auto& form = static_cast<Form&>(control);
      const QWidget* window = Hands::WindowOf(form);
      if (window == nullptr) return seen;
      seen.Visible = window->isVisible();
      seen.Enabled = window->isEnabled();
      seen.Text = window->windowTitle().toStdString();
      seen.Framed = !window->windowFlags().testFlag(Qt::FramelessWindowHint);
      seen.OnTop = IsOnTop(*window);
      seen.At = {0, 0, Hands::ClientOf(form)->width(), Hands::ClientOf(form)->height()};
      return seen;
    }
    QWidget* widget = Hands::WidgetOf(control);
    if (widget == nullptr) return seen;
    seen.Visible = widget->isVisible();
    seen.Enabled = widget->isEnabled();
    seen.At = {widget->x(), widget->y(), widget->width(), widget->height()};
    LookAt(*widget, seen);
    return seen;
  }

  // No platform tells the order of its windows: what a window manager goes by is looked at.
  bool IsAbove(Form& front, Form& other) override {
    const QWidget* above = Hands::WindowOf(front);
    const QWidget* below = Hands::WindowOf(other);
    if (above->windowHandle()->transientParent() == below->windowHandle()) return true;
    return IsOnTop(*above) && !IsOnTop(*below);
  }
  bool IsPointerHidden(Form& form) override { return Hands::WindowOf(form)->cursor().shape() == Qt::BlankCursor; }

  void Press(Form& form, int x, int y, int button, int shift) override { hands_.Press(form, {x, y}, button, shift); }
  void Move(Form& form, int x, int y) override { hands_.Move(form, {x, y}); }
  void Release(Form& form, int x, int y, int button, int shift) override {
    hands_.Release(form, {x, y}, button, shift);
  }
  void DoubleClick(Form& form, int x, int y) override { hands_.DoubleClick(form, {x, y}); }
  void TurnWheel(Form& form, int x, int y, const WheelArgs& turn) override { Hands::TurnWheel(form, {x, y}, turn); }
  void Click(Control& control) override {
    Form& form = control.GetForm();
    const QPoint at = Hands::MiddleOf(control);
    hands_.Press(form, at);
    hands_.Release(form, at);
    Settle();
  }
  void MoveBar(ScrollBar& bar, int value) override { Hands::MoveBar(bar, value); }
  void DragBar(ScrollBar& bar, int value) override { Hands::DragBar(bar, value); }
  void Choose(ItemList& list, int index) override {
    hands_.Choose(list, index);
    Settle();
  }
  void ChooseNode(TreeView& tree, const NodePath& path) override {
    if (QTreeWidgetItem* item = Hands::ItemOf(tree, path)) hands_.ChooseItem(*item);
    Settle();
  }
  void ClickOpener(TreeView& tree, const NodePath& path, bool open) override {
    QTreeWidgetItem* item = Hands::ItemOf(tree, path);
    if (item != nullptr && item->isExpanded() != open) hands_.ClickOpener(*item);
    Settle();
  }
  std::vector<std::string> LookAtTree(TreeView& tree) override {
    std::vector<std::string> lines;
    if (auto* widget = qobject_cast<QTreeWidget*>(Hands::WidgetOf(tree)))
      AddLines(*widget, *widget->invisibleRootItem(), "", lines);
    return lines;
  }
  SeenNode LookAtNode(TreeView& tree, const NodePath& path) override {
    const QTreeWidgetItem* item = Hands::ItemOf(tree, path);
    if (item == nullptr) return {};
    QTreeWidget& widget = *item->treeWidget();
    const QRect row = widget.visualItemRect(item);
    SeenNode seen{!row.isEmpty() && widget.viewport()->rect().contains(row.center()), 0, SpokenAt(widget, row)};
    const QPoint icon(row.left() + widget.iconSize().width() / 2 + 3, row.center().y());
    if (seen.InView) seen.Icon = ToColour(widget.viewport()->grab().toImage().pixelColor(icon));
    return seen;
  }
  void Type(const std::string& text) override {
    Hands::Type(text);
    Settle();
  }
  void Key(int keyCode, int shift) override {
    Hands::Key(keyCode, shift);
    Settle();
  }
  void ChooseMenu(MenuItem& item) override { hands_.ChooseMenu(item); }
  void CloseWindow(Form& form) override { Hands::WindowOf(form)->close(); }
  void ResizeWindow(Form& form, int clientWidth, int clientHeight) override {
    QWidget* window = Hands::WindowOf(form);
    window->resize(clientWidth, clientHeight + window->height() - Hands::ClientOf(form)->height());
  }

  void Meanwhile(std::function<bool()> when, std::function<void()> act) override {
    Hands::Meanwhile(std::move(when), std::move(act));
  }
  void AnswerBox(BoxAnswer answer, std::function<bool()> when) override {
    const auto up = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    Hands::Meanwhile([up, when = std::move(when)] { return up() != nullptr && (!when || when()); },
                     [up, answer] {
                       if (answer == BoxAnswer::Cancel) return Hands::Key(key::Escape, 0);
                       QMessageBox::StandardButton button = QMessageBox::Ok;
                       if (answer == BoxAnswer::Yes) button = QMessageBox::Yes;
                       if (answer == BoxAnswer::No) button = QMessageBox::No;
                       up()->button(button)->click();
                     });
  }
  void AnswerInput(const std::string& typed) override {
    const auto up = [] { return qobject_cast<QInputDialog*>(QApplication::activeModalWidget()); };
    Hands::Meanwhile([up] { return up() != nullptr; },
                     [up, typed] {
                       up()->setTextValue(QString::fromStdString(typed));
                       up()->done(typed.empty() ? QDialog::Rejected : QDialog::Accepted);
                     });
  }
  void AnswerPopup(MenuItem* item, std::function<void()> meanwhile) override {
    Hands::Meanwhile([] { return QApplication::activePopupWidget() != nullptr; },
                     [this, item, act = std::move(meanwhile)] {
                       if (act) act();
                       hands_.ChooseFromPopup(item);
                     });
  }

 private:
  // Of a printed file, in points.
  static constexpr int FileMargin = 18;
  QString File(const QString& name) const { return folder_.filePath(name); }

  QTemporaryDir folder_;
  QtBackend backend_;
  Toolkit toolkit_{backend_};
  QtDialogs dialogs_{backend_};
  QtClipboard clipboard_;
  QtArtwork artwork_{backend_.Art()};
  QtPrinting printing_{backend_};
  PosixClock clock_;
  QtPosting posting_{backend_};
  QtShipped shipped_{backend_.Art()};
  Hands hands_;
};

}  // namespace

std::unique_ptr<ContractPlatform> MakeContractPlatform() {
  return std::make_unique<QtContract>();
}

}  // namespace pixorra
