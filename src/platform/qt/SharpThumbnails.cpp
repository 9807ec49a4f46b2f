#include "platform/qt/SharpThumbnails.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Painting.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/QtBackend.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// From a paint to the look at what is on the screen, in milliseconds: a strip that is scrolled quickly is looked at now
// and then.
constexpr int LookDelay = 30;

// What is kept for each thumbnail on the screen: itself, and one to either side.
constexpr std::size_t KeptForEach = 3;

bool IsThumbnail(const ImageBox& box) {
  return box.ShowsPhotoOfTag() && !box.Tag().empty() && !box.GetPicture().IsNothing() &&
         box.GetPicture().ArtName().empty();
}

struct Place {
  const ImageBox* Box;
  QRect Seen;
};

// The thumbnails that can be seen of a form.
std::vector<Place> ThumbnailsOf(const Form& form, const QRect& client) {
  std::vector<Place> places;
  for (const PaintItem& item : ItemsToPaint(form, ToRect(client))) {
    if (item.Clip.IsEmpty() || item.Source->GetKind() != Kind::ImageBox) continue;
    const auto& box = static_cast<const ImageBox&>(*item.Source);
    if (IsThumbnail(box)) places.push_back({&box, ToQRect(item.Clip)});
  }
  return places;
}

}  // namespace

SharpThumbnails::SharpThumbnails(QtBackend& backend) : backend_(backend) {
  look_.setSingleShot(true);
  look_.setInterval(LookDelay);
  QObject::connect(&look_, &QTimer::timeout, &look_, [this] { Look(); });
}

void SharpThumbnails::MakeBy(ThumbnailTwins* twins) {
  maker_ = twins;
  twins_.clear();
}

SharpThumbnails::Key SharpThumbnails::KeyOf(const ImageBox& box, double fineness) {
  const Picture& picture = box.GetPicture();
  const auto side = [fineness](int pixels) { return static_cast<int>(std::ceil(pixels * fineness)); };
  return {&picture.Pixels(), side(picture.Width()), side(picture.Height())};
}

std::int64_t SharpThumbnails::BytesOf(const Key& key) {
  constexpr int BytesPerPixel = 3;
  return std::int64_t{BytesPerPixel} * std::get<1>(key) * std::get<2>(key);
}

Picture SharpThumbnails::InPlaceOf(const ImageBox& box, double fineness) {
  if (maker_ == nullptr || (fineness <= 1 && twins_.empty()) || !IsThumbnail(box)) return {};
  if (!look_.isActive()) look_.start();
  const auto known = twins_.find(KeyOf(box, fineness));
  return known != twins_.end() ? known->second.Shown : Picture();
}

std::int64_t SharpThumbnails::Bytes() const {
  std::int64_t sum = 0;
  for (const auto& [key, twin] : twins_)
    if (!twin.Shown.IsNothing() || twin.Making != nullptr) sum += BytesOf(key);
  return sum;
}

std::size_t SharpThumbnails::InMaking() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(twins_, [](const auto& entry) { return entry.second.Making != nullptr; }));
}

// In the order in which a person reads.
std::vector<SharpThumbnails::OnScreen> SharpThumbnails::Seen() const {
  std::vector<OnScreen> seen;
  for (const Form* form : backend_.GetToolkit().Forms()) {
    auto* const peer = static_cast<FormPeer*>(form->GetPeer());
    if (peer == nullptr || !form->Visible()) continue;
    const double fineness = peer->Client().devicePixelRatioF();
    if (fineness <= 1) continue;
    for (const Place& place : ThumbnailsOf(*form, peer->Client().rect()))
      seen.push_back({place.Box, KeyOf(*place.Box, fineness), place.Seen.left(), place.Seen.top()});
  }
  std::ranges::stable_sort(
      seen, [](const OnScreen& a, const OnScreen& b) { return std::tie(a.Top, a.Left) < std::tie(b.Top, b.Left); });
  return seen;
}

void SharpThumbnails::Look() {
  if (maker_ == nullptr || backend_.GetToolkit().Ended()) return;
  ++looks_;
  const std::vector<OnScreen> seen = Seen();
  for (const OnScreen& one : seen)
    if (const auto known = twins_.find(one.Of); known != twins_.end()) known->second.LastSeen = looks_;
  Forget(seen);
  std::int64_t bytes = Bytes();
  for (const OnScreen& one : seen) {
    Twin& twin = twins_[one.Of];
    twin.LastSeen = looks_;
    // One that there was none of is asked for again where the photo has got another name.
    if (!twin.Shown.IsNothing() || twin.Making != nullptr || twin.Photo == one.Box->Tag()) continue;
    if (bytes + BytesOf(one.Of) > MostBytes) continue;
    Ask(one);
    if (twin.Making != nullptr) bytes += BytesOf(one.Of);
  }
}

// What is being made and has left the screen, and then what has not been seen for longest.
void SharpThumbnails::Forget(const std::vector<OnScreen>& seen) {
  std::erase_if(
      twins_, [this](const auto& entry) { return entry.second.Making != nullptr && entry.second.LastSeen != looks_; });
  std::int64_t wanted = 0;
  std::size_t coming = 0;
  for (const OnScreen& one : seen) {
    if (twins_.contains(one.Of)) continue;
    wanted += BytesOf(one.Of);
    ++coming;
  }
  std::vector<decltype(twins_)::iterator> unseen;
  for (auto at = twins_.begin(); at != twins_.end(); ++at)
    if (at->second.LastSeen != looks_) unseen.push_back(at);
  std::ranges::stable_sort(unseen,
                           [](const auto& a, const auto& b) { return a->second.LastSeen < b->second.LastSeen; });
  std::int64_t bytes = Bytes() + wanted;
  for (const auto& oldest : unseen) {
    if (twins_.size() + coming <= KeptForEach * seen.size() && bytes <= MostBytes) return;
    if (!oldest->second.Shown.IsNothing()) bytes -= BytesOf(oldest->first);
    twins_.erase(oldest);
  }
}

void SharpThumbnails::Ask(const OnScreen& one) {
  Twin& twin = twins_[one.Of];
  twin.Thumbnail = one.Box->GetPicture();
  twin.Photo = one.Box->Tag();
  const PixelSize size{std::get<1>(one.Of), std::get<2>(one.Of)};
  ErrorsIgnored([&] {
    twin.Making =
        maker_->Make(twin.Photo, twin.Thumbnail, size, [this, key = one.Of](const Picture& made) { Came(key, made); });
  });
}

void SharpThumbnails::Came(const Key& key, const Picture& twin) {
  const auto known = twins_.find(key);
  if (known == twins_.end()) return;
  known->second.Making.reset();
  known->second.Shown = twin;
  if (twin.IsNothing()) return;
  for (const Form* form : backend_.GetToolkit().Forms()) {
    auto* const peer = static_cast<FormPeer*>(form->GetPeer());
    if (peer == nullptr || !form->Visible()) continue;
    for (const Place& place : ThumbnailsOf(*form, peer->Client().rect()))
      if (place.Box->GetPicture() == known->second.Thumbnail) peer->Client().update(place.Seen);
  }
}

}  // namespace pixorra
