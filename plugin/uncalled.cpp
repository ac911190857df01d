// Routines that are part of the module though nothing in it
// calls them. The linker is told to keep the list.
#include "plugin/base/builds.h"
#include "plugin/module.h"
#include "plugin/uncalled_probes.h"

namespace vantrix {

extern "C" {
extern const RoutineGetter vantrixUncalled[];
constexpr RoutineGetter vantrixUncalled[] = {
    Entry<SetSpareHook>,    Entry<GetSpareHook>,      Entry<HasSSE42>,      Entry<HasAVX>,
    Entry<HasAVX2>,         Entry<HasAVX2OnLateType>, Entry<GetVendorCode>, Entry<GetCoreCount>,
    Entry<GetLogicalCount>, Entry<GetFeatures1Ebx>,   Entry<HasAltiVec>,    Entry<HasNEON>,
    Entry<HasVSX>,          Entry<GetClockMegahertz>,
};
}

}  // namespace vantrix
