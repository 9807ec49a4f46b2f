// The paper codes of the print surface, and the toolkit's page sizes.
#pragma once

#include <QPageSize>

namespace pixorra {

inline constexpr int UserDefinedPaper = 256;

// 1 to 41, or UserDefinedPaper where no code has that size.
int PaperCodeOf(const QPageSize& paper);
// Not valid where the code is none of 1 to 41.
QPageSize PaperOfCode(int code);

}  // namespace pixorra
