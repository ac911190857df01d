#include "suites/resample/box_area.inl"

namespace vantrix {

template BoxAverageArea BoxAverageArea8<Ssse3>;

}  // namespace vantrix
