#include "tests/platform/codecs/Sha256.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <vector>

namespace pixorra {
namespace {

// The first 32 bits behind the point of the square or cube roots of the first primes.
std::array<std::uint32_t, 64> RootBits(int root, std::size_t count) {
  std::array<std::uint32_t, 64> bits{};
  std::size_t found = 0;
  for (int n = 2; found < count; ++n) {
    bool prime = true;
    for (int d = 2; d * d <= n; ++d) prime = prime && n % d != 0;
    if (!prime) continue;
    const long double value =
        root == 2 ? std::sqrt(static_cast<long double>(n)) : std::cbrt(static_cast<long double>(n));
    bits[found++] = static_cast<std::uint32_t>((value - std::floor(value)) * 4294967296.0L);
  }
  return bits;
}

void Mix(std::array<std::uint32_t, 8>& state, const std::uint8_t* block,
         const std::array<std::uint32_t, 64>& constants) {
  std::array<std::uint32_t, 64> w{};
  for (std::size_t i = 0; i < 16; ++i) {
    const std::uint8_t* p = block + i * 4;
    w[i] = std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8 | p[3];
  }
  for (std::size_t i = 16; i < 64; ++i) {
    const std::uint32_t a = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
    const std::uint32_t b = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
    w[i] = w[i - 16] + a + w[i - 7] + b;
  }
  auto [a, b, c, d, e, f, g, h] = state;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::uint32_t s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
    const std::uint32_t t1 = h + s1 + ((e & f) ^ (~e & g)) + constants[i] + w[i];
    const std::uint32_t s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
    const std::uint32_t t2 = s0 + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + t1;
    d = c;
    c = b;
    b = a;
    a = t1 + t2;
  }
  const std::array<std::uint32_t, 8> mixed{a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < 8; ++i) state[i] += mixed[i];
}

}  // namespace

std::string Sha256(std::span<const std::uint8_t> bytes) {
  static const std::array<std::uint32_t, 64> Constants = RootBits(3, 64);
  std::array<std::uint32_t, 8> state{};
  const std::array<std::uint32_t, 64> start = RootBits(2, 8);
  std::copy_n(start.begin(), 8, state.begin());

  const std::size_t whole = bytes.size() / 64 * 64;
  for (std::size_t at = 0; at < whole; at += 64) Mix(state, bytes.data() + at, Constants);
  std::vector<std::uint8_t> tail(bytes.begin() + static_cast<std::ptrdiff_t>(whole), bytes.end());
  tail.push_back(0x80);
  while (tail.size() % 64 != 56) tail.push_back(0);
  const std::uint64_t length = std::uint64_t{bytes.size()} * 8;
  for (int shift = 56; shift >= 0; shift -= 8) tail.push_back(static_cast<std::uint8_t>(length >> shift));
  for (std::size_t at = 0; at < tail.size(); at += 64) Mix(state, tail.data() + at, Constants);

  std::string text;
  for (const std::uint32_t word : state) {
    for (int shift = 28; shift >= 0; shift -= 4) text += "0123456789abcdef"[word >> shift & 15];
  }
  return text;
}

}  // namespace pixorra
