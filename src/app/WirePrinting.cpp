// The commands that print: menus, their shortcuts, the button below the film strip and its pop-up menu.
#include <functional>

#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "platform/runtime/AtExit.h"
#include "printing/PrintPhotos.h"
#include "printing/PrinterSetup.h"
#include "printing/ProofSheets.h"
#include "utility/RunPrintJob.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"

namespace pixorra {

namespace {

// Deliberate: it prints on the press.
void PrintButton_MouseDown(MainForm& main, const MouseArgs& mouse) {
  if (mouse.Button != button::Left) {
    main.Window.PopupMenu(main.menu.PrintPopupMenu);
    return;
  }
  ImageBox& pressed = main.strip.PrintButton;
  pressed.SetBorderStyle(1);
  // The dialog takes the mouse: the button is not told when it is let go.
  const AtExit done([&pressed] { pressed.SetBorderStyle(0); });
  PrintSelectedPhoto(main);
}

}  // namespace

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
  // A job that runs has a document on the printer.
  connect(menu.PrinterSetupMenuItem, [&main] { RunPrintJob(main, [&main] { PrinterSetupMenuItem_Click(main); }); });
  Connect(main.strip.PrintButton.On().MouseDown,
          EndingRename(main, [&main](Control&, const MouseArgs& mouse) { PrintButton_MouseDown(main, mouse); }));
}

}  // namespace pixorra
