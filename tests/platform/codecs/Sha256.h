// The SHA-256 of some bytes, to compare decoded pixels with known ones.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace pixorra {

// 64 lower-case hexadecimal digits.
std::string Sha256(std::span<const std::uint8_t> bytes);

}  // namespace pixorra
