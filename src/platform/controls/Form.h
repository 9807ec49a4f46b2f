// A window. Its own place and size are twips, 15 to a pixel, and count a frame of 4 pixels at each side and 23 at the
// top, whatever frame the host draws; inside it everything is pixels. What is painted straight onto it lies below its
// controls.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/Container.h"

namespace pixorra {

class MenuItem;

inline constexpr int TwipsPerPixel = 15;

namespace windowstate {
inline constexpr int Normal = 0;
inline constexpr int Minimised = 1;
inline constexpr int Maximised = 2;
}  // namespace windowstate

class Form : public Container {
 public:
  static constexpr int FrameWidth = 8;    // pixels, both sides
  static constexpr int FrameHeight = 27;  // pixels, top and bottom
  // The smallest window that the system gives, pixels, the frame included.
  static constexpr int SmallestWidth = 85;
  static constexpr int SmallestHeight = 86;

  // Hidden and not loaded. The toolkit must outlive the form.
  Form(Toolkit& toolkit, const std::string& name);
  ~Form() override;

  Toolkit& OwnToolkit() const { return toolkit_; }

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour);
  // Its user may change its size, and make it large and small.
  bool Sizable() const { return sizable_; }
  void SetSizable(bool sizable);

  // Outer size and place, twips; code that sets a size raises Resize when it differs. A size that is in whole pixels
  // outside of what the system gives, from the smallest window to all screens together, becomes the nearest within.
  double TwipsLeft() const { return left_; }
  double TwipsTop() const { return top_; }
  double TwipsWidth() const { return width_; }
  double TwipsHeight() const { return height_; }
  void SetTwipsLeft(double twips);
  void SetTwipsTop(double twips);
  void SetTwipsWidth(double twips);  // error 384 as 380: a form that is not in its normal state is not sized
  void SetTwipsHeight(double twips);
  // Sizes the window such that this many pixels are left inside, below the menu bar.
  void SetClientSize(int width, int height);
  // How much of its size is counted for the frame, in place of the usual figures; twips.
  void SetFrame(double twipsWidth, double twipsHeight);
  double FrameTwipsWidth() const { return frameWidth_; }
  double FrameTwipsHeight() const { return frameHeight_; }
  // Its middle is put over that of its owner as it is shown, or of the main screen.
  void CentreOn(const Form* owner);
  // Its middle is put at a point of the screens, twips, as far as all of the form is on the screen that holds the
  // point, or on the nearest one where none does.
  void CentreAt(double twipsX, double twipsY);
  // Where its window is, twips, a maximised one too: TwipsLeft and TwipsTop are the place of its normal state.
  double ShownLeft() const { return shownLeft_; }
  double ShownTop() const { return shownTop_; }
  // Covers the screen without a frame or menu bar, above all other windows; what is left inside is the whole screen.
  // Its own place and size are kept for when it is no longer so. Raises Resize.
  bool FullScreen() const { return fullScreen_; }
  void SetFullScreen(bool fullScreen);
  // The number of the screen that it covers, the main one at first. Raises Resize where it covers one by now.
  int FullScreenOn() const { return screen_; }
  void SetFullScreenOn(int screen);
  // Where a new window would go is the host's choice until a place is set.
  bool HasPlace() const { return hasPlace_; }

  int WindowState() const { return windowState_; }
  void SetWindowState(int state);

  // What is left inside, in pixels, below the menu bar.
  int ScaleWidth() const override;
  int ScaleHeight() const override;

  // Stretches a picture into a rectangle, pixels; what lies outside the form is cut off. It is drawn in the screen's
  // own pixels and stays until Cls, an unload, or a picture that is painted when the form has another size. Raises
  // BadPicture for nothing, OutOfMemory.
  void PaintPicture(const Picture& picture, double x, double y, double width, double height);
  void Cls();
  // What has been painted, empty for nothing; it fills DrawingSize from the top left.
  const Bitmap& Drawing() const { return drawing_; }
  PixelSize DrawingSize() const { return drawingSize_; }

  // Makes it ready without showing it: the first time after an unload raises Load.
  void Load();
  bool IsLoaded() const { return loaded_; }
  void Show();
  // Shows it and returns when it has been hidden or unloaded, or the program has ended. Other forms take no input
  // meanwhile. The control of another form that had the focus has it again afterwards, if it is still shown and
  // enabled.
  void ShowModal(Form* owner);
  // Shows it above its owner, and returns at once. It is unloaded with its owner.
  void ShowOwned(Form* owner);
  void Hide();
  bool IsModal() const { return modal_; }
  Form* Owner() const { return owner_.Get(); }
  bool StaysOnTop() const { return onTop_; }
  void SetStaysOnTop(bool onTop);
  // Raises QueryUnload, then Unload; then it is hidden and no longer loaded. It can be loaded again.
  void Unload();

  // A person who closes it by its frame hides it and no more: it stays loaded, with what its controls hold.
  bool HidesWhenClosed() const { return hidesWhenClosed_; }
  void SetHidesWhenClosed(bool hides) { hidesWhenClosed_ = hides; }

  // The form sees keys before its controls do.
  bool KeyPreview() const { return keyPreview_; }
  void SetKeyPreview(bool preview) { keyPreview_ = preview; }
  // Keys without a code of their own are pressed too, as key::Other.
  bool TakesEveryKey() const { return everyKey_; }
  void SetTakesEveryKey(bool every) { everyKey_ = every; }

  // Top-level menus in their order; pop-up menus are among them, invisible.
  const std::vector<MenuItem*>& Menus() const { return menus_; }
  bool HasMenuBar() const;
  void AddMenu(MenuItem& menu);
  void RemoveMenu(MenuItem& menu);
  void MenuChanged();
  // Shows a menu at the pointer and returns when it is closed; a chosen item's Click has run by then.
  void PopupMenu(MenuItem& menu);

  // What a user did with the window's frame.
  void UserResized(double twipsWidth, double twipsHeight, int windowState);
  void UserMoved(double twipsLeft, double twipsTop);
  // The window is there; the form's own place stays what it is.
  void UserPlaced(double twipsLeft, double twipsTop);
  void UserClosed();
  // The screen has another size, which a full-screen form takes over.
  void ScreenChanged();

  void InvalidateRect(const Rect& rect) const;
  void InvalidateAll() const;

 private:
  void RunModal(Form* owner);
  void Resized();
  void UnloadOwned();

  Toolkit& toolkit_;
  std::vector<MenuItem*> menus_;
  std::string caption_;
  Watch<Form> owner_;
  Bitmap drawing_;
  PixelSize drawingSize_;
  double left_ = 0;
  double top_ = 0;
  double shownLeft_ = 0;
  double shownTop_ = 0;
  double width_ = 400 * TwipsPerPixel;
  double height_ = 300 * TwipsPerPixel;
  double frameWidth_ = FrameWidth * TwipsPerPixel;
  double frameHeight_ = FrameHeight * TwipsPerPixel;
  Colour backColor_ = ButtonFace;
  int windowState_ = windowstate::Normal;
  int screen_ = 0;
  bool hasPlace_ = false;
  bool sizable_ = false;
  bool loaded_ = false;
  bool modal_ = false;
  bool onTop_ = false;
  bool keyPreview_ = false;
  bool everyKey_ = false;
  bool unloading_ = false;
  bool hidesWhenClosed_ = false;
  bool fullScreen_ = false;
};

}  // namespace pixorra
