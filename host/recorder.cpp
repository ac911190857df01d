#include "host/recorder.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <tuple>
#include <type_traits>
#include <utility>

namespace vantrix::host {
namespace {

// Passed in registers and on the stack.
using Arguments = std::tuple<int64_t, double, const void*, float, uint8_t, int32_t, int64_t,
                             const void*, double, int16_t, uint64_t>;
struct RecordedCall {
  SuiteIndex suite;
  uint16_t slot;
  Arguments arguments;
};

thread_local bool isRecording;
thread_local std::vector<RecordedCall> calls;
thread_local int64_t result;

int64_t Record(const RecordedCall& call) {
  if (!isRecording) {
    const uint32_t code = kSuiteFormats[call.suite].code;
    std::fprintf(stderr,
                 "vantrix-host: suite %c%c%c%c slot %d was called, but this host has no routine "
                 "for it\n",
                 code >> 24, code >> 16 & 255, code >> 8 & 255, code & 255, call.slot);
    std::exit(3);
  }
  calls.push_back(call);
  return result;
}

template <SuiteIndex kSuite, uint16_t kSlot, class... A>
int64_t Entry(A... arguments) {
  return Record({kSuite, kSlot, {arguments...}});
}
template <SuiteIndex kSuite, uint16_t kSlot, class... A>
Routine EntryTaking(std::type_identity<std::tuple<A...>>) {
  return reinterpret_cast<Routine>(Entry<kSuite, kSlot, A...>);
}

template <SuiteIndex kSuite, size_t... kSlot>
std::vector<Routine> EntriesOf(std::index_sequence<kSlot...>) {
  return {EntryTaking<kSuite, kSlot>(std::type_identity<Arguments>{})...};
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

const char* WrongInPassingThrough(Routine routine, SuiteIndex suite, uint16_t slot, uint64_t seed) {
  const auto next = [&] { return seed = seed * 6364136223846793005u + 1442695040888963407u; };
  const auto make = [&]<class T>(T& argument) {
    if constexpr (std::is_pointer_v<T>)
      argument = reinterpret_cast<T>(next());
    else if constexpr (std::is_floating_point_v<T>)
      argument = static_cast<T>(static_cast<int64_t>(next()));
    else
      argument = static_cast<T>(next() >> 8 * (8 - sizeof(T)));
  };
  Arguments sent;
  std::apply([&](auto&... argument) { (make(argument), ...); }, sent);
  make(result);
  calls.clear();
  isRecording = true;
  const int64_t returned = std::apply(
      [=](auto... argument) {
        return reinterpret_cast<int64_t (*)(decltype(argument)...)>(routine)(argument...);
      },
      sent);
  isRecording = false;
  if (calls.empty()) return "the host's own routine was not called";
  if (calls.size() > 1) return "the host's own routine was called more than once";
  if (calls[0].suite != suite || calls[0].slot != slot) return "another slot's routine was called";
  if (calls[0].arguments != sent) return "an argument came otherwise than it went";
  if (returned != result) return "the result is not the host's own routine's";
  return nullptr;
}

std::vector<Routine> RecordingEntries(SuiteIndex suite) {
  return EntriesOfSuite(suite, std::make_index_sequence<kSuiteCount>{});
}

}  // namespace vantrix::host
