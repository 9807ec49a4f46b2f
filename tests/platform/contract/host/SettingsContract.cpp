// Texts that outlive the program, on every back end.
#include "tests/platform/contract/host/ContractHost.h"

namespace pixorra {
namespace {

class SettingsContract : public HostContract {
 protected:
  Settings& settings = host->GetSettings();
};

TEST_F(SettingsContract, WhatWasNeverSavedIsWhatTheCallerSays) {
  EXPECT_EQ(settings.GetSetting("Pixorra", "ScreenSaver", "Duration", "3"), "3");
  EXPECT_EQ(settings.GetSetting("", "", "", ""), "");
}

TEST_F(SettingsContract, TheLastTextThatWasSavedComesBack) {
  settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "1");
  EXPECT_EQ(settings.GetSetting("Pixorra", "ScreenSaver", "Duration", "x"), "1");
}

TEST_F(SettingsContract, AnotherNameIsAnotherSetting) {
  settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  EXPECT_EQ(settings.GetSetting("Other", "ScreenSaver", "Duration", "x"), "x");
  EXPECT_EQ(settings.GetSetting("Pixorra", "Other", "Duration", "x"), "x");
  EXPECT_EQ(settings.GetSetting("Pixorra", "ScreenSaver", "Other", "x"), "x");
  settings.SaveSetting("a", "b/c", "d", "1");
  EXPECT_EQ(settings.GetSetting("a/b", "c", "d", "x"), "x");
}

TEST_F(SettingsContract, LetterCaseDoesNotCountInNamesAndDoesInTexts) {
  settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "Seven");
  EXPECT_EQ(settings.GetSetting("PIXORRA", "screensaver", "DURATION", "x"), "Seven");
  settings.SaveSetting("\xC3\x84", "s", "k", "1");
  settings.SaveSetting("\xC3\xA4", "S", "K", "2");
  EXPECT_EQ(settings.GetSetting("\xC3\x84", "s", "k", "x"), "2");
}

TEST_F(SettingsContract, AnEmptyTextIsASetting) {
  settings.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "");
  EXPECT_EQ(settings.GetSetting("Pixorra", "ScreenSaver", "SourceLocation", "x"), "");
}

TEST_F(SettingsContract, AnyNamesAndTextsComeBack) {
  const auto texts = {"",  " ",      "  two  ",  "two\nlines",     "tab\t\r", "[group]", "a=b",     "#c",
                      ";", "a;b\\;", "\xC3\xA4", "C:\\new\\table", "\\s",     "\\\\n",   "/a\\b\\", "100%"};
  for (const char* text : texts) settings.SaveSetting(text, text, text, text);
  for (const char* text : texts)
    EXPECT_EQ(settings.GetSetting(text, text, text, "lost"), text) << ::testing::PrintToString(text);
}

}  // namespace
}  // namespace pixorra
