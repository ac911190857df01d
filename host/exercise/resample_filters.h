// Exercises of the filters. When they are measured, the caller chooses the setting.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::host {

struct FilterSetting {
  int32_t taps;
  double scale;  // output items per source item
};

template <class Sample>
void FilterHorizontally(Routine routine, Scene& scene, FilterSetting measured);
template <class Sample>
void FilterVertically(Routine routine, Scene& scene, FilterSetting measured);

}  // namespace vantrix::host
