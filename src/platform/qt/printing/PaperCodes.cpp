#include "platform/qt/printing/PaperCodes.h"

#include <algorithm>
#include <array>

namespace pixorra {

namespace {

struct CodedPaper {
  int Code;
  QPageSize::PageSizeId Id;
};

// Of several sizes with one code the first is what the code means; of several codes with one size likewise.
constexpr std::array Papers = {
    CodedPaper{1, QPageSize::Letter},
    CodedPaper{2, QPageSize::LetterSmall},
    CodedPaper{3, QPageSize::Tabloid},
    CodedPaper{4, QPageSize::Ledger},
    CodedPaper{5, QPageSize::Legal},
    CodedPaper{6, QPageSize::Statement},
    CodedPaper{7, QPageSize::ExecutiveStandard},
    CodedPaper{7, QPageSize::Executive},
    CodedPaper{8, QPageSize::A3},
    CodedPaper{9, QPageSize::A4},
    CodedPaper{10, QPageSize::A4Small},
    CodedPaper{11, QPageSize::A5},
    CodedPaper{12, QPageSize::B4},
    CodedPaper{12, QPageSize::JisB4},
    CodedPaper{13, QPageSize::JisB5},
    CodedPaper{14, QPageSize::Folio},
    CodedPaper{15, QPageSize::Quarto},
    CodedPaper{16, QPageSize::Imperial10x14},
    CodedPaper{17, QPageSize::Tabloid},
    CodedPaper{18, QPageSize::Note},
    CodedPaper{19, QPageSize::Envelope9},
    CodedPaper{20, QPageSize::Comm10E},
    CodedPaper{21, QPageSize::Envelope11},
    CodedPaper{22, QPageSize::Envelope12},
    CodedPaper{23, QPageSize::Envelope14},
    CodedPaper{24, QPageSize::AnsiC},
    CodedPaper{25, QPageSize::AnsiD},
    CodedPaper{26, QPageSize::AnsiE},
    CodedPaper{27, QPageSize::DLE},
    CodedPaper{28, QPageSize::C5E},
    CodedPaper{29, QPageSize::EnvelopeC3},
    CodedPaper{30, QPageSize::EnvelopeC4},
    CodedPaper{31, QPageSize::EnvelopeC6},
    CodedPaper{32, QPageSize::EnvelopeC65},
    CodedPaper{33, QPageSize::EnvelopeB4},
    CodedPaper{34, QPageSize::EnvelopeB5},
    CodedPaper{34, QPageSize::B5},
    CodedPaper{35, QPageSize::EnvelopeB6},
    CodedPaper{35, QPageSize::B6},
    CodedPaper{36, QPageSize::EnvelopeItalian},
    CodedPaper{37, QPageSize::EnvelopeMonarch},
    CodedPaper{38, QPageSize::EnvelopePersonal},
    CodedPaper{39, QPageSize::FanFoldUS},
    CodedPaper{40, QPageSize::FanFoldGerman},
    CodedPaper{41, QPageSize::FanFoldGermanLegal},
};

}  // namespace

int PaperCodeOf(const QPageSize& paper) {
  const auto found =
      std::find_if(Papers.begin(), Papers.end(), [&](const CodedPaper& each) { return each.Id == paper.id(); });
  return found != Papers.end() ? found->Code : UserDefinedPaper;
}

QPageSize PaperOfCode(int code) {
  const auto found =
      std::find_if(Papers.begin(), Papers.end(), [&](const CodedPaper& each) { return each.Code == code; });
  return found != Papers.end() ? QPageSize(found->Id) : QPageSize();
}

}  // namespace pixorra
