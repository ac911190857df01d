#include "suites/resample/horizontal.inl"

namespace vantrix {

template FilterHorizontal<uint8_t> FilterHorizontalWide<uint8_t, ByWindow, ByGather>;
template FilterHorizontal<uint16_t> FilterHorizontalWide<uint16_t, ByWindow, ByGather>;
template FilterHorizontal<float> FilterHorizontalWide<float, ByWindow, ByGather>;

}  // namespace vantrix
