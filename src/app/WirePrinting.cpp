// The commands that print: menus, their shortcuts, the button below the film strip and its pop-up menu.
#include <functional>

#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "printing/PrintPhotos.h"
#include "printing/PrinterSetup.h"
#include "printing/ProofSheets.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

void ConnectPrinting(MainForm& main) {
  MenuBar& menu = main.menu;
  const auto connect = [&main](MenuItem& item, const std::function<void()>& operation) {
    Connect(item, EndingRename(main, operation));
  };
  for (MenuItem* item :
       {&menu.PrintSelectedPhotoMenuItem, &menu.SelectedPrintMenuItem, &menu.SelectedPhotoPrintPopupMenuItem})
    connect(*item, [&main] { PrintSelectedPhoto(main); });
  for (MenuItem* item : {&menu.BatchPrintFilmStripMenuItem, &menu.IndividualsFilmStripPrintPopupMenuItem})
    connect(*item, [&main] { PrintPhotoBatch(main, BatchSource::FilmStrip); });
  connect(menu.IndividualsOpenFolderPrintPopupMenuItem, [&main] { PrintPhotoBatch(main, BatchSource::OpenFolder); });
  for (MenuItem* item : {&menu.BatchPrintOpenFolderMenuItem, &menu.PrintOpenFolderIndividualPhotosMenuItem})
    connect(*item, [&main] { BatchPrintOpenFolderMenuItem_Click(main); });
  for (MenuItem* item : {&menu.PrintProofFilmStripMenuItem, &menu.ProofsFilmStripPrintPopupMenuItem})
    connect(*item, [&main] { PrintProofSheets(main, BatchSource::FilmStrip); });
  connect(menu.ProofsOpenFolderPrintPopupMenuItem, [&main] { PrintProofSheets(main, BatchSource::OpenFolder); });
  for (MenuItem* item : {&menu.PrintProofOpenFolderMenuItem, &menu.PrintOpenFolderProofSheetsMenuItem})
    connect(*item, [&main] { PrintProofOpenFolderMenuItem_Click(main); });
  connect(menu.PrinterSetupMenuItem, [&main] { PrinterSetupMenuItem_Click(main); });
}

}  // namespace pixorra
