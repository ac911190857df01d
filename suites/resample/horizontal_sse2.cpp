#include "suites/resample/horizontal.inl"

namespace vantrix {

template FilterHorizontal<uint8_t> FilterHorizontalWide<uint8_t, ByGather>;
template FilterHorizontal<uint16_t> FilterHorizontalWide<uint16_t, ByGather>;
template FilterHorizontal<float> FilterHorizontalWide<float, ByGather>;

}  // namespace vantrix
