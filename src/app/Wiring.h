// Connecting the events of the main window to their operations, one function a room of the program.
#pragma once

namespace pixorra {

struct MainForm;

void ConnectBrowse(MainForm& main);
void ConnectClipboard(MainForm& main);
void ConnectDelete(MainForm& main);
void ConnectDesktop(MainForm& main);
void ConnectDrop(MainForm& main);
void ConnectFilmStrip(MainForm& main);
void ConnectHelp(MainForm& main);
void ConnectKeys(MainForm& main);
void ConnectPreview(MainForm& main);
void ConnectPrinting(MainForm& main);
void ConnectSelected(MainForm& main);
void ConnectShell(MainForm& main);
void ConnectSpoken(MainForm& main);

}  // namespace pixorra
