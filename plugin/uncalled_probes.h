// Probes that are part of the module though nothing in it calls them.
#pragma once

#include "plugin/base/system.h"

namespace vantrix {

uint8_t HasSSE42(const System& system);
uint8_t HasAVX(const System& system);
uint8_t HasAVX2(const System& system);
uint8_t HasAVX2OnLateType(
    const System& system);                    // never true: the type has two bits, so it is below 6
int32_t GetVendorCode(const System& system);  // 8 Intel, 9 AMD, 7 any other
uint32_t GetCoreCount(const System& system);
uint32_t GetLogicalCount(const System& system);
uint32_t GetFeatures1Ebx(const System& system);
uint8_t HasAltiVec();
uint8_t HasNEON();
uint8_t HasVSX();
uint32_t GetClockMegahertz(const System& system);  // 0 if the system does not say

}  // namespace vantrix
