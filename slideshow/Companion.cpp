#include "slideshow/Companion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/PictureTypes.h"
#include "base/ShownNames.h"
#include "platform/controls/FineSurface.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/OneLine.h"

namespace pixorra {

namespace {

constexpr Colour Black = 0x00000000;
constexpr Colour Letters = 0x00E8E8E8;
constexpr double UsualFade = 0.3;  // seconds
constexpr const char* EndsByKey = "Press any key to end.";
// Parts of the screen's height.
constexpr double TitleHeight = 1.0 / 62;
constexpr double NoticeHeight = 1.0 / 44;
constexpr double Margin = 1.0 / 40;
constexpr double LeastSize = 10;  // points
constexpr double SmallestSize = 1;
// A folder that has not answered by then is told of, in seconds.
constexpr double Patience = 2;

std::string WithBackslash(const std::string& folder) {
  return folder.ends_with('\\') ? folder : folder + '\\';
}

// Letters that are so many pixels high.
Font FontOf(double pixels) {
  return {.Name = {}, .Size = std::max(LeastSize, std::floor(pixels * 72 / 96))};
}

}  // namespace

Companion::Companion(const CompanionHost& host, const Request& request)
    : host_(host),
      Window(host.toolkit, "SlideShow"),
      request_(request),
      folder_(host.files.ProgramPath(request.Folder)),
      shownFolder_(host.files.ShownPath(folder_)) {
  Window.SetCaption("Pixorra SlideShow");
  Window.SetBackColor(Black);
  Window.SetMousePointer(pointer::Hidden);
  DressLabels();
  Connect(Window.On().Resize, [this](Control&) {
    UncoverGoneScreens();
    Arrange();
    if (Window.Visible()) CoverOtherScreens();
  });
  Connect(Window.On().Unload, [this](Control&) { End(); });
  Connect(Clock.On().Timer, [this](Control&) {
    if (show_) show_->Tick(Now());
    Follow();
  });
}

void Companion::DressLabels() {
  for (Label* label : {&TitleLabel, &CounterLabel, &NoticeLabel, &FolderLabel, &AdviceLabel}) {
    label->SetForeColor(Letters);
    label->SetBackColor(Black);
    label->SetVisible(false);
  }
  // Over photos; what is said in their place is on black.
  for (Label* label : {&TitleLabel, &CounterLabel}) {
    label->SetHalo(true);
    label->SetAutoSize(true);
  }
  CounterLabel.SetAlignment(Alignment::Right);
  TitleLabel.SetShortensInMiddle(true);
  for (Label* label : {&NoticeLabel, &FolderLabel, &AdviceLabel}) label->SetAlignment(Alignment::Center);
  FolderLabel.SetShortensInMiddle(true);
}

// Labels take the mouse as well where they lie.
void Companion::ConnectInput(Form& window, int screen) {
  const auto end = [this](auto&&...) { End(); };
  const auto moved = [this, screen](Control& on, const MouseArgs& mouse) {
    const Rect at = on.GetKind() == Kind::Form ? Rect() : on.FormRect();
    if (pointer_->IsMove(screen, at.Left + mouse.X, at.Top + mouse.Y, Now())) End();
  };
  window.SetKeyPreview(true);
  window.SetTakesEveryKey(true);
  Connect(window.On().KeyDown, end);
  Connect(window.On().KeyPress, end);
  Connect(window.On().MouseWheel, end);
  Connect(window.On().MouseDown, end);
  Connect(window.On().DblClick, end);
  Connect(window.On().MouseMove, moved);
  for (Control* control : window.Controls()) {
    if (control->GetKind() != Kind::Label) continue;
    Connect(control->On().MouseDown, end);
    Connect(control->On().DblClick, end);
    Connect(control->On().MouseMove, moved);
  }
}

void Companion::TakeSavedFolder() {
  const auto saved = [this](const char* key) { return host_.settings.GetSetting("Pixorra", "ScreenSaver", key, ""); };
  folder_ = host_.files.ProgramPath(saved("SourceLocation"));
  shownFolder_ = host_.files.ShownPath(folder_);
  const std::string digit = saved("Duration");
  request_.Seconds = SecondsOf(digit.empty() ? ' ' : digit.front());
  request_.Title = false;
}

void Companion::Start() {
  host_.toolkit.SetEnder([this] { Window.Unload(); });
  const bool isSaver = request_.What == Request::Wish::Saver;
  if (isSaver) TakeSavedFolder();
  began_ = Now();
  pointer_.emplace(began_);
  const int screen = host_.toolkit.ScreenOfPointer();
  ConnectInput(Window, screen);
  Window.SetFullScreenOn(screen);
  Window.SetFullScreen(true);
  Arrange();
  if (!folder_.empty()) {
    show_.emplace(Show::Pace{.Stand = static_cast<double>(request_.Seconds),
                             .Fade = host_.session.WantsLessMotion() ? 0 : UsualFade});
  }
  CoverOtherScreens();
  Window.Show();
  if (!isSaver) awake_ = host_.session.KeepAwake("A slide show is running");
  Follow();
}

// Those that have no cover yet: a screen may be plugged in at any time.
void Companion::CoverOtherScreens() {
  for (int screen = 0; screen < host_.toolkit.ScreenCount(); ++screen) {
    const bool isCovered =
        std::ranges::any_of(covers_, [&](const auto& cover) { return cover->FullScreenOn() == screen; });
    if (screen == Window.FullScreenOn() || isCovered) continue;
    auto& cover = *covers_.emplace_back(std::make_unique<Form>(host_.toolkit, "Cover"));
    cover.SetCaption(Window.Caption());
    cover.SetBackColor(Black);
    cover.SetMousePointer(pointer::Hidden);
    ConnectInput(cover, screen);
    Connect(cover.On().Unload, [this](Control&) { End(); });
    cover.SetFullScreenOn(screen);
    cover.SetFullScreen(true);
    cover.Show();
  }
}

// What covered a screen that has gone would cover the main one, and so does the show then.
void Companion::UncoverGoneScreens() {
  const int screens = host_.toolkit.ScreenCount();
  if (Window.FullScreenOn() >= screens) {
    std::erase_if(covers_, [](const auto& cover) { return cover->FullScreenOn() == 0; });
    Window.SetFullScreenOn(0);
  }
  std::erase_if(covers_, [screens](const auto& cover) { return cover->FullScreenOn() >= screens; });
}

PixelSize Companion::OwnPixels() {
  const double fineness = host_.toolkit.GetScreen(Window.FullScreenOn()).Fineness;
  const Rect whole = FineRect({0, 0, Window.ScaleWidth(), Window.ScaleHeight()}, fineness);
  return {std::max(1, whole.Width), std::max(1, whole.Height)};
}

void Companion::Arrange() {
  const int height = Window.ScaleHeight();
  const int margin = static_cast<int>(height * Margin);
  Photo.Move(0, 0, Window.ScaleWidth(), height);
  for (Label* label : {&TitleLabel, &CounterLabel}) {
    label->SetFont(FontOf(height * TitleHeight));
    label->Move(label->Left(), height - margin - label->Height());
  }
  CounterLabel.Move(Window.ScaleWidth() - margin - CounterLabel.Width(), CounterLabel.Top());
  TitleLabel.Move(margin, TitleLabel.Top());
  TitleLabel.SetMaxWidth(std::max(1, CounterLabel.Left() - 2 * margin));
  ArrangeNotice();
  const PixelSize screen = OwnPixels();
  if (std::exchange(screen_, screen) == screen || !show_) return;
  making_.reset();
  show_->ScreenChanged(Now());
  Follow();
}

// How high the notice is with letters of that font; too high for any window where a line of it has no room across.
double Companion::NoticeHeightFor(const Font& font) {
  constexpr double NoRoom = 1e9;
  const int margin = static_cast<int>(Window.ScaleHeight() * Margin);
  const int room = std::max(0, Window.ScaleWidth() - 2 * margin);
  double all = -margin;
  for (const Label* label : {&NoticeLabel, &FolderLabel, &AdviceLabel}) {
    if (label->Caption().empty()) continue;
    const TextExtent size = host_.toolkit.Text().Measure(font, label->Caption());
    if (!label->ShortensInMiddle() && std::ceil(size.Width) > room) return NoRoom;
    all += std::ceil(size.Height) + margin;
  }
  return all;
}

// In the middle, one below the other. In the small window of a preview the letters are as small as they have to be:
// smaller ones are not narrower by the same part, so each size is tried.
void Companion::ArrangeNotice() {
  const int height = Window.ScaleHeight();
  const int margin = static_cast<int>(height * Margin);
  const int room = std::max(0, Window.ScaleWidth() - 2 * margin);
  Font font = FontOf(height * NoticeHeight);
  while (font.Size > SmallestSize && NoticeHeightFor(font) > height) font.Size -= 0.5;
  double top = std::max(0.0, (height - NoticeHeightFor(font)) / 2);
  for (Label* label : {&NoticeLabel, &FolderLabel, &AdviceLabel}) {
    label->SetFont(font);
    label->Move(margin, top, room, std::ceil(host_.toolkit.Text().Measure(font, label->Caption()).Height));
    if (!label->Caption().empty()) top += label->Height() + margin;
  }
}

// Fulfils the show's wishes, shows what it says, and wakes it in time.
void Companion::Follow() {
  if (show_) {
    if (show_->TakeListingWish()) ReadFolder();
    if (const std::optional<Show::FrameWish> wish = show_->TakeFrameWish()) MakeFrame(*wish);
  }
  Paint();
  SetClock();
}

void Companion::ReadFolder() {
  const auto answered = [this](const FolderReader::Answer& answer) {
    if (answer.Error == error::None) {
      shownFolder_ = host_.files.ShownPath(folder_);
      show_->Listed(WithBackslash(answer.Path), answer.Names, Now());
    } else {
      show_->ListingFailed(Now());
    }
    Follow();
  };
  const int failed = ErrorsIgnored([&] { reading_ = host_.folderReader.ReadFiles(folder_, AllPictures, answered); });
  if (failed != error::None) show_->RanOutOfMemory(Now());
}

void Companion::MakeFrame(const Show::FrameWish& wish) {
  const auto made = [this](const PhotoFrame& frame) {
    show_->Framed(frame, Now());
    Follow();
  };
  const int failed = ErrorsIgnored([&] { making_ = host_.frames.Make(wish.Path, screen_, wish.Known, made); });
  if (failed != error::None) show_->RanOutOfMemory(Now());
}

bool Companion::WaitsForFolder() {
  return show_ && request_.What != Request::Wish::Saver && show_->Now() == Show::State::Starting &&
         show_->Coming() == nullptr;
}

void Companion::SayWhatIsMissing() {
  const bool isSaver = request_.What == Request::Wish::Saver;
  const std::string folder = OneLine(shownFolder_);
  if (!show_ && isSaver) {
    Say("The screen saver has no folder yet.",
        host_.settingsPlace.empty() ? "" : "Its settings were looked for in " + host_.settingsPlace,
        "Start Pixorra and play a folder with \"Slide Show\" > \"Play\",\r\n"
        "then choose \"Slide Show\" > \"Use as ScreenSaver\".");
  } else if (!show_) {
    Say("No folder was named to show the photos of.", "", EndsByKey);
  } else if (isSaver) {
    Say("", "", "");
  } else if (show_->Now() == Show::State::NoPhotos) {
    Say("There are no photos to show in this folder:", folder, EndsByKey);
  } else if (show_->Now() == Show::State::NoFolder) {
    Say("This folder cannot be opened:", folder, EndsByKey);
  } else if (show_->Now() == Show::State::NoMemory) {
    Say("There is too little memory for a show.", "", EndsByKey);
  } else if (WaitsForFolder() && Now() >= began_ + Patience) {
    Say("Reading the folder...", folder, EndsByKey);
  } else {
    Say("", "", "");
  }
}

std::string Companion::TitleOf(const Slide& slide) {
  std::string name = ShownFileName(host_.files, slide.Path);
  const std::size_t dot = name.rfind('.');
  if (dot != std::string::npos && dot > 0) name.resize(dot);
  return OneLine(name);
}

void Companion::Paint() {
  SayWhatIsMissing();
  if (!show_) return;
  const Slide* shown = show_->Shown();
  const Slide* coming = show_->Coming();
  const Slide* named = coming != nullptr ? coming : shown;
  const auto picture = [](const Slide* slide) { return slide != nullptr ? slide->Frame.Shown : Picture(); };
  Photo.Show(coming != nullptr ? picture(shown) : Picture(), picture(named), show_->Share(Now()));
  Photo.SetVisible(named != nullptr);
  const std::string title = named != nullptr ? TitleOf(*named) : "";
  Photo.SetAccessibleName(title);
  const bool titled = named != nullptr && request_.Title;
  if (titled) {
    CounterLabel.SetCaption(std::to_string(named->Number) + " / " + std::to_string(named->Count));
    TitleLabel.SetMaxWidth(std::max(1, CounterLabel.Left() - 2 * TitleLabel.Left()));
    TitleLabel.SetCaption(title);
  }
  TitleLabel.SetVisible(titled);
  CounterLabel.SetVisible(titled);
}

void Companion::Say(const std::string& notice, const std::string& folder, const std::string& advice) {
  if (NoticeLabel.Caption() == notice && FolderLabel.Caption() == folder && AdviceLabel.Caption() == advice) return;
  NoticeLabel.SetCaption(notice);
  FolderLabel.SetCaption(folder);
  AdviceLabel.SetCaption(advice);
  for (Label* label : {&NoticeLabel, &FolderLabel, &AdviceLabel}) label->SetVisible(!label->Caption().empty());
  ArrangeNotice();
}

void Companion::SetClock() {
  std::optional<double> next = show_ ? show_->NextMoment(Now()) : std::nullopt;
  if (!next && WaitsForFolder() && Now() < began_ + Patience) next = began_ + Patience;
  if (next) Clock.SetInterval(std::max(1, static_cast<int>(std::ceil((*next - Now()) * 1000))));
  Clock.SetEnabled(next.has_value());
}

void Companion::End() {
  awake_.reset();
  host_.toolkit.End();
}

}  // namespace pixorra
