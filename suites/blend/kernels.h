// The kernels of suite blnd by name: which mode in which shape. Kernels without a mode are declared
// in the headers that this one includes.
#pragma once

#include "suites/blend/division.h"
#include "suites/blend/extremes.h"
#include "suites/blend/products.h"
#include "suites/blend/shapes.h"
#include "suites/blend/threshold.h"

namespace vantrix {

namespace modes {
struct Normal;
struct Screen;
struct Overlay;
struct HardLight;
struct Multiply;
struct Lighten;
struct Darken;
}  // namespace modes

template <class Form>
inline constexpr auto& BlendMasked8 = UnderMask<modes::Normal, Form>;
template <class Form>
inline constexpr auto& BlendColorMasked8 = ColorUnderMask<modes::Normal, Form>;

template <class Form>
inline constexpr auto& BlendScreen8 = AtFullStrength<modes::Screen, Form>;
template <class Form>
inline constexpr auto& BlendScreenOpacity8 = WithOpacity<modes::Screen, Form>;
template <class Form>
inline constexpr auto& BlendScreenColorMasked8 = ColorUnderMask<modes::Screen, Form>;

template <class Form>
inline constexpr auto& BlendOverlay8 = AtFullStrength<modes::Overlay, Form>;
template <class Form>
inline constexpr auto& BlendOverlayOpacity8 = WithOpacity<modes::Overlay, Form>;
template <class Form>
inline constexpr auto& BlendOverlayMasked8 = UnderMask<modes::Overlay, Form>;
template <class Form>
inline constexpr auto& BlendOverlayColorMasked8 = ColorUnderMask<modes::Overlay, Form>;

template <class Form>
inline constexpr auto& BlendHardLight8 = AtFullStrength<modes::HardLight, Form>;
template <class Form>
inline constexpr auto& BlendHardLightOpacity8 = WithOpacity<modes::HardLight, Form>;
template <class Form>
inline constexpr auto& BlendHardLightMasked8 = UnderMask<modes::HardLight, Form>;
template <class Form>
inline constexpr auto& BlendHardLightColorMasked8 = ColorUnderMask<modes::HardLight, Form>;

template <class Form>
inline constexpr auto& BlendMultiply8 = AtFullStrength<modes::Multiply, Form>;
template <class Form>
inline constexpr auto& BlendMultiplyOpacity8 = WithOpacity<modes::Multiply, Form>;
template <class Form>
inline constexpr auto& BlendMultiplyMasked8 = UnderMask<modes::Multiply, Form>;

template <class Form>
inline constexpr auto& BlendLighten8 = ChangedBlocks<modes::Lighten, Form>;
template <class Form>
inline constexpr auto& BlendLightenMasked8 = UnderMask<modes::Lighten, Form>;
template <class Form>
inline constexpr auto& BlendLightenColorMasked8 = ColorUnderMask<modes::Lighten, Form>;

template <class Form>
inline constexpr auto& BlendDarken8 = ChangedBlocks<modes::Darken, Form>;
template <class Form>
inline constexpr auto& BlendDarkenMasked8 = UnderMask<modes::Darken, Form>;
template <class Form>
inline constexpr auto& BlendDarkenColorMasked8 = ColorUnderMask<modes::Darken, Form>;

}  // namespace vantrix
