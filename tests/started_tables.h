// The plug-in started in this program, on the demonstration host's tables.
#pragma once

#include <xmmintrin.h>

#include "host/tables.h"
#include "plugin/startup.h"

namespace vantrix {

inline const host::Tables& StartedTables() {
  static const host::Tables* const tables = [] {
    const auto* made = new host::Tables;
    int16_t result;
    const uint32_t control = _mm_getcsr();  // start-up sets flush-to-zero
    Startup(made->Block(), &result, kThisSystem);
    _mm_setcsr(control);
    return made;
  }();
  return *tables;
}

}  // namespace vantrix
