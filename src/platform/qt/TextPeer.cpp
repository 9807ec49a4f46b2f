// Text boxes as widgets, of one line or several.
#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>

#include "platform/controls/TextBox.h"
#include "platform/qt/Convert.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

// The model counts bytes, the widgets count units of 16 bits.
int ToUnits(const std::string& text, int bytes) {
  const auto count = static_cast<std::size_t>(std::clamp(bytes, 0, static_cast<int>(text.size())));
  return static_cast<int>(ToQString(text.substr(0, count)).size());
}

int ToBytes(const QString& text, int units) {
  return static_cast<int>(text.left(units).toUtf8().size());
}

class LinePeer final : public PeerOf<QLineEdit, TextBox> {
 public:
  LinePeer(QtBackend& backend, TextBox& control) : PeerOf(backend, control, new QLineEdit) {
    // Not textEdited: what a screen reader writes is a person's text too.
    QObject::connect(&Widget(), &QLineEdit::textChanged, Context(), [this](const QString& text) {
      Act([this, typed = ToUtf8(text)] { Model().UserTyped(typed, From()); });
    });
    QObject::connect(&Widget(), &QLineEdit::selectionChanged, Context(), [this] { Selected(); });
    QObject::connect(&Widget(), &QLineEdit::cursorPositionChanged, Context(), [this] { Selected(); });
  }

 private:
  int From() const {
    const bool any = Widget().hasSelectedText();
    return ToBytes(Widget().text(), any ? Widget().selectionStart() : Widget().cursorPosition());
  }
  int To() const { return Widget().hasSelectedText() ? ToBytes(Widget().text(), Widget().selectionEnd()) : From(); }
  // Before the model has the text, places within it mean nothing.
  void Selected() {
    if (!Mirroring() && ToUtf8(Widget().text()) == Model().Text()) Model().UserSelected(From(), To() - From());
  }
  void Mirror() override {
    const QString text = ToQString(Model().Text());
    if (Widget().text() != text) Widget().setText(text);
    Widget().setReadOnly(Model().Locked());
    const int from = ToUnits(Model().Text(), Model().SelStart());
    const int to = ToUnits(Model().Text(), Model().SelStart() + Model().SelLength());
    if (to == from) {
      if (Widget().hasSelectedText() || Widget().cursorPosition() != from) Widget().setCursorPosition(from);
    } else if (Widget().selectionStart() != from || Widget().selectionEnd() != to) {
      Widget().setSelection(from, to - from);
    }
  }
};

class TextPeer final : public PeerOf<QPlainTextEdit, TextBox> {
 public:
  TextPeer(QtBackend& backend, TextBox& control) : PeerOf(backend, control, new QPlainTextEdit) {
    Widget().setTabChangesFocus(true);
    QObject::connect(&Widget(), &QPlainTextEdit::textChanged, Context(),
                     [this] { Act([this] { Model().UserTyped(Typed(), From()); }); });
    QObject::connect(&Widget(), &QPlainTextEdit::selectionChanged, Context(), [this] { Selected(); });
    QObject::connect(&Widget(), &QPlainTextEdit::cursorPositionChanged, Context(), [this] { Selected(); });
  }

 private:
  // The program's line ends are CR LF.
  std::string Typed() const { return ToUtf8(Widget().toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n"))); }
  // Places in the model's text, where each line end is one byte longer.
  int ToModel(int position) const {
    return static_cast<int>(
        ToUtf8(Widget().toPlainText().left(position).replace(QLatin1Char('\n'), QLatin1String("\r\n"))).size());
  }
  int FromModel(int bytes) const {
    const auto count = static_cast<std::size_t>(std::clamp(bytes, 0, static_cast<int>(Model().Text().size())));
    return static_cast<int>(ToLines(Model().Text().substr(0, count)).size());
  }
  int From() const { return ToModel(Widget().textCursor().selectionStart()); }
  int To() const { return ToModel(Widget().textCursor().selectionEnd()); }
  void Selected() {
    // What cannot be typed into shows the model's text always.
    if (!Mirroring() && (Model().Locked() || Typed() == Model().Text())) Model().UserSelected(From(), To() - From());
  }
  void Mirror() override {
    if (Typed() != Model().Text() && Widget().toPlainText() != ToLines(Model().Text())) {
      Widget().setPlainText(ToLines(Model().Text()));
    }
    Widget().setReadOnly(Model().Locked());
    QTextCursor cursor = Widget().textCursor();
    const int from = FromModel(Model().SelStart());
    const int to = FromModel(Model().SelStart() + Model().SelLength());
    if (cursor.selectionStart() == from && cursor.selectionEnd() == to) return;
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    Widget().setTextCursor(cursor);
  }
};

}  // namespace

std::unique_ptr<Peer> MakeTextPeer(QtBackend& backend, TextBox& box) {
  if (box.MultiLine()) return std::make_unique<TextPeer>(backend, box);
  return std::make_unique<LinePeer>(backend, box);
}

}  // namespace pixorra
