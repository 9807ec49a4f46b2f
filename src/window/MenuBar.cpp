#include "window/MenuBar.h"

namespace pixorra {

MenuBar::MenuBar(Form& window) : window_(window) {
  for (MenuItem* popup : {&FolderPopupMenu, &TrashcanPopupMenu, &PrintPopupMenu}) popup->SetVisible(false);
  SlideShowSpeedMediumMenuItem.SetChecked(true);
  SlideShowTitleCounterMenuItem.SetChecked(true);
  // What cannot be done yet cannot be chosen.
  for (MenuItem* item : {
           &OpenFilmStripMenuItem,
           &ShowFolderMenuItem,
           &PrintSelectedPhotoMenuItem,
           &BatchPrintFilmStripMenuItem,
           &BatchPrintOpenFolderMenuItem,
           &PrintProofFilmStripMenuItem,
           &PrintProofOpenFolderMenuItem,
           &PrinterSetupMenuItem,
           &CompanyNameMenuItem,
           &SetCameraLocationMenuItem,
           &ChangeBackgroundMenuItem,
           &CopyMenuItem,
           &SelectedEditMenuItem,
           &SelectedPrintMenuItem,
           &RenameMenuItem,
           &DeleteMenuItem,
           &SelectedViewFullSizeMenuItem,
           &UndoMenuItem,
           &PasteMenuItem,
           &SwapOpenFolderMenuItem,
           &PrintOpenFolderIndividualPhotosMenuItem,
           &PrintOpenFolderProofSheetsMenuItem,
           &RenameOpenFolderMenuItem,
           &DeleteOpenFolderMenuItem,
           &SlideShowPlayFilmStripMenuItem,
           &SlideShowPlayOpenFolderMenuItem,
           &SlideShowSpeedFastMenuItem,
           &SlideShowSpeedMediumMenuItem,
           &SlideShowSpeedSlowMenuItem,
           &SlideShowTitleCounterMenuItem,
           &SlideShowScreenSaverMenuItem,
           &HelpMenuItem_General,
           &HelpSelectFilmStripMenuItem,
           &HelpShowFolderMenuItem,
           &HelpSetCameraLocationMenuItem,
           &HelpMenuItem_Preferences,
           &HelpMenuItem_Rename,
           &HelpMenuItem_Duplicate,
           &HelpMenuItem_Delete,
           &HelpMenuItem_Printing,
           &HelpMenuItem_SlideShow,
           &VisitKestreliaMenuItem,
           &AboutMenuItem,
           &SwapFolderMenuItem,
           &ShowFolderPopupItem,
           &RenameFolderPopupItem,
           &DeleteFolderPopupItem,
           &SwapTrashcanMenuItem,
           &EmptyTrashcanPopupItem,
           &SelectedPhotoPrintPopupMenuItem,
           &IndividualsFilmStripPrintPopupMenuItem,
           &ProofsFilmStripPrintPopupMenuItem,
           &IndividualsOpenFolderPrintPopupMenuItem,
           &ProofsOpenFolderPrintPopupMenuItem,
       }) {
    item->SetEnabled(false);
  }
}

}  // namespace pixorra
