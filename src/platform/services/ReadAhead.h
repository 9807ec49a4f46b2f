// Photos that are wanted soon are decoded while the program is busy with others. Only time is saved by it: the
// pictures, the messages and their order are the same, whichever photos are decoded in time.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pixorra {

class ReadAhead {
 public:
  // Who wants photos, one after another.
  enum class Reader { FilmStrip, OpenFolder, Browser };
  static constexpr std::size_t Readers = 3;

  virtual ~ReadAhead() = default;
  // How many photos ahead a reader may name; 0 where nothing is ever decoded ahead.
  virtual int Depth() const = 0;
  // The photos that the reader wants next, in order, each at 1/scale of its size (1, 2, 4 or 8), in place of those that
  // it named before; an empty list for no more. Raises nothing.
  virtual void Expect(Reader reader, const std::vector<std::string>& paths, int scale) = 0;
  // False while an expected photo is still being decoded. True for all others, and for those that cannot be decoded.
  virtual bool IsReady(const std::string& path, int scale) = 0;
};

class NoReadAhead final : public ReadAhead {
 public:
  int Depth() const override { return 0; }
  void Expect(Reader, const std::vector<std::string>&, int) override {}
  bool IsReady(const std::string&, int) override { return true; }
};

}  // namespace pixorra
