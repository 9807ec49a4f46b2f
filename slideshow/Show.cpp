#include "slideshow/Show.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

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
  FrameWish wish{folder_ + names_[at_], {}};
  if (const auto damaged = damaged_.find(names_[at_]); damaged != damaged_.end()) {
    wish.Known.Stamp = damaged->second;
  } else if (const Slide* known = KnownAt(wish.Path)) {
    wish.Known = known->Frame;
  }
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
  if (remake_ || at_ < names_.size()) {
    frame_ = Wish::Wanted;
  } else {
    listing_ = Wish::Wanted;
  }
}

void Show::Listed(const std::string& folder, std::vector<std::string> names, double now) {
  listing_ = Wish::None;
  isListed_ = true;
  folder_ = folder;
  names_ = std::move(names);
  const std::string last = std::exchange(goOnAfter_, {});
  if (names_.empty()) {
    RestFrom(State::NoPhotos, now);
  } else if (last.empty()) {
    BeginRound(now);
  } else {
    missing_ = 0;
    at_ = static_cast<std::size_t>(std::upper_bound(names_.begin(), names_.end(), last, NameLess) - names_.begin());
    Pass(now);
  }
}

void Show::BeginRound(double now) {
  at_ = 0;
  found_ = false;
  missing_ = 0;
  listedAgain_ = false;
  KeepDamaged();
  skipsDamaged_ = !HasCome(tryDamagedAt_, now);
  if (!skipsDamaged_) tryDamagedAt_ = now + std::max(Rest, static_cast<double>(damaged_.size()) * RestForEach);
  Pass(now);
}

// Only those that are still there: a folder may be filled anew for as long as a show runs.
void Show::KeepDamaged() {
  if (damaged_.empty()) return;
  std::unordered_map<std::string, FileStamp> kept;
  for (const std::string& name : names_) {
    if (const auto damaged = damaged_.find(name); damaged != damaged_.end()) kept.insert(*damaged);
  }
  damaged_ = std::move(kept);
}

void Show::SkipDamaged() {
  while (skipsDamaged_ && at_ < names_.size() && damaged_.contains(names_[at_])) ++at_;
}

// On to the next name of the round. What was said of the folder stays until a photo is ready.
void Show::Pass(double now) {
  SkipDamaged();
  if (at_ < names_.size()) {
    if (frame_ == Wish::None) frame_ = Wish::Wanted;
  } else if (found_) {
    Plan();
  } else {
    RestFrom(isListed_ ? State::NoPhotos : State::NoFolder, now);
  }
}

// The photos of the round before may still be there: the folder has gone once none of them can be opened either.
void Show::ListingFailed(double now) {
  listing_ = Wish::None;
  isListed_ = false;
  if (names_.empty() || !goOnAfter_.empty()) {
    RestFrom(State::NoFolder, now);
  } else {
    BeginRound(now);
  }
}

void Show::RanOutOfMemory(double now) {
  listing_ = Wish::None;
  RestFrom(State::NoMemory, now);
}

void Show::RestFrom(State why, double now) {
  state_ = why;
  for (std::optional<Slide>* slide : {&shown_, &before_, &coming_, &next_}) slide->reset();
  names_.clear();
  goOnAfter_.clear();
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
  const std::string& name = names_[index];
  if (usable) {
    found_ = true;
    missing_ = 0;
    state_ = State::Running;
    damaged_.erase(name);
    next_ = Slide{folder_ + name, static_cast<int>(index) + 1, static_cast<int>(names_.size()), frame};
    SkipDamaged();
    Tick(now);
    return;
  }
  if (frame.Stamp != FileStamp()) {
    damaged_[name] = frame.Stamp;
  } else if (++missing_ >= MostMissing && !listedAgain_) {
    listedAgain_ = true;
    goOnAfter_ = name;
    listing_ = Wish::Wanted;
    return;
  }
  Pass(now);
}

void Show::ScreenChanged(double now) {
  if (coming_) EndFade(now);
  if (next_) at_ = static_cast<std::size_t>(next_->Number) - 1;
  next_.reset();
  before_.reset();
  remake_ = shown_.has_value();
  if (frame_ == Wish::Asked) frame_ = names_.empty() ? Wish::None : Wish::Wanted;
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
