// Connecting the events of each subsystem to its operations.
#pragma once

namespace pixorra {

struct MainForm;

void ConnectFilmStrip(MainForm& main);
void ConnectPreview(MainForm& main);
void ConnectDesktop(MainForm& main);
void ConnectDrop(MainForm& main);

}  // namespace pixorra
