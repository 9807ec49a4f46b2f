#include "platform/headless/HeadlessPrinting.h"

#include <algorithm>

#include "platform/headless/HeadlessText.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr double TwipsPerPoint = 20;
constexpr double LetterWidth = 0.5;  // of the font's size
constexpr double LineRise = 1.2;

}  // namespace

std::vector<std::string> PrintedPage::Texts() const {
  std::vector<std::string> texts;
  for (const PrintedItem& item : Items) {
    if (item.What == PrintedItem::Kind::Text) texts.push_back(item.Text);
  }
  return texts;
}

// --- printers --------------------------------------------------------------------------------------------------------

const HeadlessPrinter* HeadlessPrinting::Find(const std::string& name) const {
  const auto found = std::find_if(Printers.begin(), Printers.end(),
                                  [&](const HeadlessPrinter& printer) { return printer.Name == name; });
  return found != Printers.end() ? &*found : nullptr;
}

const HeadlessPrinter& HeadlessPrinting::Current() const {
  static const HeadlessPrinter none;
  if (const HeadlessPrinter* printer = Find(current_)) return *printer;
  if (const HeadlessPrinter* printer = Find(held_)) return *printer;
  return Printers.empty() ? none : Printers.front();
}

std::vector<std::string> HeadlessPrinting::PrinterNames() {
  std::vector<std::string> names;
  for (const HeadlessPrinter& printer : Printers) names.push_back(printer.Name);
  return names;
}

void HeadlessPrinting::SetCurrentPrinter(const std::string& name) {
  if (Find(name) == nullptr) throw RuntimeError(error::Printer);
  current_ = name;
}

void HeadlessPrinting::SetTrackDefault(bool track) {
  if (!track) current_ = CurrentPrinterName();
  tracksDefault_ = track;
}

void HeadlessPrinting::HoldPrinter(bool hold) {
  held_.clear();
  if (hold) held_ = CurrentPrinterName();
}

std::string HeadlessPrinting::CurrentPrinterName() {
  return Current().Name;
}

bool HeadlessPrinting::IsReady(const std::string& name) {
  const HeadlessPrinter* printer = Find(name);
  return printer != nullptr && printer->Ready;
}

bool HeadlessPrinting::ShowProperties(const std::string& name) {
  return IsReady(name) && AnswerProperties();
}

// --- the surface -----------------------------------------------------------------------------------------------------

double HeadlessPrinting::SheetWidth() {
  return orientation_ == 1 ? Current().SheetWidth : Current().SheetHeight;
}

double HeadlessPrinting::SheetHeight() {
  return orientation_ == 1 ? Current().SheetHeight : Current().SheetWidth;
}

double HeadlessPrinting::ScaleWidth() {
  return SheetWidth() - 2 * Current().Edge;
}

double HeadlessPrinting::ScaleHeight() {
  return SheetHeight() - 2 * Current().Edge;
}

double HeadlessPrinting::TextWidth(const std::string& text) {
  std::size_t longest = 0;
  for (const std::string& line : LinesOf(text)) longest = std::max(longest, CharacterCount(line));
  return static_cast<double>(longest) * LetterWidth * state_.FontSize * TwipsPerPoint;
}

double HeadlessPrinting::TextHeight(const std::string& text) {
  return static_cast<double>(LinesOf(text).size()) * LineRise * state_.FontSize * TwipsPerPoint;
}

PrintedPage& HeadlessPrinting::Page() {
  const HeadlessPrinter& printer = Current();
  if (Printers.empty() || printer.Broken) throw RuntimeError(error::Printer);
  if (!open_) {
    if (!printer.Refusal.empty()) throw RuntimeError(error::DeviceIO, printer.Refusal);
    PrintedDocument begun{printer.Name, documentName_, {}, {PrintedPage{}}};
    if (printer.AsksForFile) {
      const std::optional<std::string> file = AnswerFileName(documentName_);
      if (!file) throw RuntimeError(error::Printer);
      begun.FileName = *file;
    }
    open_ = std::move(begun);
  }
  PrintedPage& page = open_->Pages.back();
  if (page.Items.empty()) page.Orientation = orientation_;
  return page;
}

// The next line begins at the left edge.
void HeadlessPrinting::Print(const std::string& text) {
  PrintedItem item = state_;
  item.What = PrintedItem::Kind::Text;
  item.Text = text;
  Page().Items.push_back(item);
  state_.X = 0;
  state_.Y += TextHeight(text);
}

void HeadlessPrinting::Box(double x1, double y1, double x2, double y2, Colour colour) {
  PrintedItem item = state_;
  item.What = PrintedItem::Kind::Box;
  item.X = std::min(x1, x2);
  item.Y = std::min(y1, y2);
  item.Width = std::max(x1, x2) - item.X;
  item.Height = std::max(y1, y2) - item.Y;
  item.InColour = colour;
  Page().Items.push_back(item);
}

void HeadlessPrinting::PaintPicture(const Picture& picture, double x, double y, double width, double height,
                                    double sourceX, double sourceY, double sourceWidth, double sourceHeight) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  PrintedItem item = state_;
  item.What = PrintedItem::Kind::Picture;
  item.X = x;
  item.Y = y;
  item.Width = width;
  item.Height = height;
  item.Painted = picture;
  item.SourceX = sourceX;
  item.SourceY = sourceY;
  item.SourceWidth = sourceWidth;
  item.SourceHeight = sourceHeight;
  Page().Items.push_back(item);
}

void HeadlessPrinting::NewPage() {
  Page();
  open_->Pages.emplace_back();
  open_->Pages.back().Orientation = orientation_;
  state_.X = 0;
  state_.Y = 0;
}

PrintedDocument HeadlessPrinting::TakeOpen() {
  PrintedDocument document = open_ ? std::move(*open_) : PrintedDocument{};
  open_.reset();
  state_.X = 0;
  state_.Y = 0;
  return document;
}

// A page that was begun and nothing drawn on does not come out, nor does a document of blanks alone.
void HeadlessPrinting::EndDoc() {
  if (!open_) return;
  PrintedDocument document = TakeOpen();
  const auto isBlank = [](const PrintedItem& item) {
    return item.What == PrintedItem::Kind::Text && item.Text.find_first_not_of(" \r\n") == std::string::npos;
  };
  const std::vector<PrintedItem>& first = document.Pages.front().Items;
  if (document.Pages.size() == 1 && std::all_of(first.begin(), first.end(), isBlank)) return;
  if (const HeadlessPrinter& printer = Current(); printer.EndError != error::None) {
    throw RuntimeError(printer.EndError, printer.EndReason);
  }
  if (document.Pages.size() > 1 && document.Pages.back().Items.empty()) document.Pages.pop_back();
  documents_.push_back(std::move(document));
}

}  // namespace pixorra
