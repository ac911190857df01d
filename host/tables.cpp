#include "host/tables.h"

#include "host/recorder.h"
#include "host/services.h"

namespace vantrix::host {

Tables::Tables() {
  for (const SuiteEntry& suite : Catalog()) {
    defaults_[suite.index] = RecordingEntries(suite.index);
    for (const Reference& reference : suite.references)
      defaults_[suite.index][reference.slot] = reference.routine;
  }
  auto& core = defaults_[kCore];
  core[kHostPoll] = reinterpret_cast<Routine>(Poll);
  core[kNoiseBuffer] = reinterpret_cast<Routine>(TakeNoiseBuffer);
  core[kHostCapabilityQuery] = reinterpret_cast<Routine>(QueryCapability);
  core[kHostAssert] = reinterpret_cast<Routine>(Assert);
  live_ = defaults_;

  block_.head = {0, kSuiteCount};
  for (int i = 0; i < kSuiteCount; ++i) {
    const SuiteFormat& format = kSuiteFormats[i];
    block_.records[i] = {format.code, format.version, static_cast<int16_t>(format.savedEntries),
                         live_[i].data()};
  }
}

}  // namespace vantrix::host
