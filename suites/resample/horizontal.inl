// Bodies of horizontal.h, for the units that instantiate it.
#pragma once

#include "plugin/base/suites.h"
#include "suites/kernels.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/horizontal_pass.h"
#include "suites/resample/horizontal_singly.inl"

namespace vantrix {

// The lists of a set made of two or three columns: the first two and the last two.
struct EndLists {
  int32_t offsets[4];
  uint8_t phases[4];

  VX_INLINE void Fill(Taps* taps, int32_t width) {
    for (int32_t x = 0; x < 4; ++x) {
      const int32_t item = x < 2 ? x : width - 4 + x;
      offsets[x] = taps->offsets[item];
      phases[x] = taps->phases[item];
    }
    taps->offsets = offsets;
    taps->phases = phases;
  }
};

template <class Sample, class Form, class... Accesses>
void FilterHorizontalInSets(const HorizontalCall& call) {
  using S = Register<uint32_t, Form>;
  HorizontalPass<Sample, S> pass{call, call.width};
  EndLists ends;
  if (kLaneCount<S> == 4 && call.width < 4) {
    ends.Fill(&pass.taps, call.width);
    pass.width = 4;
  }
  alignas(64) uint32_t plan[kPlanWords];
  pass.template ResampleRows<Accesses...>(plan);
}

// Calls use.operator()<Access...>() with the accesses of a form, the fastest first.
template <class Sample, class S, class Use>
VX_INLINE bool WithAccesses(Use use) {
  constexpr int kUnit = sizeof(Sample) == 1 ? 2 : 4;
  using Own = ByWindow<GroupWindow<S, kUnit, false>>;
  if constexpr (!kShuffles)
    return use.template operator()<ByGather>();
  else if constexpr (sizeof(S) == 16)
    return use.template operator()<Own, ByGather>();
  else if constexpr (sizeof(Sample) == 4 && sizeof(S) == 64 && kLooksUp<S>)
    return use
        .template operator()<ByWindow<FloatWindow<S, 1>>, ByWindow<FloatWindow<S, 2>>, ByGather>();
  else if constexpr (sizeof(Sample) == 4 && kLooksUp<S>)
    return use.template operator()<ByWindow<FloatWindow<S, 1>>, Own, ByGather>();
  else if constexpr (kLooksUp<U8<S>>)
    return use.template operator()<ByWindow<ByteWindow<S, kUnit>>, Own, ByGather>();
  else
    return use.template operator()<ByWindow<GroupWindow<S, kUnit, true>>, Own, ByGather>();
}

// Rows with fewer source bytes are not worth these registers:
// a window of 64 bytes mostly does not fit. Measured.
template <class S>
inline constexpr int kLeastSpan = sizeof(S) == 64 ? 64 : 0;

// Returns false if there are too many taps for a plan, or a row is too short.
template <class Sample, class Form>
VX_INLINE bool FilterInSets(const HorizontalCall& call) {
  using S = Register<uint32_t, Form>;
  return WithAccesses<Sample, S>([&]<class... Accesses>() VX_INLINED {
    const HorizontalPass<Sample, S> pass{call, call.width};
    if (call.Overlaps(sizeof(Sample)) || call.span.bytes < kLeastSpan<S> ||
        pass.template PlanBlocks<Accesses...>() < 1 || !pass.template SpanHoldsUnits<ByGather>())
      return false;
    FilterHorizontalInSets<Sample, Form, Accesses...>(call);
    return true;
  });
}

// The build of a slot in another form, whose instructions the unit has.
template <class Sample, class Form>
VX_INLINE FilterHorizontal<Sample>* HorizontalBuild() {
  constexpr uint16_t kSlot = sizeof(Sample) == 1 ? 5 : sizeof(Sample) == 2 ? 13 : 26;
  return Call<FilterHorizontal<Sample>>(FindBuild(ResampleKernels::In<Form>(), kSlot)());
}
// The form that takes what does not suit a wide form's sets.
using NarrowerForm = std::conditional_t<kWidestRegister == 64, Avx2, Ssse3>;

// A plan for one row costs more than it brings if there are few taps; for 8-bit samples in wide
// registers only if the row is short too. Measured.
template <class Sample, class S>
VX_INLINE bool IsWorthPlanning(uint32_t rows, int32_t width, int32_t taps) {
  return rows > 1 || taps > 6 || (sizeof(Sample) == 1 && sizeof(S) > 16 && width >= 32);
}

template <class Sample, class Form>
void FilterResampleHorizontal(const Sample* source, Sample* destination, uint32_t rows,
                              int32_t width, const int32_t* offsets, const uint8_t* phases,
                              int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                              const int16_t* weights) {
  const auto filter = [=](auto* routine) VX_INLINED {
    routine(source, destination, rows, width, offsets, phases, sourceStride, destinationStride,
            tapCount, weights);
  };
  if (rows == 0 || width < 1) return;
  if constexpr (Form::kBytes == 1) {
    filter(FilterHorizontalSingly<Sample, Form>);
  } else {
    using S = Register<uint32_t, Form>;
    constexpr int32_t kLeastWidth = sizeof(S) > 16 ? kLaneCount<S> : 2;
    const Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
    const bool inSets =
        width > 1 && taps.count > 1 && IsWorthPlanning<Sample, S>(rows, width, taps.count);
    if (inSets && width >= kLeastWidth) {
      const Span span = SpanOf<Sample>(taps, width);
      if (FilterInSets<Sample, Form>({reinterpret_cast<const uint8_t*>(source) + span.first,
                                      reinterpret_cast<uint8_t*>(destination), sourceStride,
                                      destinationStride, rows, width, taps, span}))
        return;
    }
    if constexpr (sizeof(S) > 16)
      if (inSets) return filter(HorizontalBuild<Sample, NarrowerForm>());
    filter(HorizontalBuild<Sample, Scalar>());
  }
}

}  // namespace vantrix
