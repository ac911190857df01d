// The source of an exercise's choices: a seeded generator, or bytes that somebody else chose.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>

namespace vantrix::host {

class Choices {
 public:
  explicit Choices(uint64_t seed) : state_(seed * 2 + 1) {}
  // Takes two bytes per choice. When they run out, every choice is 0.
  explicit Choices(std::span<const uint8_t> bytes) : bytes_(bytes), fromBytes_(true) {}

  // Returns 0 .. bound - 1.
  uint32_t Below(uint32_t bound) { return fromBytes_ ? NextWord() % bound : Random() % bound; }
  int32_t Between(int32_t low, int32_t high) {
    return low + static_cast<int32_t>(Below(static_cast<uint32_t>(high - low + 1)));
  }
  bool OneIn(uint32_t n) { return Below(n) == n - 1; }

  // Returns a seed for bulk data, which has a generator of its own, so that choices stay few.
  uint64_t Seed() { return uint64_t{Below(65536)} << 16 | Below(65536); }

 private:
  uint32_t Random() {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<uint32_t>(state_ >> 33);
  }
  uint32_t NextWord() {
    uint8_t word[2] = {};
    const size_t count = bytes_.size() < 2 ? bytes_.size() : 2;
    if (count > 0) std::memcpy(word, bytes_.data(), count);
    bytes_ = bytes_.subspan(count);
    return word[0] | uint32_t{word[1]} << 8;
  }

  uint64_t state_ = 0;
  std::span<const uint8_t> bytes_;
  bool fromBytes_ = false;
};

}  // namespace vantrix::host
