// The kernels of suite blnd by name: which mode in which shape.
#pragma once

#include "common/forms.h"
#include "suites/blend/shapes.h"

namespace vantrix {

struct Normal;

template <class Form>
inline constexpr MaskedBlend& BlendMasked8 = UnderMask<Normal, Form>;
template <class Form>
inline constexpr ColorMaskedBlend& BlendColorMasked8 = ColorUnderMask<Normal, Form>;

}  // namespace vantrix
