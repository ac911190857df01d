#include "host/catalog.h"

#include "suites/blend/slots.h"
#include "suites/convert/slots.h"
#include "suites/filter/slots.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/slots.h"
#include "suites/resample/slots.h"
#include "suites/select/slots.h"

namespace vantrix::host {
namespace {

// The core suite's one hook forwards to the host's routine.
constexpr Slot kCoreSlots[] = {
    {kNoiseBuffer, Gate::kAlways, "NoiseBufferHook", "base, count, size",
     "records the noise buffer, then the host's own routine"},
};

}  // namespace

const std::array<SuiteEntry, kSuiteCount>& Catalog() {
  static const std::array<SuiteEntry, kSuiteCount> suites = {{
      {kBlend, "blnd", kBlendSlots, BlendReferences()},
      {kConvert, "conv", kConvertSlots, ConvertReferences()},
      {kCore, "core", kCoreSlots, {}},
      {kDisplay, "disp", {}, {}},
      {kFilter, "filt", kFilterSlots, FilterReferences()},
      {kMemory, "memo", kMemorySlots, MemoryReferences()},
      {kPaint, "pntg", kPaintSlots, {}},
      {kResample, "rsmp", kResampleSlots, ResampleReferences()},
      {kSelect, "sele", kSelectSlots, SelectReferences()},
      {kPath, "path", kPathSlots, PathReferences()},
  }};
  return suites;
}

std::string SlotName(const SuiteEntry& suite, uint16_t slot) {
  return std::string(suite.name) + ':' + std::to_string(slot);
}

std::string WritesNoSlot(const std::string& name) {
  return "the plug-in writes no slot " + name + " here";
}

const Reference* FindReference(const SuiteEntry& suite, uint16_t slot) {
  for (const Reference& reference : suite.references)
    if (reference.slot == slot) return &reference;
  return nullptr;
}

bool ProcessorOpens(Gate gate) {
  switch (gate) {
    case Gate::kAlways:
      return true;
    case Gate::kSSE:
      return __builtin_cpu_supports("sse");
    case Gate::kSSE2:
      return __builtin_cpu_supports("sse2");
    case Gate::kSSE2OrSSSE3:
      return __builtin_cpu_supports("sse2") || __builtin_cpu_supports("ssse3");
    case Gate::kSSE41:
      return __builtin_cpu_supports("sse4.1");
  }
  return false;
}

const char* NameOf(Gate gate) {
  switch (gate) {
    case Gate::kAlways:
      return "always";
    case Gate::kSSE:
      return "SSE";
    case Gate::kSSE2:
      return "SSE2";
    case Gate::kSSE2OrSSSE3:
      return "SSE2 or SSSE3";
    case Gate::kSSE41:
      return "SSE4.1";
  }
  return "";
}

}  // namespace vantrix::host
