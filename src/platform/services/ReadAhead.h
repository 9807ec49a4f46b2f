// Photos that are wanted soon are decoded while the program is busy with others. Only time is saved by it: the
// pictures, the messages and their order are the same, whichever photos are decoded in time.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

class ReadAhead {
 public:
  // Who wants photos, one after another.
  enum class Reader { FilmStrip, OpenFolder, Browser };
  static constexpr std::size_t Readers = 3;

  virtual ~ReadAhead() = default;
  // How many photos ahead a reader may name; 0 where nothing is ever decoded ahead.
  virtual int Depth() const = 0;
  // The sizes in which a photo of that size will be painted; none where that is not known. Any thread may ask.
  using PaintedSizes = std::function<std::vector<PixelSize>(int width, int height)>;

  // The photos that the reader wants next, in order, each at 1/scale of its size (1, 2, 4 or 8) and painted in these
  // sizes, of the photo at that scale, in place of those that it named before; an empty list for no more. `sizes` may
  // be empty. Raises nothing.
  virtual void Expect(Reader reader, const std::vector<std::string>& paths, int scale, const PaintedSizes& sizes) = 0;
  // False while an expected photo is still being decoded. True for all others, and for those that cannot be decoded.
  virtual bool IsReady(const std::string& path, int scale) = 0;

  // The photos that are going to be loaded whole and painted, those wanted first ahead, in place of those that were
  // named before; an empty list for no more. Raises nothing.
  virtual void ExpectWhole(const std::vector<std::string>& paths, const PaintedSizes& sizes) = 0;
  // The file, as it now is, is ready to be loaded whole in no time. Raises nothing.
  virtual bool IsWholeReady(const std::string& path) = 0;
};

class NoReadAhead final : public ReadAhead {
 public:
  int Depth() const override { return 0; }
  void Expect(Reader, const std::vector<std::string>&, int, const PaintedSizes&) override {}
  bool IsReady(const std::string&, int) override { return true; }
  void ExpectWhole(const std::vector<std::string>&, const PaintedSizes&) override {}
  bool IsWholeReady(const std::string&) override { return false; }
};

}  // namespace pixorra
