// Scenes of the filters, with settings of one's own where they are measured.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::host {

struct FilterSetting {
  int32_t taps;
  double scale;  // output items for a source item
};

template <class Sample>
void FilterHorizontally(Routine routine, Scene& scene, FilterSetting measured);
template <class Sample>
void FilterVertically(Routine routine, Scene& scene, FilterSetting measured);

}  // namespace vantrix::host
