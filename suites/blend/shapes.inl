// Bodies of shapes.h, for the units that instantiate them.
#pragma once

#include "suites/blend/copied_rows.h"
#include "suites/blend/modes.h"
#include "suites/blend/selected_rows.h"
#include "suites/blend/shapes.h"

namespace vantrix {

// A rule that also returns what was read. In a weighted one the mode at full strength does so too.
template <class Rule>
struct WithBefore : Rule {
  template <class V, class... S>
  VX_INLINE Change<V> operator()(V d, S... samples) const {
    return {d, Rule::operator()(d, samples...)};
  }
};
template <class Mode>
struct WeightedWithBefore : WithBefore<Weighted<Mode>> {
  WithBefore<Mode> full;
};

template <class Mode, class Form, class Rule, class... From>
VX_INLINE void BlendMode(int32_t rows, int32_t columns, Target to, Rule rule, From... from) {
  if constexpr (Mode::kLeavesAlone)
    ApplyToSelected<Form>(rows, columns, ChangedGroupsTarget{to},
                          WeightedWithBefore<Mode>{{rule}, {}}, from...);
  else if constexpr (Mode::kCopiesRows)
    ApplyToRowsAsIfCopied<Form>(rows, columns, to, rule, from...);
  else
    ApplyToRows<Form>(rows, columns, to, rule, from...);
}

template <class Mode, class Form>
void AtFullStrength(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                    int32_t sourceStride, int32_t destinationStride) {
  static_assert(!Mode::kLeavesAlone, "ChangedBlocks serves it");
  BlendMode<Mode, Form>(rows, columns, Target{destination, destinationStride}, Mode{},
                        Plane{source, sourceStride});
}

template <class Mode, class Form>
void WithOpacity(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                 int32_t sourceStride, int32_t destinationStride, uint32_t opacity) {
  BlendMode<Mode, Form>(rows, columns, Target{destination, destinationStride}, Weighted<Mode>{},
                        Plane{source, sourceStride}, Constant{static_cast<uint8_t>(opacity)});
}

template <class Mode, class Form>
void UnderMask(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
               int32_t columns, int32_t sourceStride, int32_t destinationStride,
               int32_t maskStride) {
  BlendMode<Mode, Form>(rows, columns, Target{destination, destinationStride}, Weighted<Mode>{},
                        Plane{source, sourceStride}, Weights{{mask, maskStride}});
}

template <class Mode, class Form>
void ColorUnderMask(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                    int32_t columns, int32_t destinationStride, int32_t maskStride) {
  BlendMode<Mode, Form>(rows, columns, Target{destination, destinationStride}, Weighted<Mode>{},
                        Constant{static_cast<uint8_t>(color)}, Weights{{mask, maskStride}});
}

}  // namespace vantrix
