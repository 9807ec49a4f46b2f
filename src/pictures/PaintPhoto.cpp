#include "pictures/PaintPhoto.h"

#include <vector>

#include "base/Routines.h"
#include "pictures/PictureLoader.h"
#include "pictures/QuickThumbs.h"
#include "pictures/Scratch.h"
#include "platform/pixels/Fit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Pictures.h"
#include "platform/services/Places.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

namespace {

// The first pass is composed at ten times the thumbnail's size, so that the last reduction is a plain one.
constexpr double ThumbnailFactor = 10;
constexpr int SmallTarget = 300;
// A narrow one that is higher is large all the same.
constexpr int SmallTargetHeight = 2000;
constexpr double SmallTargetFactor = 3;

std::string InProgramFolder(Host& host, const char* name) {
  return StripTrailingBackslash(host.places.ProgramFolder()) + name;
}

void MakeCanvas(PictureBox& canvas, int width, int height, Colour backColour) {
  canvas.SetWidth(width);
  canvas.SetHeight(height);
  canvas.SetBackColor(backColour);
  canvas.SetPicture(Picture());
}

void ComposeThumbnail(Host& host, PictureBox& canvas, ImageBox& photo, int width, int height) {
  MakeCanvas(canvas, width, height, ButtonFace);
  const Picture picture = photo.GetPicture();
  const FittedRect fitted = Fit(width, height, picture.Width(), picture.Height());
  canvas.PaintPicture(picture, fitted.X, fitted.Y, fitted.Width, fitted.Height);
  canvas.Refresh();

  const std::string file = InProgramFolder(host, "\\$$T$T.$T$");
  const Picture fittedPhoto = host.pictures.SaveAndLoad(canvas.Image(), file);
  photo.SetPicture(Picture());
  photo.SetPicture(fittedPhoto);
  photo.Refresh();
  host.files.Delete(file);
}

void ReduceThumbnail(Host& host, Scratch<PictureBox>& canvas, const ImageBox& photo, ImageBox& target) {
  const int width = target.Width();
  const int height = target.Height();
  canvas->Cls();
  canvas->SetPicture(Picture());
  canvas.Renew();  // at the small size only
  MakeCanvas(*canvas, width, height, 0);
  canvas->PaintPicture(photo.GetPicture(), 0, 0, width, height);
  canvas->Refresh();

  const std::string file = InProgramFolder(host, "\\$W$$.$W$");
  const Picture thumbnail = host.pictures.SaveAndLoad(canvas->Image(), file);
  target.SetPicture(Picture());
  target.SetPicture(thumbnail);
  target.Refresh();
  host.files.Delete(file);
}

// A photo is first composed on a canvas, of that size, in that place.
struct Composition {
  int Width = 0;
  int Height = 0;
  FittedRect Fitted;
};

Composition Compose(PixelSize target, PixelSize photo) {
  const bool isSmall = target.Width <= SmallTarget && target.Height <= SmallTargetHeight;
  const double factor = isSmall ? SmallTargetFactor : 1;
  const int width = CLng(target.Width * factor);
  const int height = CLng(target.Height * factor);
  return {width, height, Fit(width, height, photo.Width, photo.Height)};
}

// Sets the photo's size as soon as it is known, and `ok` at the end.
void ComposeImage(Host& host, Scratch<PictureBox>& canvas, ImageBox& photo, ImageBox& target, Colour backColour,
                  PaintedImage& painted) {
  painted.width = photo.Width();
  painted.height = photo.Height();
  const Picture picture = photo.GetPicture();
  const Composition composed = Compose({target.Width(), target.Height()}, PixelSize{picture.Width(), picture.Height()});
  MakeCanvas(*canvas, composed.Width, composed.Height, backColour);
  if (composed.Fitted.Fills) {
    canvas->SetPicture(picture);  // at its own size; the last step stretches it over the target
  } else {
    canvas->PaintPicture(picture, composed.Fitted.X, composed.Fitted.Y, composed.Fitted.Width, composed.Fitted.Height);
  }
  photo.SetPicture(canvas->Image());

  const int width = target.Width();
  const int height = target.Height();
  canvas.Renew();
  canvas->SetBackColor(backColour);  // a picture that is transparent has stayed so
  canvas->SetWidth(width);
  canvas->SetHeight(height);
  canvas->PaintPicture(photo.GetPicture(), 0, 0, width, height);
  const std::string file = InProgramFolder(host, "\\preview.tmp");
  target.SetPicture(host.pictures.SaveAndLoad(canvas->Image(), file));
  painted.ok = true;
}

Pictures::PaintedSizes SizesFor(PixelSize target) {
  return [target](int width, int height) {
    std::vector<PixelSize> sizes;
    ErrorsIgnored([&] { sizes.push_back(StretchedSize(target, {width, height})); });
    return sizes;
  };
}

}  // namespace

void PaintThumbnail(MainForm& main, ImageBox& target, const std::string& path, bool& bDragged) {
  const int scratch = NextScratchIndex(main.pictures);
  const Scratch<ImageBox> photo(main.pictures.TempImage, scratch);
  Scratch<PictureBox> canvas(main.pictures.TempPic, scratch);
  const int width = CLng(target.Width() * ThumbnailFactor);
  const int height = CLng(target.Height() * ThumbnailFactor);
  target.Refresh();
  // A message while the photo is loaded lets events run, and the slot may be unloaded.
  const Watch<ImageBox> alive(target);
  if (!QuickThumbsOf(main).ReadQuickThumb(path, target, bDragged)) {
    FileStamp decoded;
    const bool loaded = LoadPictureFile(main, path, *photo, true, &decoded);
    if (!alive) return;
    if (loaded) {
      // A failure on the way costs only this thumbnail.
      ErrorsIgnored([&] {
        ComposeThumbnail(main.host, *canvas, *photo, width, height);
        ReduceThumbnail(main.host, canvas, *photo, target);
        QuickThumbsOf(main).AddQuickThumb(path, target.GetPicture(), decoded);
        bDragged = false;
      });
    } else {
      target.SetPicture(Picture());
      target.SetPicture(main.pictures.InvalidPicture);
    }
  }
  target.Refresh();
}

std::vector<PixelSize> ThumbnailSizes(int width, int height) {
  if (height < 1) return {};
  const FittedRect fitted =
      Fit(CLng(ThumbnailWidth * ThumbnailFactor), CLng(ThumbnailHeight * ThumbnailFactor), width, height);
  return {{CLng(fitted.Width), CLng(fitted.Height)}};
}

PixelSize StretchedSize(PixelSize target, PixelSize photo) {
  const FittedRect fitted = Compose(target, photo).Fitted;
  return fitted.Fills ? target : PixelSize{CLng(fitted.Width), CLng(fitted.Height)};
}

PaintedImage PaintImage(MainForm& main, const std::string& path, ImageBox& target, Colour backColour,
                        PhotoDecode decode) {
  const int scratch = NextScratchIndex(main.pictures);
  const Scratch<ImageBox> photo(main.pictures.TempImage, scratch);
  Scratch<PictureBox> canvas(main.pictures.TempPic, scratch);
  const Watch<ImageBox> alive(target);
  PaintedImage painted;
  const bool loaded =
      decode == PhotoDecode::Whole
          ? LoadPictureFile(main, path, *photo, false, &painted.decoded)
          : LoadPictureToPaint(main, path, *photo, SizesFor({target.Width(), target.Height()}), &painted.decoded);
  if (!alive) return painted;
  if (loaded) {
    ErrorsIgnored([&] { ComposeImage(main.host, canvas, *photo, target, backColour, painted); });
  } else {
    target.SetPicture(Picture());
    main.host.dialogs.Beep();
  }
  return painted;
}

}  // namespace pixorra
