#include "tests/look/LookAt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QPainterPath>
#include <QPushButton>
#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include "platform/controls/Label.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "tests/support/Contrast.h"

namespace pixorra {

namespace {

// Pixels of the ground that may be too near to the text's colour, in percent: edges of drawings.
constexpr std::size_t Spared = 2;

std::string Named(const Control& control, const QString& text) {
  return control.Name() + "(" + std::to_string(control.Index()) + ") \"" + ToUtf8(text) + "\"";
}

// The largest line, and all lines.
QSize SizeOf(const QString& text, const QFontMetrics& metrics) {
  return metrics.size(0, text);
}

// Where the letters of a line have ink, from their base line. Where a pixel is one of the program's, they are fitted to
// the pixels; on a finer screen they are as drawn, and the metrics leave up to a pixel of ours free around them.
QRectF InkOf(const QString& text, const QFont& font) {
  if (qApp->devicePixelRatio() <= 1) return QFontMetricsF(font).tightBoundingRect(text);
  QPainterPath outlines;
  outlines.addText(0, 0, font, text);
  return outlines.boundingRect();
}

// The rows of a label that have letters, from its top: not those above an "a", of one line.
struct LetterRows {
  int From;
  int Height;
};
LetterRows RowsOf(const QString& text, QSize size, const QFont& font) {
  const QFontMetricsF metrics(font);
  const bool oneLine = size.height() < 2 * metrics.height();
  const QRectF ink = InkOf(oneLine ? text : QStringLiteral("d"), font);
  const int from = std::max(0, static_cast<int>(std::floor(metrics.ascent() + ink.top())));
  const int to = oneLine ? static_cast<int>(std::ceil(metrics.ascent() + ink.bottom())) : size.height();
  return {from, to - from};
}

// Where they are on the form.
QRect LettersOf(const Label& label, QSize size, LetterRows rows) {
  const QRect whole = ToQRect(label.FormRect());
  const int width = std::min(size.width(), whole.width());
  int left = whole.left();
  if (label.GetAlignment() == Alignment::Center) left += (whole.width() - width) / 2;
  if (label.GetAlignment() == Alignment::Right) left += whole.width() - width;
  return {left, whole.top() + rows.From, width, rows.Height};
}

}  // namespace

LookAt::LookAt(Form& form) : form_(form), client_(static_cast<FormPeer*>(form.GetPeer())->Client()) {}

std::vector<std::string> LookAt::Faults() {
  Look(form_);
  LookAtButtons();
  return faults_;
}

QImage LookAt::Shot(const QRect& at) {
  return client_.grab(at).toImage().convertToFormat(QImage::Format_RGB32);
}

void LookAt::Compare(const std::string& where, const QColor& text, const QImage& ground) {
  ++texts_;
  // By the colour of the ground: there are far fewer colours than pixels.
  std::unordered_map<QRgb, double> contrasts;
  std::map<double, std::size_t> tooPale;  // pixels by their contrast
  for (int y = 0; y < ground.height(); ++y) {
    for (int x = 0; x < ground.width(); ++x) {
      const QRgb colour = ground.pixel(x, y);
      const auto [known, isNew] = contrasts.try_emplace(colour, 0);
      if (isNew) known->second = Contrast(ToColour(text), ToColour(QColor(colour)));
      if (known->second < LeastContrast) ++tooPale[known->second];
    }
  }
  std::size_t spared =
      static_cast<std::size_t>(ground.width()) * static_cast<std::size_t>(ground.height()) * Spared / 100;
  for (const auto& [contrast, pixels] : tooPale) {
    if (pixels > spared) {
      Fault(where, "a contrast of " + std::to_string(contrast));
      return;
    }
    spared -= pixels;
  }
}

void LookAt::Look(const Container& container) {
  for (Control* control : container.Controls()) {
    if (!control->IsShown() || control->ShownRect().IsEmpty()) continue;
    if (control->GetKind() == Kind::Label) LookAtLabel(static_cast<Label&>(*control));
    if (control->GetKind() == Kind::Frame) LookAtFrame(static_cast<const Frame&>(*control));
    if (const Container* inner = AsContainer(*control)) Look(*inner);
  }
}

void LookAt::LookAtLabel(Label& label) {
  const QString text = ToLines(label.Caption());
  // What scrolls is cut by the edge of its window as a matter of course.
  const bool scrolls = label.GetContainer() != &form_;
  if (text.trimmed().isEmpty() || (scrolls && !(label.ShownRect() == label.FormRect()))) return;
  const std::string where = Named(label, text);
  const QFont font = label.Shrinks() ? FittedFont(label.GetFont(), text, label.Width()) : ToQFont(label.GetFont());
  const QFontMetrics metrics(font);
  QSize size = SizeOf(text, metrics);
  if (label.WordWrap()) size = metrics.boundingRect(QRect(0, 0, label.Width(), 9999), Qt::TextWordWrap, text).size();
  const bool shortened = label.ShortensInMiddle() && size.width() > label.Width();
  if (shortened && label.Width() < metrics.horizontalAdvance(QStringLiteral("MM...MM"))) Fault(where, "has no room");
  if (!shortened && size.width() > label.Width()) Fault(where, "is too wide");
  if (size.height() > label.Height()) Fault(where, "is too high");
  // The letters alone: the rows above them and the label's empty sides may lie under an edge.
  const QRect at = LettersOf(label, size, RowsOf(text, size, font));
  if (!ToQRect(label.ShownRect()).contains(at)) Fault(where, "is cut off by what it lies on");
  const QImage with = Shot(at);
  const bool dark = IsDark(client_.palette());
  const auto plain = [&](Colour colour) {
    return ToQColor(form_.GetToolkit().PlainColour(colour, dark), client_.palette());
  };
  const std::string caption = label.Caption();
  const bool sizes = label.AutoSize();
  label.SetAutoSize(false);
  label.SetCaption("");
  QImage ground = Shot(at);
  label.SetCaption(caption);
  label.SetAutoSize(sizes);
  if (with == ground) Fault(where, "is not to be seen");
  if (label.HasHalo()) ground.fill(plain(label.BackColor()));
  if (label.Enabled()) Compare(where, plain(label.ForeColor()), ground);
}

void LookAt::LookAtFrame(const Frame& frame) {
  const QString text = ToQString(frame.Caption()).remove(QLatin1Char('&'));
  if (text.isEmpty()) return;
  const QSize size = SizeOf(text, QFontMetrics(client_.font()));
  if (size.width() + 12 > frame.Width()) Fault(Named(frame, text), "is too wide");
  for (const Control* inner : frame.Controls()) {
    if (inner->Top() < size.height()) Fault(Named(*inner, text), "lies on its frame's caption");
  }
  const Rect at = frame.ShownRect();
  const bool dark = IsDark(client_.palette());
  const auto plain = [&](Colour colour) {
    return ToQColor(form_.GetToolkit().PlainColour(colour, dark), client_.palette());
  };
  QImage ground = Shot(QRect(at.Left + 2, at.Top + size.height(), 3, 3));
  Compare(Named(frame, text), plain(frame.ForeColor()), ground);
}

void LookAt::LookAtButtons() {
  for (auto* button : client_.findChildren<QAbstractButton*>()) {
    if (button->isVisibleTo(&client_) && !button->text().isEmpty()) LookAtButton(*button);
  }
}

void LookAt::LookAtButton(QAbstractButton& button) {
  const QString text = button.text();
  const std::string where = ToUtf8(button.objectName()) + " \"" + ToUtf8(text) + "\"";
  const bool push = qobject_cast<QPushButton*>(&button) != nullptr;
  // What styles leave free around a text is not the text's.
  const int needed = push ? button.fontMetrics().horizontalAdvance(QString(text).remove(QLatin1Char('&'))) + 12
                          : button.sizeHint().width() - 4;
  if (needed > button.width()) Fault(where, "is too wide by " + std::to_string(needed - button.width()));
  if (button.fontMetrics().height() > button.height()) Fault(where, "is too high");
  if (!button.isEnabled()) return;
  button.setText({});
  const QImage ground = Shot(QRect(button.pos() + QPoint(button.width() / 2, button.height() / 4),
                                   QSize(button.width() / 3, button.height() / 2)));
  button.setText(text);
  Compare(where, button.palette().color(push ? QPalette::ButtonText : QPalette::WindowText), ground);
}

}  // namespace pixorra
