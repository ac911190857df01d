#include "suites/path/debug.h"

#include "plugin/base/suites.h"

namespace vantrix {

uint8_t PathDebugEnabled;
uint32_t PathDebugGuardValue;

void ReportPath(const char* message, const char* sourceFile, int32_t line, int32_t flag) {
  Call<HostAssert>(coreSuite.live[kHostAssert])(message, sourceFile, line, flag);
}

}  // namespace vantrix
