#include "host/ordinary/ordinary.h"
#include "host/reference/reference.h"

namespace vantrix::host {
namespace {

template <class Lists>
Routine Find(Lists list, uint16_t slot) {
  for (const auto& entry : list)
    if (entry.slot == slot) return entry.routine;
  return nullptr;
}

Routine Find(SuiteIndex suite, uint16_t slot) {
  const auto first = [=](Routine ordinary, auto references) {
    return ordinary ? ordinary : Find(references, slot);
  };
  switch (suite) {
    case kBlend:
      return first(Find(OrdinaryBlends(), slot), BlendReferences());
    case kConvert:
      return first(Find(OrdinaryConversions(), slot), ConvertReferences());
    case kFilter:
      return first(Find(OrdinaryFilters(), slot), FilterReferences());
    case kMemory:
      return Find(MemoryReferences(), slot);
    case kPath:
      return Find(OrdinaryPaths(), slot);
    case kResample:
      return first(Find(OrdinaryResampling(), slot), ResampleReferences());
    case kSelect:
      return first(Find(OrdinarySelection(), slot), SelectReferences());
    default:
      return nullptr;
  }
}

}  // namespace

// Each compilation of these sources gives this function a name of its own.
extern "C" [[gnu::visibility("default")]] Routine VANTRIX_FIND(SuiteIndex suite, uint16_t slot) {
  return Find(suite, slot);
}

}  // namespace vantrix::host
