// The weights with which a host scales: a windowed sinc in 64 phases.
#pragma once

#include <cstdint>
#include <vector>

namespace vantrix::host {

// For each of `to` items made from `from` items: where its taps are, and what they weigh.
struct WeightTable {
  static constexpr int kReach = 3;  // items beyond the ends that six taps may reach

  int taps;
  std::vector<int32_t> offsets;
  std::vector<uint8_t> phases;
  std::vector<int16_t> weights;

  // `tapCount` is 2, 4 or 6.
  WeightTable(int from, int to, int tapCount);

 private:
  void AddPhase(double fraction, double cutoff);
};

}  // namespace vantrix::host
