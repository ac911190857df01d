#include "host/demo/weight_table.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantrix::host {
namespace {

constexpr int kPhaseBits = 6, kPhases = 1 << kPhaseBits;
constexpr int kOne = 16384;

double Sinc(double x) {
  return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

}  // namespace

WeightTable::WeightTable(int from, int to, int tapCount) : taps(tapCount) {
  for (int i = 0; i < to; ++i) {
    const auto place = std::lround(((i + 0.5) * from / to - 0.5) * kPhases);
    offsets.push_back(static_cast<int32_t>(place >> kPhaseBits));
    phases.push_back(static_cast<uint8_t>(place & (kPhases - 1)));
  }
  const double cutoff = std::min(1.0, double(to) / from);
  for (int phase = 0; phase < kPhases; ++phase) AddPhase(double(phase) / kPhases, cutoff);
}

// Adds a sinc as wide as the scale needs, under one as wide as the taps. The tap next to the middle
// makes up for what rounding takes from the sum or adds to it.
void WeightTable::AddPhase(double fraction, double cutoff) {
  const int first = 1 - taps / 2;
  std::vector<double> exact;
  double sum = 0;
  for (int k = 0; k < taps; ++k) {
    const double x = first + k - fraction;
    exact.push_back(Sinc(cutoff * x) * Sinc(2 * x / taps));
    sum += exact.back();
  }
  int rest = kOne;
  for (const double weight : exact) {
    weights.push_back(static_cast<int16_t>(std::lround(kOne * weight / sum)));
    rest -= weights.back();
  }
  const int fromEnd = fraction < 0.5 ? taps / 2 + 1 : taps / 2;
  int16_t& nearest = weights[weights.size() - static_cast<size_t>(fromEnd)];
  nearest = static_cast<int16_t>(nearest + rest);
}

}  // namespace vantrix::host
