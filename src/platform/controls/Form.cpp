#include "platform/controls/Form.h"

#include <algorithm>

#include "platform/controls/FineSurface.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// The size, in twips, that the system gives to a window that asks for `twips`; it counts in pixels. On a screen that is
// smaller than the smallest window, the screen decides.
double Granted(double twips, int smallest, double screen) {
  const double wanted = RoundHalfEven(twips);
  const bool tooSmall = RoundHalfEven(wanted / TwipsPerPixel) < smallest;
  return std::min(tooSmall ? smallest * TwipsPerPixel : wanted, screen);
}

}  // namespace

Form::Form(Toolkit& toolkit, const std::string& name)
    : Container(nullptr, Kind::Form, std::make_shared<Identity>(Identity{name, {}}), 0), toolkit_(toolkit) {
  SetVisible(false);
  toolkit_.GetWindows().Add(*this);
  Resized();
}

Form::~Form() {
  DropPeersWithin();
  DropPeer();
  toolkit_.GetWindows().Remove(*this);
}

void Form::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed(Change::Text);
}

void Form::SetBackColor(Colour colour) {
  backColor_ = colour;
  InvalidateAll();
}

void Form::SetSizable(bool sizable) {
  if (sizable == sizable_) return;
  sizable_ = sizable;
  Changed(Change::State);
}

void Form::SetTwipsLeft(double twips) {
  left_ = RoundHalfEven(twips);
  shownLeft_ = left_;
  hasPlace_ = true;
  Changed(Change::Position);
}

void Form::SetTwipsTop(double twips) {
  top_ = RoundHalfEven(twips);
  shownTop_ = top_;
  hasPlace_ = true;
  Changed(Change::Position);
}

void Form::SetTwipsWidth(double twips) {
  if (windowState_ != windowstate::Normal) throw RuntimeError(error::BadPropertyValue);
  const double width = Granted(twips, SmallestWidth, toolkit_.LargestWindow().Width);
  if (width == width_) return;
  width_ = width;
  Resized();
}

void Form::SetTwipsHeight(double twips) {
  if (windowState_ != windowstate::Normal) throw RuntimeError(error::BadPropertyValue);
  const double height = Granted(twips, SmallestHeight, toolkit_.LargestWindow().Height);
  if (height == height_) return;
  height_ = height;
  Resized();
}

void Form::SetClientSize(int width, int height) {
  const int menu = HasMenuBar() ? toolkit_.MenuBarHeight() : 0;
  SetTwipsWidth(width * TwipsPerPixel + frameWidth_);
  SetTwipsHeight((height + menu) * TwipsPerPixel + frameHeight_);
}

void Form::SetFrame(double twipsWidth, double twipsHeight) {
  if (twipsWidth == frameWidth_ && twipsHeight == frameHeight_) return;
  frameWidth_ = twipsWidth;
  frameHeight_ = twipsHeight;
  Resized();
}

void Form::CentreOn(const Form* owner) {
  if (owner != nullptr) {
    CentreAt(owner->shownLeft_ + owner->width_ / 2, owner->shownTop_ + owner->height_ / 2);
  } else {
    const Screen screen = toolkit_.GetScreen();
    CentreAt(screen.Left + screen.Width / 2, screen.Top + screen.Height / 2);
  }
}

// Of a form that is larger than the screen the top left is there.
void Form::CentreAt(double twipsX, double twipsY) {
  const Screen screen = toolkit_.GetScreen(toolkit_.ScreenAt(twipsX, twipsY));
  const auto within = [](double middle, double size, double first, double all) {
    return std::max(first, std::min(middle - size / 2, first + all - size));
  };
  SetTwipsLeft(within(twipsX, width_, screen.Left, screen.Width));
  SetTwipsTop(within(twipsY, height_, screen.Top, screen.Height));
}

void Form::SetWindowState(int state) {
  if (state < windowstate::Normal || state > windowstate::Maximised) throw RuntimeError(error::BadPropertyValue);
  if (state == windowState_) return;
  windowState_ = state;
  Changed(Change::State);
}

void Form::SetFullScreen(bool fullScreen) {
  if (fullScreen == fullScreen_) return;
  fullScreen_ = fullScreen;
  toolkit_.GetWindows().StackChanged();
  Changed(Change::State);
  Resized();
}

void Form::SetFullScreenOn(int screen) {
  if (screen == screen_) return;
  screen_ = screen;
  if (fullScreen_) Resized();
}

void Form::ScreenChanged() {
  if (fullScreen_) Resized();
}

int Form::ScaleWidth() const {
  if (fullScreen_) return CLng(toolkit_.GetScreen(screen_).Width / TwipsPerPixel);
  return std::max(0, CLng((width_ - frameWidth_) / TwipsPerPixel));
}

int Form::ScaleHeight() const {
  if (fullScreen_) return CLng(toolkit_.GetScreen(screen_).Height / TwipsPerPixel);
  const int menu = HasMenuBar() ? toolkit_.MenuBarHeight() : 0;
  return std::max(0, CLng((height_ - frameHeight_) / TwipsPerPixel) - menu);
}

void Form::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPicture);
  const Rect at{CLng(x), CLng(y), CLng(width), CLng(height)};
  const PixelSize size{ScaleWidth(), ScaleHeight()};
  const double fineness = toolkit_.Fineness();
  const Rect whole = FineRect({0, 0, size.Width, size.Height}, fineness);
  if (size != drawingSize_ || whole.Width != drawing_.Width() || whole.Height != drawing_.Height()) {
    drawing_ = Bitmap();
    drawing_ = Bitmap(whole.Width, whole.Height, PixelFormat::Bgr24);
    // What is drawn stays as it is when the desktop turns dark.
    drawing_.Fill(SolidColour(toolkit_.PlainColour(backColor_, false)));
    drawingSize_ = size;
  }
  StretchFine(picture, drawing_, at, fineness);
  InvalidateAll();
}

void Form::Cls() {
  if (drawing_.IsEmpty()) return;
  drawing_ = Bitmap();
  drawingSize_ = {};
  InvalidateAll();
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  toolkit_.GetTimers().FormLoaded(*this);
  Raise(On().Load, static_cast<Control&>(*this));
}

void Form::Show() {
  Load();
  if (!loaded_ || toolkit_.Ended()) return;
  MakePeer();
  MakePeersWithin();
  SetVisible(true);
  toolkit_.Activate(*this);
}

void Form::ShowOwned(Form* owner) {
  owner_ = Watch<Form>::Of(owner);
  Show();
}

void Form::ShowModal(Form* owner) {
  Toolkit& toolkit = toolkit_;
  const Watch<Control> before = toolkit.GetWindows().FocusBefore(*this);
  RunModal(owner);
  // The form may have been destroyed, and what ran meanwhile may have hidden or disabled the control.
  if (before && before->Enabled() && before->IsShown()) before->SetFocus();
}

void Form::RunModal(Form* owner) {
  owner_ = Watch<Form>::Of(owner);
  modal_ = true;
  // Also when loading it, or a handler that runs meanwhile, raises.
  const Watch<Form> form(*this);
  const AtExit done([&form] {
    if (!form) return;
    form->modal_ = false;
    form->toolkit_.PopModal(*form.Get());
    form->Changed(Change::State);
  });
  toolkit_.PushModal(*this);
  Show();
  toolkit_.WaitUntil([&] { return !form || !form->Visible(); });
}

// The other forms take input at once, and not only when its ShowModal returns.
void Form::Hide() {
  SetVisible(false);
  toolkit_.PopModal(*this);
  toolkit_.GetWindows().Deactivate(*this);
}

void Form::SetStaysOnTop(bool onTop) {
  onTop_ = onTop;
  toolkit_.GetWindows().StackChanged();
  Changed(Change::State);
}

void Form::Unload() {
  if (!loaded_ || unloading_) return;
  // A handler may raise, and may destroy the form.
  const Watch<Form> form(*this);
  const AtExit done([&form] {
    if (form) form->unloading_ = false;
  });
  unloading_ = true;
  Raise(On().QueryUnload, static_cast<Control&>(*this));
  if (!form) return;
  Raise(On().Unload, static_cast<Control&>(*this));
  if (!form) return;
  loaded_ = false;
  Cls();
  toolkit_.GetTimers().Changed();
  Hide();
  DropPeersWithin();
  DropPeer();
  UnloadOwned();
}

void Form::UnloadOwned() {
  std::vector<Watch<Form>> owned;
  for (Form* form : toolkit_.Forms()) {
    if (form->Owner() == this && !form->IsModal()) owned.emplace_back(*form);
  }
  for (const Watch<Form>& form : owned) {
    if (form) form->Unload();
  }
}

bool Form::HasMenuBar() const {
  return !fullScreen_ &&
         std::any_of(menus_.begin(), menus_.end(), [](const MenuItem* menu) { return menu->Visible(); });
}

void Form::AddMenu(MenuItem& menu) {
  menus_.push_back(&menu);
  MenuChanged();
}

void Form::RemoveMenu(MenuItem& menu) {
  std::erase(menus_, &menu);
}

// A menu bar that comes or goes takes its height from what is left inside.
void Form::MenuChanged() {
  SetBounds({0, 0, ScaleWidth(), ScaleHeight()});
  if (GetPeer() != nullptr) GetPeer()->Update(Change::Menu);
}

void Form::PopupMenu(MenuItem& menu) {
  toolkit_.PopupMenu(*this, menu);
}

void Form::UserResized(double twipsWidth, double twipsHeight, int windowState) {
  if (windowState == windowState_ && twipsWidth == width_ && twipsHeight == height_) return;
  windowState_ = windowState;
  width_ = twipsWidth;
  height_ = twipsHeight;
  Resized();
}

void Form::UserMoved(double twipsLeft, double twipsTop) {
  left_ = twipsLeft;
  top_ = twipsTop;
  hasPlace_ = true;
  UserPlaced(twipsLeft, twipsTop);
}

void Form::UserPlaced(double twipsLeft, double twipsTop) {
  shownLeft_ = twipsLeft;
  shownTop_ = twipsTop;
}

void Form::UserClosed() {
  if (!toolkit_.TakesInput(*this)) return;
  if (hidesWhenClosed_) {
    Hide();
  } else {
    Unload();
  }
}

void Form::Resized() {
  SetBounds({0, 0, ScaleWidth(), ScaleHeight()});
  Changed(Change::Position);
  InvalidateAll();
  Raise(On().Resize, static_cast<Control&>(*this));
}

void Form::InvalidateRect(const Rect& rect) const {
  if (GetPeer() != nullptr) GetPeer()->Invalidate(rect);
}

void Form::InvalidateAll() const {
  InvalidateRect({0, 0, ScaleWidth(), ScaleHeight()});
}

}  // namespace pixorra
