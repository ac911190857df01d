#include "tests/fake_host.h"

#include <xmmintrin.h>

#include <cstring>

#include "common/tables.h"

namespace vantrix {
namespace {

FakeHost* host;

int64_t Poll() { return 77; }

uint64_t TakeNoise(uint8_t* base, uint32_t count, uint32_t size) {
  host->noiseCalls.push_back({base, count, size});
  return 0x123456789ABCDEF0;
}

uint32_t Answer(uint32_t signature, uint32_t selector, void* answer) {
  int installed = 0;
  for (int i = 0; i < kSuiteCount; ++i)
    installed += !host->ChangedSlots(static_cast<SuiteIndex>(i)).empty();
  const bool hasTables = MultiplyTable[255][255] == 255 && DivideTable[255][255] == 255;
  host->queries.push_back({signature, selector, installed, hasTables, _mm_getcsr()});
  if (signature == kPluginKind) {
    *static_cast<const SuiteRecord**>(answer) = host->suiteAnswer;
    return host->suiteResult;
  }
  const bool isDebug = selector == Code("pdbg");
  const uint64_t value = isDebug ? host->debugAnswer : host->guardAnswer;
  std::memcpy(answer, &value, sizeof value);
  return isDebug ? host->debugResult : host->guardResult;
}

void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag) {
  host->reports.push_back({message, sourceFile, line, flag});
}

}  // namespace

FakeHost::FakeHost() {
  host = this;
  for (int i = 0; i < kSuiteCount; ++i) {
    const SuiteFormat& format = kSuiteFormats[i];
    for (uintptr_t slot = 0; slot < format.savedEntries; ++slot)
      originals_[i].push_back(reinterpret_cast<Routine>(0x10000 * (i + 1) + slot));
  }
  originals_[kCore][kHostPoll] = AsRoutine(Poll);
  originals_[kCore][kNoiseBuffer] = AsRoutine(TakeNoise);
  originals_[kCore][kHostCapabilityQuery] = AsRoutine(Answer);
  originals_[kCore][kHostAssert] = AsRoutine(Assert);
  live_ = originals_;
  for (int i = 0; i < kSuiteCount; ++i) {
    const SuiteFormat& format = kSuiteFormats[i];
    records.push_back(
        {format.code, format.version, static_cast<int16_t>(format.savedEntries), live_[i].data()});
  }
}

const SuiteParameterBlock* FakeHost::Block() {
  block_.resize(sizeof(SuiteParameterBlock) + records.size() * sizeof(SuiteRecord));
  const SuiteParameterBlock head{0xFEEDBEEF, static_cast<int32_t>(records.size())};
  std::memcpy(block_.data(), &head, sizeof head);
  std::memcpy(block_.data() + sizeof head, records.data(), records.size() * sizeof(SuiteRecord));
  return reinterpret_cast<const SuiteParameterBlock*>(block_.data());
}

std::vector<int> FakeHost::ChangedSlots(SuiteIndex suite) const {
  std::vector<int> changed;
  for (size_t slot = 0; slot < live_[suite].size(); ++slot)
    if (live_[suite][slot] != originals_[suite][slot]) changed.push_back(static_cast<int>(slot));
  return changed;
}

bool FakeHost::IsUntouched() const { return live_ == originals_; }

}  // namespace vantrix
