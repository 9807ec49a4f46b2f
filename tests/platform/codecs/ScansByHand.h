// Progressive JPEG files put together by hand: a grey picture whose later scans hold next to nothing.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

class ScansByHand {
 public:
  enum Kind {
    OfNothing,  // each says that no block has any of the coefficients
    Refining,   // each looks at all coefficients, and changes none
  };

  // `scans` scans after the first, which has the grey itself.
  static std::string Grey(int width, int height, int scans, Kind kind) {
    ScansByHand file(width, height);
    for (int i = 0; i < scans; ++i) {
      const int bit = 12 - (i - 1) % 13;
      if (kind == OfNothing || i == 0) file.AddScan(1, 63, 0, 13);
      if (kind == Refining && i > 0) file.AddScan(1, 63, bit + 1, bit);
    }
    return file.bytes_ + "\xFF\xD9";
  }

 private:
  ScansByHand(int width, int height) : blocks_((width + 7) / 8 * ((height + 7) / 8)) {
    AddSegment(0xDB, std::string(1, '\0') + std::string(64, '\1'));
    AddSegment(0xC2, std::string{8, Char(height >> 8), Char(height), Char(width >> 8), Char(width), 1, 1, 0x11, 0});
    // One code of one bit in each table: no difference; a run of 2^14 to 2^15 - 1 blocks that end.
    AddSegment(0xC4, std::string("\0\1", 2) + std::string(15, '\0') + Char(0));
    AddSegment(0xC4, std::string("\x10\1", 2) + std::string(15, '\0') + Char(0xE0));
    AddSegment(0xDA, std::string{1, 1, 0, 0, 0, 1});
    bytes_ += std::string(static_cast<std::size_t>(blocks_) / 8 + 1, '\0');
  }

  static char Char(int value) { return static_cast<char>(value); }

  void AddSegment(int marker, const std::string& body) {
    const int length = static_cast<int>(body.size()) + 2;
    bytes_ += std::string{Char(0xFF), Char(marker), Char(length >> 8), Char(length)} + body;
  }

  void AddScan(int from, int to, int before, int bit) {
    AddSegment(0xDA, std::string{1, 1, 0, Char(from), Char(to), Char(before << 4 | bit)});
    std::vector<bool> bits;
    for (int done = 0; done < blocks_; done += 32767) {
      bits.push_back(false);
      bits.insert(bits.end(), 14, true);
    }
    while (bits.size() % 8 != 0) bits.push_back(true);
    for (std::size_t at = 0; at < bits.size(); at += 8) {
      int byte = 0;
      for (std::size_t i = 0; i < 8; ++i) byte = byte << 1 | (bits[at + i] ? 1 : 0);
      bytes_ += Char(byte);
      if (byte == 255) bytes_ += '\0';
    }
  }

  int blocks_;
  std::string bytes_ = "\xFF\xD8";
};

}  // namespace pixorra
