#include "delete/DeleteDraggedForm.h"

#include <string>
#include <vector>

#include "base/Definition.h"
#include "delete/AskedFolder.h"
#include "delete/DeleteConfirmation.h"
#include "filmstrip/Views.h"
#include "pictures/MarkedPhoto.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Numbers.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int PictureSize = 96;  // pixels

constexpr DeleteConfirmation::Texts Texts{
    .Form = "DeleteDraggedForm",
    .Caption = "Delete All Dragged Photos",
    .Picture = "Photos that have been dragged",
    .Question = "Do you want to delete all of the photos that have already been dragged into folders?",
    .Subject = "DraggedCount",
    .Button = "&Delete them"};

struct MarkedSlot {
  int Number;
  std::string Photo;
};

std::vector<MarkedSlot> MarkedSlots(const FilmStripState& strip) {
  std::vector<MarkedSlot> slots;
  for (int i = 1; i <= strip.SrcSlotCount; ++i) {
    if (IsMarked(strip, i) && !PhotoOf(strip, i).empty()) slots.push_back({i, PhotoOf(strip, i)});
  }
  return slots;
}

// While the question or a message was up the mark may have been taken off, and the strip loaded anew.
bool IsStillMarked(const FilmStripState& strip, const MarkedSlot& slot) {
  return slot.Number <= strip.SrcSlotCount && IsMarked(strip, slot.Number) && PhotoOf(strip, slot.Number) == slot.Photo;
}

void DeleteDragged(MainForm& main, const std::vector<MarkedSlot>& slots, DeleteRun& run) {
  for (const MarkedSlot& slot : slots) {
    if (!run.GoesOn()) break;
    if (!IsStillMarked(main.strip, slot)) continue;
    run.Delete(
        slot.Photo, [&] { return IsChangedSinceMarked(main, slot.Number); },
        "The photo has been changed since it was dragged.");
    if (main.host.toolkit.Ended()) return;
    // Deliberate: also after a failure.
    if (IsStillMarked(main.strip, slot)) EmptySrcSlot(main.strip, slot.Number);
  }
  if (main.host.toolkit.Ended()) return;
  run.Flush();
  Redisplay_FilmStrip(main);
}

}  // namespace

void ShowDeleteDraggedForm(MainForm& main) {
  const std::vector<MarkedSlot> slots = MarkedSlots(main.strip);
  const AskedFolder folder(main.host.files, main.strip.SrcFileList.Path());
  DeleteRun run(main, folder, "Unable to delete dragged Photo");
  DeleteConfirmation form(main, Texts,
                          {.Image = Drawing(main.host, "DeleteDragged", PictureSize, PictureSize),
                           .Width = PictureSize,
                           .Height = PictureSize,
                           .Subject = TrimmedStr(static_cast<double>(slots.size())) + " Dragged Photos"});
  form.Show(run, [&] { DeleteDragged(main, slots, run); });
}

}  // namespace pixorra
