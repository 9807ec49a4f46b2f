#include "printing/PrintPhotos.h"

namespace pixorra {

void PrintSelectedPhoto(MainForm& /*main*/) {}

void PrintPhotoBatch(MainForm& /*main*/, BatchSource /*source*/) {}

void BatchPrintOpenFolderMenuItem_Click(MainForm& main) {
  PrintPhotoBatch(main, BatchSource::OpenFolder);
}

}  // namespace pixorra
