#include "base/QuickThumbsRecord.h"

#include <algorithm>
#include <bit>

#include "platform/runtime/Text.h"

namespace pixorra::quickthumbs {

namespace {

void PutLittleEndian(std::uint8_t* to, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) to[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

EntryKey MakeEntryKey(std::string_view name, std::int32_t length, DateValue date) {
  EntryKey key;
  key.fill(' ');
  std::ranges::copy(CutToBytes(name, NameBytes), key.begin());
  PutLittleEndian(key.data() + NameBytes, static_cast<std::uint32_t>(length), 4);
  PutLittleEndian(key.data() + NameBytes + 4, std::bit_cast<std::uint64_t>(date), 8);
  return key;
}

}  // namespace pixorra::quickthumbs
