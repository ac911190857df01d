#include "host/verify.h"

#include <cstdio>

#include "host/exercise/fault.h"

namespace vantrix::host {

bool Verify(const Tables& tables, int scenes) {
  Arena arena;
  int passed = 0, failed = 0;
  for (const SuiteEntry& suite : Catalog()) {
    for (const Reference& reference : suite.references) {
      if (!tables.IsChanged(suite.index, reference.slot)) continue;
      std::string difference;
      int scene = 0;
      for (; scene < scenes && difference.empty(); ++scene) {
        NameFault("suite %s slot %d, scene %d", suite.name, reference.slot, scene);
        difference =
            CompareRoutines(reference.exercise, tables.Default(suite.index, reference.slot),
                            tables.Live(suite.index, reference.slot),
                            Scene(arena, Choices(static_cast<uint64_t>(scene))));
      }
      const bool isSame = difference.empty();
      ++(isSame ? passed : failed);
      std::printf("%s %s %3d", isSame ? "ok    " : "FAILED", suite.name, reference.slot);
      if (isSame)
        std::printf("  %d scenes\n", scenes);
      else
        std::printf("  scene %d: %s\n", scene - 1, difference.c_str());
      std::fflush(stdout);
    }
  }
  NameNoFault();
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0;
}

}  // namespace vantrix::host
