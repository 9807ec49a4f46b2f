#include "utility/PrintText.h"

#include <algorithm>
#include <string>

#include "platform/runtime/OneLine.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"
#include "platform/services/Printing.h"

namespace pixorra {

namespace {

constexpr int ScaleInTwips = 1;
constexpr int Upright = 1;
constexpr double Margin = 720;  // twips
constexpr double FontSize = 10;
// More letters than any line of a page has: a longer text need not be measured to know that it is too long.
constexpr std::size_t MostBytes = 1200;

class TextPages {
 public:
  explicit TextPages(PrintSurface& printer) : printer_(printer) {
    printer_.SetFontName("Arial");
    printer_.SetFontSize(FontSize);
    printer_.SetFontBold(false);
    printer_.SetForeColor(0);
    room_ = printer_.ScaleWidth() - 2 * Margin;
    lineHeight_ = printer_.TextHeight("X");
    end_ = printer_.ScaleHeight() - Margin;
  }

  // A line of the text, over as many of the page as it needs.
  void Add(std::string_view line) {
    do {
      const std::size_t count = CountThatFits(line);
      Print(line.substr(0, count));
      line.remove_prefix(count);
      if (line.starts_with(' ')) line.remove_prefix(1);
    } while (!line.empty());
  }

 private:
  void Print(std::string_view line) {
    if (y_ + lineHeight_ > end_ && y_ > Margin) {
      printer_.NewPage();
      y_ = Margin;
    }
    printer_.SetCurrentX(Margin);
    printer_.SetCurrentY(y_);
    if (!line.empty()) printer_.Print(std::string(line));
    y_ += lineHeight_;
  }

  bool Fits(std::string_view line) { return printer_.TextWidth(std::string(line)) <= room_; }

  // Bytes; one character at least where there is one.
  std::size_t CountThatFits(std::string_view line) {
    if (line.size() <= MostBytes && Fits(line)) return line.size();
    std::size_t fits = 0;
    std::size_t tooMany = std::min(line.size(), MostBytes) + 1;
    while (tooMany - fits > 1) {
      const std::size_t middle = (fits + tooMany) / 2;
      (Fits(CutToBytes(line, middle)) ? fits : tooMany) = middle;
    }
    const std::string_view cut = CutToBytes(line, fits);
    const std::size_t blank = line.substr(0, cut.size() + 1).rfind(' ');
    if (blank != std::string_view::npos && blank > 0) return blank;
    return std::max(cut.size(), CharacterAt(line, 0).Bytes);
  }

  PrintSurface& printer_;
  double room_ = 0;
  double lineHeight_ = 0;
  double end_ = 0;
  double y_ = Margin;
};

// Tabs as blanks.
std::string Untabbed(std::string_view line) {
  std::string plain;
  for (const char c : line) plain += c == '\t' ? std::string(4, ' ') : std::string(1, c);
  return OneLine(plain);
}

}  // namespace

void BeginText(PrintSurface& printer) {
  printer.SetScaleMode(ScaleInTwips);
  printer.SetOrientation(Upright);
  printer.Print(" ");
}

void PrintText(PrintSurface& printer, std::string_view text) {
  TextPages pages(printer);
  for (std::string_view line : Lines(text)) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    pages.Add(Untabbed(line));
  }
}

}  // namespace pixorra
