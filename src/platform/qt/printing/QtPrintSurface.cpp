#include "platform/qt/printing/QtPrintSurface.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <algorithm>
#include <utility>

#include "platform/qt/Convert.h"
#include "platform/qt/printing/PagePicture.h"
#include "platform/qt/printing/PageUnits.h"
#include "platform/qt/printing/PrintFont.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr double PictureTwips = 15;  // of a picture's pixel
constexpr int Landscape = 2;
constexpr int Transparent = 1;
// Finer than this no eye sees a photo on paper.
constexpr int FinestPicture = 300;  // dots per inch

// Figures of the page have the width of a 32-bit floating number.
double Single(double value) {
  return static_cast<double>(static_cast<float>(value));
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \r\n") == std::string::npos;
}

}  // namespace

QtPrintSurface::Document::Document(std::unique_ptr<PrintJob> to, const PrintPaper& on)
    : Job(std::move(to)), Paper(on), Writer(&Job->Device()) {
  Writer.setResolution(PageTwipsPerInch);
  Writer.setCreator(QStringLiteral("Pixorra"));
}

QtPrintSurface::QtPrintSurface(PrintDestination& destination)
    : destination_(&destination), fontName_(Font{}.Name), fontSize_(Font{}.Size) {
  UpdateFont();
}

QtPrintSurface::~QtPrintSurface() {
  KillDoc();
}

// A document's first page begins with its first drawing, a further one likewise: a new page that nothing is drawn on
// does not come out.
QPainter& QtPrintSurface::Page() {
  if (document_ == nullptr) {
    auto begun = std::make_unique<Document>(destination_->Begin(documentName_), destination_->Paper());
    document_ = std::move(begun);
    document_->Writer.setTitle(ToQString(documentName_));
    PreparePage();
  } else if (document_->PageEnded) {
    document_->PageEnded = false;
    PreparePage();
  }
  return document_->Painter;
}

// The whole sheet, with margins of our own: a layout with the printer's would be refused, or turned.
void QtPrintSurface::PreparePage() {
  Document& document = *document_;
  const QPageSize size(document.Paper.Size, QPageSize::Point, QString(), QPageSize::ExactMatch);
  QPageLayout layout(size, orientation_ == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  document.Writer.setPageLayout(layout);
  if (!document.Painter.isActive()) {
    document.Painter.begin(&document.Writer);
  } else {
    document.Writer.newPage();
  }
  const Lengths sheet = Sheet();
  const Lengths printable = Printable();
  document.Painter.resetTransform();
  document.Painter.translate((sheet.Width - printable.Width) / 2, (sheet.Height - printable.Height) / 2);
  document.Painter.setClipRect(QRectF(0, 0, printable.Width, printable.Height));
}

void QtPrintSurface::SetOrientation(int orientation) {
  orientation_ = orientation;
}

QtPrintSurface::Lengths QtPrintSurface::Sheet() {
  const QSizeF size = Paper().Size * PageTwipsPerPoint;
  if (orientation_ == Landscape) return {size.height(), size.width()};
  return {size.width(), size.height()};
}

QtPrintSurface::Lengths QtPrintSurface::Printable() {
  const PrintPaper paper = Paper();
  const double across = 2 * PageTwipsPerPoint * (orientation_ == Landscape ? paper.EndMargin : paper.SideMargin);
  const double down = 2 * PageTwipsPerPoint * (orientation_ == Landscape ? paper.SideMargin : paper.EndMargin);
  const Lengths sheet = Sheet();
  return {sheet.Width - across, sheet.Height - down};
}

double QtPrintSurface::ScaleWidth() {
  return Single(Printable().Width);
}

double QtPrintSurface::ScaleHeight() {
  return Single(Printable().Height);
}

double QtPrintSurface::SheetWidth() {
  return Single(Sheet().Width);
}

double QtPrintSurface::SheetHeight() {
  return Single(Sheet().Height);
}

double QtPrintSurface::TwipsPerPixelX() {
  return Single(static_cast<double>(PageTwipsPerInch) / Paper().DotsPerInch);
}

void QtPrintSurface::UpdateFont() {
  font_ = PrintFont(fontName_, fontSize_, bold_);
}

void QtPrintSurface::SetFontName(const std::string& name) {
  fontName_ = name;
  UpdateFont();
}

void QtPrintSurface::SetFontSize(double points) {
  fontSize_ = points;
  UpdateFont();
}

void QtPrintSurface::SetFontBold(bool bold) {
  bold_ = bold;
  UpdateFont();
}

double QtPrintSurface::TextWidth(const std::string& text) {
  const QFontMetricsF metrics(font_);
  double width = 0;
  for (const QString& line : ToLineList(text)) width = std::max(width, metrics.horizontalAdvance(line));
  return Single(width);
}

double QtPrintSurface::TextHeight(const std::string& text) {
  return Single(QFontMetricsF(font_).height() * static_cast<double>(ToLineList(text).size()));
}

void QtPrintSurface::Print(const std::string& text) {
  QPainter& page = Page();
  if (!IsBlank(text)) document_->HasInk = true;
  page.setFont(font_);
  page.setPen(ToQColor(foreColor_, QPalette(Qt::lightGray)));
  const QFontMetricsF metrics(font_);
  double baseline = y_ + metrics.ascent();
  for (const QString& line : ToLineList(text)) {
    page.drawText(QPointF(x_, baseline), line);
    x_ = 0;
    baseline += metrics.height();
  }
  y_ += TextHeight(text);
}

void QtPrintSurface::Box(double x1, double y1, double x2, double y2, Colour colour) {
  QPainter& page = Page();
  document_->HasInk = true;
  QPen pen(ToQColor(colour, QPalette(Qt::lightGray)));
  pen.setWidthF(drawWidth_ * TwipsPerPixelX());
  pen.setJoinStyle(Qt::MiterJoin);
  page.setPen(pen);
  page.setBrush(fillStyle_ == Transparent ? QBrush(Qt::NoBrush) : QBrush(pen.color()));
  page.drawRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized());
}

void QtPrintSurface::PaintPicture(const Picture& picture, double x, double y, double width, double height,
                                  double sourceX, double sourceY, double sourceWidth, double sourceHeight) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  QPainter& page = Page();
  document_->HasInk = true;
  const QRectF part(sourceX / PictureTwips, sourceY / PictureTwips, sourceWidth / PictureTwips,
                    sourceHeight / PictureTwips);
  const double dots = std::min(FinestPicture, document_->Paper.DotsPerInch);
  const PagePicture made = MakePagePicture(picture, QRectF(x, y, width, height), part, dots);
  if (made.Image.isNull()) return;
  page.save();
  if (made.Shown != made.Place) page.setClipRect(made.Shown, Qt::IntersectClip);
  page.setRenderHint(QPainter::LosslessImageRendering, !made.IsPhoto);
  page.drawImage(made.Place, made.Image);
  page.restore();
  document_->Job->RaiseIfFailed();
}

void QtPrintSurface::NewPage() {
  Page();
  document_->Job->RaiseIfFailed();
  document_->PageEnded = true;
  document_->HasInk = true;
  x_ = 0;
  y_ = 0;
}

std::unique_ptr<QtPrintSurface::Document> QtPrintSurface::TakeDocument() {
  if (document_ == nullptr) return nullptr;
  document_->Painter.end();
  x_ = 0;
  y_ = 0;
  return std::move(document_);
}

void QtPrintSurface::EndDoc() {
  const std::unique_ptr<Document> document = TakeDocument();
  if (document != nullptr && document->HasInk) document->Job->Submit();
}

}  // namespace pixorra
