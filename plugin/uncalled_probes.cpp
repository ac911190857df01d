#include "plugin/uncalled_probes.h"

#include "plugin/base/processor.h"

namespace vantrix {

uint8_t HasSSE42(const System& system) { return Bit(GetProcessorInfo(system).features1Ecx, 20); }

// The instructions and the system's saving of the wider registers.
uint8_t HasAVX(const System& system) {
  const uint32_t ecx = GetProcessorInfo(system).features1Ecx;
  return Bit(ecx, 27) && Bit(ecx, 28);
}

uint8_t HasAVX2(const System& system) {
  return HasAVX(system) && Bit(GetProcessorInfo(system).features7Ebx, 5);
}

uint8_t HasAVX2OnLateType(const System& system) {
  return GetProcessorInfo(system).processorType >= 6 && HasAVX2(system);
}

int32_t GetVendorCode(const System& system) {
  switch (IsGenuineIntel(system)) {
    case 1:
      return 8;
    case 2:
      return 9;
    default:
      return 7;
  }
}

uint32_t GetCoreCount(const System& system) { return GetProcessorInfo(system).coreCount; }
uint32_t GetLogicalCount(const System& system) { return GetProcessorInfo(system).logicalCount; }
uint32_t GetFeatures1Ebx(const System& system) { return GetProcessorInfo(system).features1Ebx; }

uint8_t HasAltiVec() { return 0; }
uint8_t HasNEON() { return 0; }
uint8_t HasVSX() { return 0; }

// Closes the key only when the value cannot be read. After a successful query it
// stays open: known, and kept as it is; nothing calls this at start-up.
uint32_t GetClockMegahertz(const System& system) {
  const RegistryKey key =
      system.openRegistryKey("Hardware\\Description\\System\\CentralProcessor\\0");
  if (!key) return 0;
  uint32_t megahertz = 0;
  if (!system.queryRegistryWord(key, "~MHz", &megahertz)) {
    system.closeRegistryKey(key);
    return 0;
  }
  return megahertz;
}

}  // namespace vantrix
