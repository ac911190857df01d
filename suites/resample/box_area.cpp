#include "suites/resample/box_area.inl"

namespace vantrix {

template BoxAverageArea BoxAverageArea8<OneSample>;
template BoxAverageArea BoxAverageArea8<Sse2>;

}  // namespace vantrix
