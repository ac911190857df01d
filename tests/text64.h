// A form for the tests alone: the source for 64-byte registers, compiled for a processor with
// registers of 16 bytes, which process it in parts. So it runs on any machine, on emulated ones and
// under sanitizers. Nothing installs it.
#pragma once

#include "common/forms.h"

namespace vantrix {

struct Text64 {
  static constexpr char kName[] = "text64";
  static constexpr int kBytes = 64;
  static constexpr bool RunsOn(InstructionSets has) { return has.ssse3; }
};

}  // namespace vantrix
