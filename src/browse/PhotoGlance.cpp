#include "browse/PhotoGlance.h"

#include "base/ShownNames.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Form.h"
#include "platform/services/ReadAhead.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

namespace {

constexpr int WaitingInterval = 10;  // milliseconds

}  // namespace

PhotoGlance::PhotoGlance(MainForm& main, FileListBox& files, ImageBox& preview, Label& name)
    : main_(main),
      files_(files),
      preview_(preview),
      name_(name),
      waiting_(*preview.GetContainer(), "GlanceWaiting", WaitingInterval) {
  preview_.SetShowsPhotoOfTag(true);
  Connect(waiting_.On().Timer, [this](Control&) {
    if (!main_.host.readAhead.IsReady(path_, main_.pictures.lDecodeScale)) return;
    waiting_.SetEnabled(false);
    ShowNow();
  });
}

void PhotoGlance::Show(int index) {
  step_ = index < index_ ? -1 : 1;
  index_ = index;
  path_ = files_.FullPath(index);
  const bool prepared = IsPrepared();
  waiting_.SetEnabled(!prepared);
  if (prepared) ShowNow();
}

void PhotoGlance::Stop() {
  index_ = -1;
  path_.clear();
  waiting_.SetEnabled(false);
  main_.host.readAhead.Expect(ReadAhead::Reader::Browser, {}, 0, {});
}

// A photo whose thumbnail is in the cache need not wait.
bool PhotoGlance::IsPrepared() {
  ReadAhead& ahead = main_.host.readAhead;
  const QuickThumbs cache = QuickThumbsOf(main_);
  if (ahead.Depth() == 0) return true;
  std::vector<std::string> wanted;
  for (int i = index_; i >= 0 && i < files_.ListCount() && static_cast<int>(wanted.size()) < ahead.Depth();
       i += step_) {
    const std::string path = files_.FullPath(i);
    if (cache.HasQuickThumb(path)) break;  // this folder has been looked through from here on
    wanted.push_back(path);
  }
  ahead.Expect(ReadAhead::Reader::Browser, wanted, main_.pictures.lDecodeScale, ThumbnailSizes);
  return ahead.IsReady(path_, main_.pictures.lDecodeScale);
}

void PhotoGlance::ShowNow() {
  const std::string path = path_;
  preview_.Move(preview_.Left(), preview_.Top(), ThumbnailWidth, ThumbnailHeight);
  bool bDragged = false;
  preview_.SetTag(path);
  PaintThumbnail(main_, preview_, path, bDragged);
  // A message about the photo lets the user go on to another one.
  if (path != path_) return;
  name_.SetCaption(ShownBaseName(main_.host.files, path));
  preview_.SetStretch(true);
}

}  // namespace pixorra
