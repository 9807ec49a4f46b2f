// A text on paper: its lines one below the other, over as many pages as it takes.
#pragma once

#include <string_view>

namespace pixorra {

class PrintSurface;

// Begins a document of upright pages, by printing a blank. Raises what the printer raises.
void BeginText(PrintSurface& printer);
// Its lines, with a margin around them; one that is too long is continued in the next, between words where it has any.
// Does not end the document. Raises what the printer raises.
void PrintText(PrintSurface& printer, std::string_view text);

}  // namespace pixorra
