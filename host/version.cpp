#include "host/version.h"

namespace vantrix::host {

const char* Version() { return VANTRIX_VERSION; }

const char* Compiler() {
#if defined(__clang__)
  return "clang " __clang_version__;
#else
  return "g++ " __VERSION__;
#endif
}

}  // namespace vantrix::host
