// The menu bar and the pop-up menus of the main window, with their shortcuts.
#pragma once

#include <functional>

#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"

namespace pixorra {

// Every item is disabled until it is connected.
class MenuBar {
  Form& window_;  // ahead of the items, whose constructors use it

 public:
  explicit MenuBar(Form& window);

  MenuItem filemenu{window_, "filemenu", "&File"};
  MenuItem OpenFilmStripMenuItem{filemenu, "OpenFilmStripMenuItem", "&Open Film Strip", 'O', shift::Ctrl};
  MenuItem Separator1{filemenu, "Separator1", "-"};
  MenuItem ShowFolderMenuItem{filemenu, "ShowFolderMenuItem", "&Show Folder", 'S', shift::Ctrl};
  MenuItem HideFolderMenuItem{filemenu, "HideFolderMenuItem", "&Hide Folder", 'H', shift::Ctrl};
  MenuItem Separator2{filemenu, "Separator2", "-"};
  MenuItem PrintMenuItem{filemenu, "PrintMenuItem", "&Print"};
  MenuItem PrintSelectedPhotoMenuItem{PrintMenuItem, "PrintSelectedPhotoMenuItem", "&Selected Photo", key::F1 + 1,
                                      shift::None};
  MenuItem BatchPrintMenuItem{PrintMenuItem, "BatchPrintMenuItem", "&Batch Print"};
  MenuItem BatchPrintFilmStripMenuItem{BatchPrintMenuItem, "BatchPrintFilmStripMenuItem", "&Film Strip", key::F1 + 2,
                                       shift::None};
  MenuItem BatchPrintOpenFolderMenuItem{BatchPrintMenuItem, "BatchPrintOpenFolderMenuItem", "&Open Folder", key::F1 + 3,
                                        shift::None};
  MenuItem PrintProofsMenuItem{PrintMenuItem, "PrintProofsMenuItem", "&Proof Sheet"};
  MenuItem PrintProofFilmStripMenuItem{PrintProofsMenuItem, "PrintProofFilmStripMenuItem", "&Film Strip", key::F1 + 4,
                                       shift::None};
  MenuItem PrintProofOpenFolderMenuItem{PrintProofsMenuItem, "PrintProofOpenFolderMenuItem", "&Open Folder",
                                        key::F1 + 5, shift::None};
  MenuItem PrinterSetupMenuItem{filemenu, "PrinterSetupMenuItem", "Printer Se&tup", key::F1 + 6, shift::None};
  MenuItem Separator3{filemenu, "Separator3", "-"};
  MenuItem PreferenceMenuItem{filemenu, "PreferenceMenuItem", "P&references", 'R', shift::Ctrl};
  MenuItem CompanyNameMenuItem{filemenu, "CompanyNameMenuItem", "Company &Name"};
  MenuItem SetCameraLocationMenuItem{filemenu, "SetCameraLocationMenuItem", "Set Camera &Location", 'L', shift::Ctrl};
  MenuItem ChangeBackgroundMenuItem{filemenu, "ChangeBackgroundMenuItem", "Change &Background", 'B', shift::Ctrl};
  MenuItem Separator4{filemenu, "Separator4", "-"};
  MenuItem ExitMenuItem{filemenu, "ExitMenuItem", "&Exit", 'X', shift::Ctrl};

  MenuItem SelectedPhotoMenu{window_, "SelectedPhotoMenu", "&Selected Photo"};
  MenuItem CopyMenuItem{SelectedPhotoMenu, "CopyMenuItem", "&COPY to Clipboard", 'C', shift::Ctrl};
  MenuItem Separator5{SelectedPhotoMenu, "Separator5", "-"};
  MenuItem SelectedEditMenuItem{SelectedPhotoMenu, "SelectedEditMenuItem", "&Edit", 'E', shift::Ctrl};
  MenuItem SelectedPrintMenuItem{SelectedPhotoMenu, "SelectedPrintMenuItem", "&Print", 'P', shift::Ctrl};
  MenuItem RenameMenuItem{SelectedPhotoMenu, "RenameMenuItem", "&Rename", 'N', shift::Ctrl};
  MenuItem DeleteMenuItem{SelectedPhotoMenu, "DeleteMenuItem", "&Delete", key::Delete, shift::None};
  MenuItem Separator6{SelectedPhotoMenu, "Separator6", "-"};
  MenuItem SelectedViewFullSizeMenuItem{SelectedPhotoMenu, "SelectedViewFullSizeMenuItem",
                                        "&View Full Size            Space"};

  MenuItem OpenFolderMenu{window_, "OpenFolderMenu", "&Open Folder"};
  MenuItem DropMenu{OpenFolderMenu, "DropMenu", "&Drop"};
  MenuItem UndoMenuItem{DropMenu, "UndoMenuItem", "&Undo Last", 'Z', shift::Ctrl};
  MenuItem PasteMenuItem{DropMenu, "PasteMenuItem", "&PASTE from Clipboard", 'V', shift::Ctrl};
  MenuItem RefreshOpenFolderMenuItem{OpenFolderMenu, "RefreshOpenFolderMenuItem", "&Refresh", 'F', shift::Ctrl};
  MenuItem SwapOpenFolderMenuItem{OpenFolderMenu, "SwapOpenFolderMenuItem", "&Swap with Film Strip", 'W', shift::Ctrl};
  MenuItem PrintOpenFolderMenuItem{OpenFolderMenu, "PrintOpenFolderMenuItem", "&Print"};
  MenuItem PrintOpenFolderIndividualPhotosMenuItem{PrintOpenFolderMenuItem, "PrintOpenFolderIndividualPhotosMenuItem",
                                                   "as Individual Photos", 'T', shift::Ctrl};
  MenuItem PrintOpenFolderProofSheetsMenuItem{PrintOpenFolderMenuItem, "PrintOpenFolderProofSheetsMenuItem",
                                              "as Proof Sheets", 'U', shift::Ctrl};
  MenuItem Separator7{OpenFolderMenu, "Separator7", "-"};
  MenuItem RenameOpenFolderMenuItem{OpenFolderMenu, "RenameOpenFolderMenuItem", "R&ename", 'M', shift::Ctrl};
  MenuItem DeleteOpenFolderMenuItem{OpenFolderMenu, "DeleteOpenFolderMenuItem", "De&lete", key::Delete, shift::Shift};

  MenuItem SlideShowMenu{window_, "SlideShowMenu", "S&lide Show"};
  MenuItem SlideShowPlayMenuItem{SlideShowMenu, "SlideShowPlayMenuItem", "&Play"};
  MenuItem SlideShowPlayFilmStripMenuItem{SlideShowPlayMenuItem, "SlideShowPlayFilmStripMenuItem", "&Film Strip",
                                          key::F1 + 7, shift::None};
  MenuItem SlideShowPlayOpenFolderMenuItem{SlideShowPlayMenuItem, "SlideShowPlayOpenFolderMenuItem", "&Open Folder",
                                           key::F1 + 8, shift::None};
  MenuItem SlideShowSpeedMenuItem{SlideShowMenu, "SlideShowSpeedMenuItem", "&Speed"};
  MenuItem SlideShowSpeedFastMenuItem{SlideShowSpeedMenuItem, "SlideShowSpeedFastMenuItem", "&Fast", key::F1,
                                      shift::Ctrl};
  MenuItem SlideShowSpeedMediumMenuItem{SlideShowSpeedMenuItem, "SlideShowSpeedMediumMenuItem", "&Medium", key::F1 + 1,
                                        shift::Ctrl};
  MenuItem SlideShowSpeedSlowMenuItem{SlideShowSpeedMenuItem, "SlideShowSpeedSlowMenuItem", "&Slow", key::F1 + 2,
                                      shift::Ctrl};
  MenuItem SlideShowTitleCounterMenuItem{SlideShowMenu, "SlideShowTitleCounterMenuItem", "&Title and Counter",
                                         key::F1 + 3, shift::Ctrl};
  MenuItem Separator8{SlideShowMenu, "Separator8", "-"};
  MenuItem SlideShowScreenSaverMenuItem{SlideShowMenu, "SlideShowScreenSaverMenuItem", "&Use as ScreenSaver",
                                        key::F1 + 4, shift::Ctrl};

  MenuItem HelpMenu{window_, "HelpMenu", "&Help"};
  MenuItem TipsMenuItem{HelpMenu, "TipsMenuItem", "Tips"};
  MenuItem HelpMenuItem_General{TipsMenuItem, "HelpMenuItem_General", "General"};
  MenuItem HelpSelectFilmStripMenuItem{TipsMenuItem, "HelpSelectFilmStripMenuItem", "Select a Film Strip"};
  MenuItem HelpShowFolderMenuItem{TipsMenuItem, "HelpShowFolderMenuItem", "Show a Folder"};
  MenuItem HelpSetCameraLocationMenuItem{TipsMenuItem, "HelpSetCameraLocationMenuItem", "Set Camera Location"};
  MenuItem HelpMenuItem_Preferences{TipsMenuItem, "HelpMenuItem_Preferences", "Preferences"};
  MenuItem HelpMenuItem_Rename{TipsMenuItem, "HelpMenuItem_Rename", "Renaming"};
  MenuItem HelpMenuItem_Duplicate{TipsMenuItem, "HelpMenuItem_Duplicate", "Duplicates"};
  MenuItem HelpMenuItem_Delete{TipsMenuItem, "HelpMenuItem_Delete", "Deleting"};
  MenuItem HelpMenuItem_Printing{TipsMenuItem, "HelpMenuItem_Printing", "Printing"};
  MenuItem HelpMenuItem_SlideShow{TipsMenuItem, "HelpMenuItem_SlideShow", "Slide Show"};
  MenuItem ManualMenuItem{HelpMenu, "ManualMenuItem", "Manual"};
  MenuItem ViewReadmeMenuItem{HelpMenu, "ViewReadmeMenuItem", "Read Me"};
  MenuItem VisitKestreliaMenuItem{HelpMenu, "VisitKestreliaMenuItem", "Visit Kestrelia"};
  MenuItem Separator9{HelpMenu, "Separator9", "-"};
  MenuItem AboutMenuItem{HelpMenu, "AboutMenuItem", "About", key::F1, shift::None};

  MenuItem FolderPopupMenu{window_, "FolderPopupMenu", "Folder Popup"};
  MenuItem OpenFolderPopupItem{FolderPopupMenu, "OpenFolderPopupItem", "Open"};
  MenuItem RefreshFolderPopupItem{FolderPopupMenu, "RefreshFolderPopupItem", "Refresh"};
  MenuItem SwapFolderMenuItem{FolderPopupMenu, "SwapFolderMenuItem", "Swap"};
  MenuItem Separator10{FolderPopupMenu, "Separator10", "-"};
  MenuItem ShowFolderPopupItem{FolderPopupMenu, "ShowFolderPopupItem", "Show"};
  MenuItem HideFolderPopupItem{FolderPopupMenu, "HideFolderPopupItem", "Hide"};
  MenuItem Separator11{FolderPopupMenu, "Separator11", "-"};
  MenuItem RenameFolderPopupItem{FolderPopupMenu, "RenameFolderPopupItem", "Rename"};
  MenuItem DeleteFolderPopupItem{FolderPopupMenu, "DeleteFolderPopupItem", "Delete"};

  MenuItem TrashcanPopupMenu{window_, "TrashcanPopupMenu", "Trashcan Popup"};
  MenuItem OpenTrashcanPopupItem{TrashcanPopupMenu, "OpenTrashcanPopupItem", "Open"};
  MenuItem RefreshTrashcanPopupItem{TrashcanPopupMenu, "RefreshTrashcanPopupItem", "Refresh"};
  MenuItem SwapTrashcanMenuItem{TrashcanPopupMenu, "SwapTrashcanMenuItem", "Swap"};
  MenuItem Separator12{TrashcanPopupMenu, "Separator12", "-"};
  MenuItem EmptyTrashcanPopupItem{TrashcanPopupMenu, "EmptyTrashcanPopupItem", "Empty"};

  MenuItem PrintPopupMenu{window_, "PrintPopupMenu", "Print Popup"};
  MenuItem SelectedPhotoPrintPopupMenuItem{PrintPopupMenu, "SelectedPhotoPrintPopupMenuItem", "Print Selected Photo"};
  MenuItem FilmStripPrintPopupMenuItem{PrintPopupMenu, "FilmStripPrintPopupMenuItem", "Print Film Strip"};
  MenuItem IndividualsFilmStripPrintPopupMenuItem{FilmStripPrintPopupMenuItem, "IndividualsFilmStripPrintPopupMenuItem",
                                                  "as Individual Photos"};
  MenuItem ProofsFilmStripPrintPopupMenuItem{FilmStripPrintPopupMenuItem, "ProofsFilmStripPrintPopupMenuItem",
                                             "as Proof Sheets"};
  MenuItem OpenFolderPrintPopupMenuItem{PrintPopupMenu, "OpenFolderPrintPopupMenuItem", "Print Open Folder"};
  MenuItem IndividualsOpenFolderPrintPopupMenuItem{OpenFolderPrintPopupMenuItem,
                                                   "IndividualsOpenFolderPrintPopupMenuItem", "as Individual Photos"};
  MenuItem ProofsOpenFolderPrintPopupMenuItem{OpenFolderPrintPopupMenuItem, "ProofsOpenFolderPrintPopupMenuItem",
                                              "as Proof Sheets"};
};

// Gives an item its operation, and enables it; gives a menu what runs when it is about to open.
void Connect(MenuItem& item, const std::function<void()>& operation);

}  // namespace pixorra
