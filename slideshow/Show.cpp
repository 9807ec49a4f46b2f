#include "slideshow/Show.h"

#include <algorithm>
#include <utility>

namespace pixorra {

namespace {

// Of a path of the program: "C:\Photos\trip.2.jpg" is called "trip.2".
std::string TitleOf(const std::string& path) {
  std::string name = path.substr(path.rfind('\\') + 1);
  const std::size_t dot = name.rfind('.');
  if (dot != std::string::npos && dot > 0) name.resize(dot);
  return name;
}

// Sums of seconds differ in their last digits.
bool HasCome(double moment, double now) {
  constexpr double SameMoment = 1e-6;
  return now >= moment - SameMoment;
}

}  // namespace

bool Show::TakeListingWish() {
  if (listing_ != Wish::Wanted) return false;
  listing_ = Wish::Asked;
  return true;
}

std::optional<Show::FrameWish> Show::TakeFrameWish() {
  if (frame_ != Wish::Wanted) return std::nullopt;
  frame_ = Wish::Asked;
  if (remake_) return FrameWish{shown_->Path, {}};
  const std::string& path = paths_[at_];
  const Slide* known = KnownAt(path);
  FrameWish wish{path, known != nullptr ? known->Frame : PhotoFrame()};
  before_.reset();
  return wish;
}

const Slide* Show::KnownAt(const std::string& path) const {
  for (const std::optional<Slide>* slide : {&shown_, &coming_, &before_}) {
    if (*slide && (*slide)->Path == path) return &**slide;
  }
  return nullptr;
}

// Wishes for what is missing, one thing at a time. New photos are seen when a round begins.
void Show::Plan() {
  if (next_ || frame_ != Wish::None || listing_ != Wish::None || Rests()) return;
  if (remake_ || at_ < paths_.size()) {
    frame_ = Wish::Wanted;
  } else {
    listing_ = Wish::Wanted;
  }
}

void Show::Listed(std::vector<std::string> paths, double now) {
  listing_ = Wish::None;
  paths_ = std::move(paths);
  at_ = 0;
  found_ = false;
  if (paths_.empty()) {
    RestFrom(State::NoPhotos, now);
    return;
  }
  // What was said of the folder stays until a photo is ready.
  if (frame_ == Wish::None) frame_ = Wish::Wanted;
}

void Show::ListingFailed(double now) {
  listing_ = Wish::None;
  RestFrom(State::NoFolder, now);
}

void Show::RestFrom(State why, double now) {
  state_ = why;
  for (std::optional<Slide>* slide : {&shown_, &before_, &coming_, &next_}) slide->reset();
  paths_.clear();
  at_ = 0;
  frame_ = Wish::None;
  remake_ = false;
  lookAt_ = now + Rest;
}

void Show::Framed(const PhotoFrame& frame, double now) {
  frame_ = Wish::None;
  const bool usable = !frame.Shown.IsNothing();
  if (std::exchange(remake_, false)) {
    if (usable && shown_) shown_->Frame = frame;
    Tick(now);
    return;
  }
  const std::size_t index = at_++;
  if (usable) {
    found_ = true;
    state_ = State::Running;
    next_ = Slide{paths_[index], TitleOf(paths_[index]), static_cast<int>(index) + 1, static_cast<int>(paths_.size()),
                  frame};
    Tick(now);
  } else if (at_ < paths_.size()) {
    frame_ = Wish::Wanted;
  } else if (found_) {
    Plan();
  } else {
    RestFrom(State::NoPhotos, now);
  }
}

void Show::ScreenChanged(double now) {
  if (coming_) EndFade(now);
  if (std::exchange(next_, std::nullopt)) --at_;
  before_.reset();
  remake_ = shown_.has_value();
  if (frame_ == Wish::Asked) frame_ = paths_.empty() ? Wish::None : Wish::Wanted;
  Tick(now);
}

void Show::Tick(double now) {
  if (coming_ && HasCome(fadeBegan_ + pace_.Fade, now)) EndFade(now);
  if (!coming_ && next_ && (!shown_ || HasCome(due_, now))) BeginFade(now);
  if (Rests() && listing_ == Wish::None && frame_ == Wish::None && HasCome(lookAt_, now)) listing_ = Wish::Wanted;
  Plan();
}

// A folder's only photo is its own successor: nothing is to be seen of that.
void Show::BeginFade(double now) {
  Slide slide = std::move(*next_);
  next_.reset();
  if (shown_ && slide.Frame.Shown == shown_->Frame.Shown) {
    shown_ = std::move(slide);
    due_ = now + pace_.Stand;
    return;
  }
  coming_ = std::move(slide);
  fadeBegan_ = now;
  if (pace_.Fade <= 0) EndFade(now);
}

void Show::EndFade(double now) {
  // Of two photos each is wanted again: it need not be decoded each time.
  if (!next_ && frame_ != Wish::Asked) before_ = std::move(shown_);
  shown_ = std::move(coming_);
  coming_.reset();
  due_ = now + pace_.Stand;
}

double Show::Share(double now) const {
  if (!coming_ || pace_.Fade <= 0) return 1;
  return std::clamp((now - fadeBegan_) / pace_.Fade, 0.0, 1.0);
}

std::optional<double> Show::NextMoment(double now) const {
  if (coming_) return std::min(now + FadeStep, std::max(now, fadeBegan_ + pace_.Fade));
  if (next_ && shown_) return due_;
  if (Rests() && listing_ == Wish::None && frame_ == Wish::None) return lookAt_;
  return std::nullopt;
}

}  // namespace pixorra
