// The names of papers, by the code that a printer gives for its own (PrintSurface::PaperSize).
#pragma once

#include <string>

namespace pixorra {

// "A4"; "Unknown" for a code that has no name.
std::string ShortPaperName(int code);
// "A4, 210 x 297 mm"; "Unknown" for a code that has no name.
std::string LongPaperName(int code);

}  // namespace pixorra
