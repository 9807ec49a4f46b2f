// A text on paper: its lines one below the other, over as many pages as it takes.
#pragma once

#include <string_view>

namespace pixorra {

class PrintSurface;

// Upright pages with a margin; a line that is too long goes on in the next one, between words where it has any. Begins
// a document and does not end it. Raises what the printer raises.
void PrintText(PrintSurface& printer, std::string_view text);

}  // namespace pixorra
