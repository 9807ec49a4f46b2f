// The program's colours (0x00BBGGRR), all in one place. Text stands on its ground with a contrast of at least 4.5 : 1.
#pragma once

#include <array>

#include "platform/controls/Tones.h"

namespace pixorra::palette {

// What follows the desktop, light or dark; the names below tell the entries.
inline constexpr std::array<Tone, 6> Tones = {{
    {0x00ABC1CD, 0x002F363D},
    {0x0019212B, 0x00CFDFE9},
    {0x001F3449, 0x0090BCDC},
    {0x00D6E8F1, 0x0022272D},
    {0x00262E3A, 0x00C6D9E6},
    {0x00566370, 0x0010141A},
}};

// The band behind the film strip, like the edge of a light table.
inline constexpr Colour Band = ToneColour(0);
inline constexpr Colour BandText = ToneColour(1);
inline constexpr Colour CompanyText = ToneColour(2);
// The open folder's page.
inline constexpr Colour Page = ToneColour(3);
inline constexpr Colour PageText = ToneColour(4);
// The line around the Desktop.
inline constexpr Colour DesktopEdge = ToneColour(5);

// The film under the thumbnails is dark in any light.
inline constexpr Colour Film = 0x0013161A;
inline constexpr Colour FilmText = 0x00AED3E9;
inline constexpr Colour DraggedText = 0x00808080;
// The frame around the selected thumbnail.
inline constexpr Colour Selection = 0x002E9BF2;
// Folder labels on the Desktop, which shows the user's own picture.
inline constexpr Colour ClosedLabelBack = 0x00000000;
inline constexpr Colour ClosedLabelText = 0x00C0C0C0;
inline constexpr Colour OpenLabelBack = 0x00C0C0C0;
inline constexpr Colour OpenLabelText = 0x00000000;
// Counts, on a folder's tab or with a halo on the picture.
inline constexpr Colour CountText = 0x00000000;
inline constexpr Colour CountHalo = 0x00F0FAFF;
// The caption over the preview.
inline constexpr Colour CaptionBack = 0x00BDEAFB;
inline constexpr Colour CaptionText = 0x00000000;
// The notice of what has been done: letters with a shadow.
inline constexpr Colour NoticeBack = 0x002A3138;
inline constexpr Colour NoticeShadow = 0x00000000;
inline constexpr Colour NoticeCopied = 0x00FFFFFF;
inline constexpr Colour NoticeSaved = 0x0000FFFF;
inline constexpr Colour NoticePrinting = 0x00FFA0A0;

}  // namespace pixorra::palette
