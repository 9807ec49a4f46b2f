// The program's colours (0x00BBGGRR), all in one place.
#pragma once

#include "platform/services/Picture.h"

namespace pixorra::palette {

// The band behind the film strip, like the edge of a light table.
inline constexpr Colour Band = 0x00A6B1B9;
inline constexpr Colour BandText = 0x0019212B;
inline constexpr Colour BandQuietText = 0x00404A54;
inline constexpr Colour CompanyText = 0x00324A66;
// The film under the thumbnails.
inline constexpr Colour Film = 0x00181C20;
inline constexpr Colour FilmText = 0x00AED3E9;
inline constexpr Colour DraggedText = 0x00808080;
// The frame around the selected thumbnail.
inline constexpr Colour Selection = 0x002E9BF2;
// The open folder's page.
inline constexpr Colour Page = 0x00D6E8F1;
inline constexpr Colour PageText = 0x00262E3A;
// Folder labels on the Desktop.
inline constexpr Colour ClosedLabelBack = 0x00000000;
inline constexpr Colour ClosedLabelText = 0x00C0C0C0;
inline constexpr Colour OpenLabelBack = 0x00C0C0C0;
inline constexpr Colour OpenLabelText = 0x00000000;
inline constexpr Colour CountText = 0x00000000;
inline constexpr Colour DesktopEdge = 0x00566370;

}  // namespace pixorra::palette
