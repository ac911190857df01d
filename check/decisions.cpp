#include "check/decisions.h"

namespace vantrix::check {
namespace {

struct Decision {
  SuiteIndex suite;
  uint16_t slot;
  const char* words;
};

// If a host's routine differs, the kernel does not fit it, and the line says where to look.
constexpr Decision kDecisions[] = {
    {kBlend, 96,
     "The order of the two strides is not written down. They are taken in the order of their "
     "planes: share, combined."},
    {kFilter, 191,
     "Neither the order in which a sum's terms are added is written down, nor what becomes of the "
     "last inputs. Terms are added from the first on, and steps go on while 8 inputs are left."},
    {kFilter, 192,
     "Neither the order in which a sum's terms are added is written down, nor what becomes of the "
     "last inputs. Terms are added from the first on, and steps go on while 12 inputs are left."},
    {kFilter, 193,
     "The order in which a sum's terms are added is not written down, nor all arguments with which "
     "the host's routine gets the rest. Terms are added from the first on. The fourth and the "
     "fifth "
     "argument go on as they came; the output advances with the input."},
    {kFilter, 194,
     "The order in which a sum's terms are added is not written down, nor all arguments with which "
     "the host's routine gets the rest. Terms are added from the first on. The fourth and the "
     "fifth "
     "argument go on as they came; the output advances with the input."},
    {kResample, 7,
     "The order of the arguments and the position of a column are not written down. A row of "
     "length "
     "L shows the whole source row over L samples, in the middle of the output row."},
    {kResample, 13,
     "How sums become samples is not written down. They are shifted right by 14 and clamped to "
     "0..32768. With 0 taps and with 1 the sample is copied; strides count bytes."},
    {kResample, 18,
     "The order of the arguments is not written down, nor where a linear position is outside. Both "
     "neighbours must lie inside."},
    {kResample, 19,
     "The order of the arguments is not written down, nor that of the two directions. Samples are "
     "mixed along x first, then along y."},
    {kResample, 24,
     "The order of the arguments is not written down. It is that of the routine for rows (slot 3), "
     "with the width and the height of a block for the list of counts."},
    {kResample, 26,
     "The order of multiplications is not written down for more than one tap. Terms are added from "
     "the first on, and the finished sum is multiplied by 2^-14."},
    {kResample, 27,
     "What 0 taps and 1 tap give is not written down. The row is copied, as of 8-bit samples."},
};

}  // namespace

const char* DecisionAbout(SuiteIndex suite, uint16_t slot) {
  for (const Decision& decision : kDecisions)
    if (decision.suite == suite && decision.slot == slot) return decision.words;
  return nullptr;
}

}  // namespace vantrix::check
