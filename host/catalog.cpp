#include "host/catalog.h"

#include "plugin/core_slots.h"
#include "suites/blend/slots.h"
#include "suites/convert/slots.h"
#include "suites/filter/slots.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/slots.h"
#include "suites/resample/slots.h"
#include "suites/select/slots.h"

namespace vantrix::host {

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

const Slot* FindSlot(const SuiteEntry& suite, uint16_t slot) {
  for (const Slot& line : suite.slots)
    if (line.index == slot) return &line;
  return nullptr;
}

const char kRuleWords[] =
    "In the rules, Multiply(a, b) is a x b / 255 rounded to nearest, and SignedMultiply(a, b) "
    "the same of\n"
    "a signed b, halves away from zero. Screen(a, b) is a + b - Multiply(a, b). Overlay(d, s) "
    "is\n"
    "Multiply(2 d, s) if d is below 128, else Screen(2 d - 255, s). HardLight(s, d) is "
    "Multiply(2 s, d) if\n"
    "s is below 128, else Screen(2 s - 256, d). Divide(x, y) is 255 x / y, halves up, if y is "
    "above x,\n"
    "else 255.";

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
