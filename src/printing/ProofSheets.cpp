#include "printing/ProofSheets.h"

namespace pixorra {

void PrintProofSheets(MainForm& /*main*/, BatchSource /*source*/) {}

void PrintProofOpenFolderMenuItem_Click(MainForm& main) {
  PrintProofSheets(main, BatchSource::OpenFolder);
}

}  // namespace pixorra
