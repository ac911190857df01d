#include "host/version.h"

namespace vantrix::host {

const char* Version() { return VANTRIX_VERSION; }

}  // namespace vantrix::host
