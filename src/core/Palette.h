// The program's colours (0x00BBGGRR), all in one place.
#pragma once

#include "platform/services/Picture.h"

namespace pixorra::palette {

// The band behind the film strip, like the edge of a light table.
inline constexpr Colour Band = 0x00303A44;
inline constexpr Colour BandText = 0x00E4EEF4;
inline constexpr Colour BandQuietText = 0x00B4C4CE;
inline constexpr Colour CompanyText = 0x0080B8E8;
// The film under the thumbnails.
inline constexpr Colour Film = 0x00161A1E;
inline constexpr Colour FilmText = 0x00D8E6F0;
inline constexpr Colour DraggedText = 0x00808080;
// The frame around the selected thumbnail.
inline constexpr Colour Selection = 0x0030A8F8;
// The open folder's page.
inline constexpr Colour Page = 0x00E8EEF2;
inline constexpr Colour PageText = 0x00303A44;
// Folder labels on the Desktop.
inline constexpr Colour ClosedLabelBack = 0x00000000;
inline constexpr Colour ClosedLabelText = 0x00C0C0C0;
inline constexpr Colour OpenLabelBack = 0x00C0C0C0;
inline constexpr Colour OpenLabelText = 0x00000000;
inline constexpr Colour CountText = 0x00000000;
inline constexpr Colour DesktopEdge = 0x00303A44;

}  // namespace pixorra::palette
