#include "host/sha256.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

namespace vantrix::host {
namespace {

using Words = std::array<uint32_t, 8>;

// Returns the first 32 bits of the fractions of the roots of the first primes.
template <size_t kCount>
std::array<uint32_t, kCount> RootsOfPrimes(long double (*root)(long double)) {
  std::array<uint32_t, kCount> words;
  size_t count = 0;
  for (int number = 2; count < kCount; ++number) {
    bool isPrime = true;
    for (int divisor = 2; divisor * divisor <= number; ++divisor) isPrime &= number % divisor != 0;
    if (!isPrime) continue;
    const long double value = root(number);
    words[count++] = static_cast<uint32_t>((value - std::floor(value)) * 0x1p32L);
  }
  return words;
}

void Mix(Words& state, const uint8_t* block) {
  static const auto constants = RootsOfPrimes<64>(std::cbrt);
  uint32_t schedule[64];
  for (int i = 0; i < 16; ++i)
    schedule[i] = uint32_t{block[4 * i]} << 24 | block[4 * i + 1] << 16 | block[4 * i + 2] << 8 |
                  block[4 * i + 3];
  for (int i = 16; i < 64; ++i) {
    const uint32_t early = schedule[i - 15], late = schedule[i - 2];
    schedule[i] = schedule[i - 16] + schedule[i - 7] +
                  (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3) +
                  (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10);
  }
  auto [a, b, c, d, e, f, g, h] = state;
  for (int i = 0; i < 64; ++i) {
    const uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                           ((e & f) ^ (~e & g)) + constants[static_cast<size_t>(i)] + schedule[i];
    const uint32_t second =
        (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
    h = g, g = f, f = e, e = d + first;
    d = c, c = b, b = a, a = first + second;
  }
  const Words mixed = {a, b, c, d, e, f, g, h};
  for (size_t i = 0; i < 8; ++i) state[i] += mixed[i];
}

}  // namespace

std::string Sha256(std::span<const char> bytes) {
  std::vector<uint8_t> padded(bytes.begin(), bytes.end());
  padded.push_back(0x80);
  while (padded.size() % 64 != 56) padded.push_back(0);
  for (int shift = 56; shift >= 0; shift -= 8)
    padded.push_back(static_cast<uint8_t>(uint64_t{8} * bytes.size() >> shift));
  Words state = RootsOfPrimes<8>(std::sqrt);
  for (size_t at = 0; at < padded.size(); at += 64) Mix(state, &padded[at]);
  std::string digits;
  for (const uint32_t word : state) {
    char text[9];
    std::snprintf(text, sizeof text, "%08x", word);
    digits += text;
  }
  return digits;
}

std::string Sha256OfFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  return file.is_open() && !file.bad() ? Sha256(bytes) : std::string();
}

}  // namespace vantrix::host
