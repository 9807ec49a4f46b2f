// The pages of help: what each topic's command or dialog does, in the words of its labels.
#pragma once

#include <span>
#include <string>

namespace pixorra {

struct MainForm;

enum class HelpTopic {
  General,
  SelectFilmStrip,
  ShowFolder,
  SetCameraLocation,
  Preferences,
  Rename,
  Duplicate,
  Delete,
  Printing,
  SlideShow,
};

// Lines of some 60 characters, a dozen at most, joined by line feeds.
std::span<const char* const> PagesOf(HelpTopic topic);
// "HELP - Rename     [1 of 1]"; pages count from 1.
std::string TitleOf(HelpTopic topic, int page);
// Shows the pages one after the other, each in a message box.
void ShowHelp(MainForm& main, HelpTopic topic);

}  // namespace pixorra
