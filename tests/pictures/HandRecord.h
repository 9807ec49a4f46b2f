// A record of a thumbnail cache file put together by hand, from the offsets alone.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace pixorra {

struct HandRecord {
  std::string Thumbnail;  // a bitmap file
  std::string Name;
  std::int32_t Length = 0;
  double Date = 0;
  std::int16_t Mark = 0;
  std::string Rest{};
};

// 14,776 bytes.
inline std::string HandBytes(const HandRecord& record) {
  std::string bytes(14776, '\0');
  bytes.replace(0, record.Thumbnail.size(), record.Thumbnail);
  std::string name = record.Name;
  name.resize(100, ' ');
  bytes.replace(14455, 100, name);
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[14555 + i] = static_cast<char>(static_cast<std::uint32_t>(record.Length) >> (8 * i) & 0xFF);
  }
  std::uint64_t date = 0;
  std::memcpy(&date, &record.Date, sizeof date);
  for (std::size_t i = 0; i < 8; ++i) bytes[14559 + i] = static_cast<char>(date >> (8 * i) & 0xFF);
  bytes[14567] = static_cast<char>(record.Mark & 0xFF);
  bytes[14568] = static_cast<char>(record.Mark >> 8 & 0xFF);
  bytes.replace(14569, record.Rest.size(), record.Rest);
  return bytes;
}

}  // namespace pixorra
