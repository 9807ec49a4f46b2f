// Letters of a printed page.
#pragma once

#include <QFont>
#include <string>

namespace pixorra {

// A pixel of the font is a twip. Its figures are those of the letters' outlines, whatever the screen is like. Where the
// host has no Arial, letters of the same widths take its place.
QFont PrintFont(const std::string& name, double points, bool bold);

}  // namespace pixorra
