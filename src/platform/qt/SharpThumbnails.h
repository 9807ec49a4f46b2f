// On a screen that has several pixels for each of the program's, thumbnails are shown by twins that have all of them.
// Twins are made of the thumbnails that are on the screen, shortly after they were painted, and are kept until others
// have been on the screen in their place: as many again as one looks at, to either side. Where no screen is that fine
// nothing is done at all.
#pragma once

#include <QTimer>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "platform/pixels/Picture.h"
#include "platform/services/ThumbnailTwins.h"

namespace pixorra {

class ImageBox;
class QtBackend;

class SharpThumbnails {
 public:
  // All twins together, in bytes; what is on the screen beyond that is shown by its thumbnails.
  static constexpr std::int64_t MostBytes = std::int64_t{64} * 1024 * 1024;

  explicit SharpThumbnails(QtBackend& backend);
  SharpThumbnails(const SharpThumbnails&) = delete;
  SharpThumbnails& operator=(const SharpThumbnails&) = delete;

  // By these from now on, which must live as long as twins may be asked for; null: no more.
  void MakeBy(ThumbnailTwins* twins);
  // An image box is painted now, with so many of the screen's pixels to the side of one of the program's. What it is to
  // show in place of its picture; nothing where there is no twin, or none yet: it is repainted when there is.
  Picture InPlaceOf(const ImageBox& box, double fineness);

  std::int64_t Bytes() const;
  // Twins that are there, and such as are being made.
  std::size_t Count() const { return twins_.size(); }
  std::size_t InMaking() const;

 private:
  // A thumbnail's pixels, which its twin keeps alive, and the twin's size.
  using Key = std::tuple<const Bitmap*, int, int>;
  struct Twin {
    Picture Thumbnail;
    Picture Shown;                                   // nothing: not made yet, or there is none
    std::unique_ptr<ThumbnailTwins::Making> Making;  // while it is made
    std::string Photo;                               // that it was asked of
    std::uint64_t LastSeen = 0;                      // by number of looks
  };
  struct OnScreen {
    const ImageBox* Box = nullptr;
    Key Of;
    int Left = 0;  // in its window
    int Top = 0;
  };

  static Key KeyOf(const ImageBox& box, double fineness);
  static std::int64_t BytesOf(const Key& key);
  std::vector<OnScreen> Seen() const;
  void Look();
  void Forget(const std::vector<OnScreen>& seen);
  void Ask(const OnScreen& one);
  void Came(const Key& key, const Picture& twin);

  QtBackend& backend_;
  ThumbnailTwins* maker_ = nullptr;
  std::map<Key, Twin> twins_;
  std::uint64_t looks_ = 0;
  QTimer look_;
};

}  // namespace pixorra
