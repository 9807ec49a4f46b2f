#include "printing/PaperNames.h"

#include <algorithm>
#include <array>

namespace pixorra {

namespace {

struct Paper {
  int Code;
  const char* Short;
  const char* Long;
};

constexpr std::array Papers = {
    Paper{1, "Letter", "Letter, 8 1/2 x 11 in."},
    Paper{2, "Letter Small", "Letter Small, 8 1/2 x 11 in."},
    Paper{3, "Tabloid", "Tabloid, 11 x 17 in."},
    Paper{4, "Ledger", "Ledger, 17 x 11 in."},
    Paper{5, "Legal", "Legal, 8 1/2 x 14 in."},
    Paper{6, "Statement", "Statement, 5 1/2 x 8 1/2 in."},
    Paper{7, "Executive", "Executive, 7 1/2 x 10 1/2 in."},
    Paper{8, "A3", "A3, 297 x 420 mm"},
    Paper{9, "A4", "A4, 210 x 297 mm"},
    Paper{10, "A4 Small", "A4 Small, 210 x 297 mm"},
    Paper{11, "A5", "A5, 148 x 210 mm"},
    Paper{12, "B4", "B4, 250 x 354 mm"},
    Paper{13, "B5", "B5, 182 x 257 mm"},
    Paper{14, "Folio", "Folio, 8 1/2 x 13 in."},
    Paper{15, "Quarto", "Quarto, 215 x 275 mm"},
    Paper{16, "10x14\"", "10 x 14 in."},
    Paper{17, "11x17\"", "11 x 17 in."},
    Paper{18, "Note", "Note, 8 1/2 x 11 in."},
    Paper{19, "Envelope #9", "Envelope #9, 3 7/8 x 8 7/8 in."},
    Paper{20, "Envelope #10", "Envelope #10, 4 1/8 x 9 1/2 in."},
    Paper{21, "Envelope #11", "Envelope #11, 4 1/2 x 10 3/8 in."},
    Paper{22, "Envelope #12", "Envelope #12, 4 1/2 x 11 in."},
    Paper{23, "Envelope #14", "Envelope #14, 5 x 11 1/2 in."},
    Paper{24, "C size", "C size sheet"},
    Paper{25, "D size", "D size sheet"},
    Paper{26, "E size", "E size sheet"},
    Paper{27, "Envelope DL", "Envelope DL, 110 x 220 mm"},
    Paper{28, "Envelope C5", "Envelope C5, 162 x 229 mm"},
    Paper{29, "Envelope C3", "Envelope C3, 324 x 458 mm"},
    Paper{30, "Envelope C4", "Envelope C4, 229 x 324 mm"},
    Paper{31, "Envelope C6", "Envelope C6, 114 x 162 mm"},
    Paper{32, "Envelope C65", "Envelope C65, 114 x 229 mm"},
    Paper{33, "Envelope B4", "Envelope B4, 250 x 353 mm"},
    Paper{34, "Envelope B5", "Envelope B5, 176 x 250 mm"},
    Paper{35, "Envelope B6", "Envelope B6, 176 x 125 mm"},
    Paper{36, "Envelope", "Envelope, 110 x 230 mm"},
    Paper{37, "Envelope Monarch", "Envelope Monarch, 3 7/8 x 7 1/2 in."},
    Paper{38, "Envelope", "Envelope, 3 5/8 x 6 1/2 in."},
    Paper{39, "US Std Fanfold", "U.S. Standard Fanfold, 14 7/8 x 11 in."},
    Paper{40, "German Std Fanfold", "German Standard Fanfold, 8 1/2 x 12 in."},
    Paper{41, "German Legal Fanfold", "German Legal Fanfold, 8 1/2 x 13 in."},
    Paper{256, "User", "User-defined"},
};

constexpr Paper Unknown{0, "Unknown", "Unknown"};

const Paper& PaperOf(int code) {
  const auto* const found = std::find_if(Papers.begin(), Papers.end(), [&](const Paper& p) { return p.Code == code; });
  return found != Papers.end() ? *found : Unknown;
}

}  // namespace

std::string ShortPaperName(int code) {
  return PaperOf(code).Short;
}

std::string LongPaperName(int code) {
  return PaperOf(code).Long;
}

}  // namespace pixorra
