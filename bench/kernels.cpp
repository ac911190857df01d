// Every build of every kernel, and the host's routine for the slot.
#include "bench/bench.h"
#include "host/catalog.h"
#include "suites/kernel_lists.h"

namespace vantrix::bench {

void RegisterKernels() {
  for (const auto& [index, kernels] : KernelLists()) {
    if (index == kPath) continue;  // folds its input away: see fill_array.cpp
    const host::SuiteEntry& suite = host::Catalog()[index];
    for (const Kernel& kernel : kernels) {
      const host::Reference* const reference = host::FindReference(suite, kernel.slot);
      if (!reference) continue;
      const auto add = [&](const char* form, Routine routine) {
        const std::string name =
            std::string(suite.name) + "/" + std::to_string(kernel.slot) + "/" + form;
        for (const host::Shape shape : kPlanes) Register(name, reference->exercise, routine, shape);
        for (const host::Shape shape : kShortRows)
          Register(name, reference->exercise, routine, shape);
      };
      add("default", reference->routine);
      ForEachBuild(kernel, [&](const char* form, RoutineGetter getter) { add(form, getter()); });
    }
  }
}

}  // namespace vantrix::bench
