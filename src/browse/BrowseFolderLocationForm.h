// The browser: the one dialog in which a place on disk is chosen. It does not hold up the main window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "browse/MyDirTree.h"
#include "browse/PhotoGlance.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Timer.h"
#include "platform/services/FolderReader.h"

namespace pixorra {

struct MainForm;

enum class BrowseMode { Camera, FilmStrip, Show };

// Opens the browser; a beep where it is open already.
void ShowBrowser(MainForm& main, BrowseMode mode);
// Opens it at this folder, for the choice of a film strip. One that is open already begins anew.
void ShowBrowserAt(MainForm& main, const std::string& folder);

class BrowseFolderLocationForm {
  MainForm& main_;  // ahead of the controls, which are made from it

 public:
  explicit BrowseFolderLocationForm(MainForm& main);

  void DisplayDialogCamera();
  void DisplayDialogSrc(const std::string& at = {});  // a folder; empty: where it opens by itself
  void DisplayDialogDest();
  bool IsRunning() const;

  Form Window;  // its Tag is "RUNNING" while it is open
  ComboBox PreviousList{Window, "PreviousList"};
  PictureBox PicDirTree{Window, "PicDirTree"};
  Label FileNamesHeader{Window, "FileNamesHeader"};
  Label PicCount{Window, "PicCount"};
  ListBox MyFiles{Window, "MyFiles"};
  ImageBox PicPreview{Window, "PicPreview"};
  Label PreviewName{Window, "PreviewName"};
  CommandButton CreateButton{Window, "CreateButton"};
  CommandButton SelectButton{Window, "SelectButton"};
  CommandButton CancelButton{Window, "CancelButton"};
  CommandButton HelpButton{Window, "HelpButton"};
  FileListBox File1;  // its Path is the choice
  Timer Timer1{Window, "Timer1", 10};
  MyDirTree DirTree;

 private:
  void ConnectButtons();
  void ConnectLists();
  void ArrangeControls();
  void Open(BrowseMode mode, const char* caption, const char* selectCaption, const std::string& at = {});
  void FillPreviousList();
  std::string StartPath() const;
  void Close();
  void Closed();

  // The tree's callback.
  void SelectedPathChanged(const std::string& path);
  void ReadFolder(const std::string& path);
  void Listed(const FolderReader::Answer& answer);
  void ShowNoFolder();
  void File1_PathChange();
  void ShowLogo();
  void MyFiles_Click();
  void PicPreview_MouseDown(int mouseButton);

  void GoTo(const std::string& typed);
  std::string ProgramPathOf(const std::string& typed) const;

  // Puts off what is to be done with the choice while a folder that has been chosen has not answered: the one before it
  // is not meant any more. True where it is put off.
  bool PutOff(std::function<void()> action);
  void SelectButton_Click();
  void ShowFolder();
  void UseAsFilmStrip();
  void UseAsCamera();
  void CreateButton_Click();
  bool MayCreateIn(const std::string& folder);
  void HelpButton_Click();

  bool placed_ = false;
  std::string startPath_;
  std::string reading_;  // the path that has been asked for and not answered
  std::unique_ptr<FolderReader::Reading> listing_;
  std::unique_ptr<FolderReader::Reading> finding_;
  std::vector<std::optional<std::int64_t>> lengths_;  // of File1's entries
  std::vector<std::string> previous_;                 // the paths of PreviousList's entries
  std::function<void()> whenListed_;                  // what has been put off
  PhotoGlance glance_;
};

// "  8Kb", "1000Kb", " 1.4Mb"; "??" for a length that is not known.
std::string FormatPhotoSize(std::optional<std::int64_t> length);

}  // namespace pixorra
