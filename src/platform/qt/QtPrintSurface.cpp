#include "platform/qt/QtPrintSurface.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinterInfo>
#include <algorithm>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr double TwipsPerInch = 1440;
constexpr double TwipsPerPoint = 20;
constexpr double PictureTwips = 15;  // of a picture's pixel
constexpr int Landscape = 2;
constexpr int Transparent = 1;
constexpr int UserDefinedPaper = 256;

QStringList LinesOf(const std::string& text) {
  return ToLines(text).split(QLatin1Char('\n'));
}

// Figures of the page have the width of a 32-bit floating number.
double Single(double value) {
  return static_cast<double>(static_cast<float>(value));
}

}  // namespace

QtPrintSurface::QtPrintSurface(QPrinter& printer, std::function<bool()> canPrint)
    : printer_(printer), canPrint_(std::move(canPrint)) {
  SetFontSize(Font{}.Size);
}

QtPrintSurface::~QtPrintSurface() {
  if (painter_ != nullptr) printer_.abort();
}

// A document's first page begins with its first drawing, a further one likewise: a new page that nothing is drawn on
// does not come out.
QPainter& QtPrintSurface::Page() {
  if (painter_ == nullptr) {
    if (!canPrint_()) throw RuntimeError(error::Printer);
    auto painter = std::make_unique<QPainter>();
    if (!painter->begin(&printer_)) throw RuntimeError(error::Printer);
    painter_ = std::move(painter);
    pageEnded_ = false;
    PreparePage();
  } else if (pageEnded_) {
    if (!printer_.newPage()) throw RuntimeError(error::Printer);
    pageEnded_ = false;
    PreparePage();
  }
  return *painter_;
}

void QtPrintSurface::PreparePage() {
  painter_->resetTransform();
  painter_->scale(printer_.logicalDpiX() / TwipsPerInch, printer_.logicalDpiY() / TwipsPerInch);
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  painter_->setClipRect(QRectF(0, 0, ScaleWidth(), ScaleHeight()));
}

void QtPrintSurface::SetOrientation(int orientation) {
  printer_.setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

double QtPrintSurface::ScaleWidth() {
  return Single(printer_.pageLayout().paintRect(QPageLayout::Point).width() * TwipsPerPoint);
}

double QtPrintSurface::ScaleHeight() {
  return Single(printer_.pageLayout().paintRect(QPageLayout::Point).height() * TwipsPerPoint);
}

double QtPrintSurface::SheetWidth() {
  return Single(printer_.pageLayout().fullRect(QPageLayout::Point).width() * TwipsPerPoint);
}

double QtPrintSurface::SheetHeight() {
  return Single(printer_.pageLayout().fullRect(QPageLayout::Point).height() * TwipsPerPoint);
}

double QtPrintSurface::TwipsPerPixelX() {
  return Single(TwipsPerInch / printer_.logicalDpiX());
}

std::string QtPrintSurface::DeviceName() {
  if (printer_.outputFormat() == QPrinter::PdfFormat && !printer_.outputFileName().isEmpty()) return "PDF";
  return ToUtf8(printer_.printerName());
}

std::string QtPrintSurface::DriverName() {
  return ToUtf8(QPrinterInfo::printerInfo(printer_.printerName()).makeAndModel());
}

int QtPrintSurface::PaperSize() {
  const int code = printer_.pageLayout().pageSize().windowsId();
  return code > 0 ? code : UserDefinedPaper;
}

void QtPrintSurface::SetFontName(const std::string& name) {
  font_.setFamily(ToQString(name));
}

// A pixel of the font is a twip of the page.
void QtPrintSurface::SetFontSize(double points) {
  font_.setPixelSize(qMax(1, qRound(points * TwipsPerPoint)));
}

void QtPrintSurface::SetFontBold(bool bold) {
  font_.setBold(bold);
}

double QtPrintSurface::TextWidth(const std::string& text) {
  const QFontMetricsF metrics(font_);
  double width = 0;
  for (const QString& line : LinesOf(text)) width = std::max(width, metrics.horizontalAdvance(line));
  return Single(width);
}

double QtPrintSurface::TextHeight(const std::string& text) {
  return Single(QFontMetricsF(font_).height() * static_cast<double>(LinesOf(text).size()));
}

void QtPrintSurface::Print(const std::string& text) {
  QPainter& page = Page();
  page.setFont(font_);
  page.setPen(ToQColor(foreColor_, QPalette(Qt::lightGray)));
  const QFontMetricsF metrics(font_);
  double baseline = y_ + metrics.ascent();
  for (const QString& line : LinesOf(text)) {
    page.drawText(QPointF(x_, baseline), line);
    x_ = 0;
    baseline += metrics.height();
  }
  y_ += TextHeight(text);
}

void QtPrintSurface::Box(double x1, double y1, double x2, double y2, Colour colour) {
  QPainter& page = Page();
  QPen pen(ToQColor(colour, QPalette(Qt::lightGray)));
  pen.setWidthF(drawWidth_ * TwipsPerInch / printer_.logicalDpiX());
  pen.setJoinStyle(Qt::MiterJoin);
  page.setPen(pen);
  page.setBrush(fillStyle_ == Transparent ? QBrush(Qt::NoBrush) : QBrush(pen.color()));
  page.drawRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized());
}

void QtPrintSurface::PaintPicture(const Picture& picture, double x, double y, double width, double height,
                                  double sourceX, double sourceY, double sourceWidth, double sourceHeight) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  const QRectF part(sourceX / PictureTwips, sourceY / PictureTwips, sourceWidth / PictureTwips,
                    sourceHeight / PictureTwips);
  Page().drawImage(QRectF(x, y, width, height), SharedImage(picture.Pixels()), part);
}

void QtPrintSurface::NewPage() {
  Page();
  pageEnded_ = true;
  x_ = 0;
  y_ = 0;
}

void QtPrintSurface::EndDoc() {
  if (painter_ == nullptr) return;
  painter_->end();
  painter_.reset();
  x_ = 0;
  y_ = 0;
}

}  // namespace pixorra
