// Arranging the strip's slots: all, what remains, none.
#pragma once

namespace pixorra {

struct MainForm;

// Arranges by the present mode and keeps the scroll position.
void Redisplay_FilmStrip(MainForm& main);
void ArrangeAll(MainForm& main);
void ArrangeRemaining(MainForm& main);
// Unloads all slots.
void ClearFilmStrip(MainForm& main);
void AllOption_Click(MainForm& main);
void RemainingOption_Click(MainForm& main);
void AutoScrollOption_Click(MainForm& main);

}  // namespace pixorra
