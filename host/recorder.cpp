#include "host/recorder.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace vantrix::host {
namespace {

thread_local bool isRecording;
thread_local std::vector<RecordedCall> calls;
thread_local int64_t result;

template <SuiteIndex kSuite, uint16_t kSlot>
int64_t Record(int64_t whole, double real, const void* place, float single, uint8_t byte,
               int32_t number, int64_t seventh, const void* eighth, double ninth, int16_t tenth,
               uint64_t last) {
  if (!isRecording) {
    const uint32_t code = kSuiteFormats[kSuite].code;
    std::fprintf(stderr,
                 "vantrix-host: suite %c%c%c%c slot %d was called, but this host has no routine "
                 "for it\n",
                 code >> 24, code >> 16 & 255, code >> 8 & 255, code & 255, kSlot);
    std::exit(3);
  }
  calls.push_back({kSuite, kSlot, whole, real, place, single, byte, number, seventh, eighth, ninth,
                   tenth, last});
  return result;
}

template <SuiteIndex kSuite, size_t... kSlot>
std::vector<Routine> EntriesOf(std::index_sequence<kSlot...>) {
  return {reinterpret_cast<Routine>(Record<kSuite, uint16_t{kSlot}>)...};
}
template <size_t... kSuite>
std::vector<Routine> EntriesOfSuite(SuiteIndex suite, std::index_sequence<kSuite...>) {
  using Maker = std::vector<Routine>();
  static constexpr Maker* kMakers[] = {[] {
    return EntriesOf<static_cast<SuiteIndex>(kSuite)>(
        std::make_index_sequence<kSuiteFormats[kSuite].savedEntries>{});
  }...};
  return kMakers[suite]();
}

}  // namespace

std::optional<const char*> WrongInPassingThrough(Routine routine, SuiteIndex suite, uint16_t slot,
                                                 uint64_t seed) {
  const auto next = [&] { return seed = seed * 6364136223846793005u + 1442695040888963407u; };
  const auto place = [&] { return reinterpret_cast<const void*>(next()); };
  const auto real = [&] { return static_cast<double>(static_cast<int64_t>(next())) * 0x1p-40; };
  RecordedCall sent{suite,
                    slot,
                    static_cast<int64_t>(next()),
                    real(),
                    place(),
                    static_cast<float>(real()),
                    static_cast<uint8_t>(next() >> 32),
                    static_cast<int32_t>(next() >> 32),
                    static_cast<int64_t>(next()),
                    place(),
                    real(),
                    static_cast<int16_t>(next() >> 32),
                    next()};
  result = static_cast<int64_t>(next());
  calls.clear();
  isRecording = true;
  const int64_t returned = reinterpret_cast<RecordedRoutine*>(routine)(
      sent.whole, sent.real, sent.place, sent.single, sent.byte, sent.number, sent.seventh,
      sent.eighth, sent.ninth, sent.tenth, sent.last);
  isRecording = false;
  if (calls.empty()) return "the host's own routine was not called";
  if (calls.size() > 1) return "the host's own routine was called more than once";
  if (calls[0].suite != suite || calls[0].slot != slot) return "another slot's routine was called";
  if (calls[0] != sent) return "an argument came otherwise than it went";
  if (returned != result) return "the result is not the host's own routine's";
  return {};
}

std::vector<Routine> RecordingEntries(SuiteIndex suite) {
  return EntriesOfSuite(suite, std::make_index_sequence<kSuiteCount>{});
}

}  // namespace vantrix::host
