// What the host and the plug-in agree on: the entry point, the parameter block
// with its suite records, and the core services.
//
// All formats are little-endian; the offsets are part of the agreement.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// An entry of a routine table. Its signature belongs to the slot, not to the type.
using Routine = void (*)();

// The routine by its signature: Call<HostPoll>(coreSuite.live[kHostPoll])().
template <class Signature>
Signature* Call(Routine routine) {
  return reinterpret_cast<Signature*>(routine);
}

// A four-character code, its first character in the most significant byte.
constexpr uint32_t Code(const char (&text)[5]) {
  uint32_t code = 0;
  for (int i = 0; i < 4; ++i) code = code << 8 | static_cast<uint8_t>(text[i]);
  return code;
}

inline constexpr uint32_t kHostSignature = Code("QXIM");
inline constexpr uint32_t kPluginKind = Code("QXXM");

// A suite: a versioned table of routines that the host owns.
struct SuiteRecord {
  uint32_t suiteCode;
  int16_t suiteVersion;
  int16_t suiteCount;  // compared with a minimum as an unsigned number
  Routine* routines;   // the live table; installers write into it
};
static_assert(sizeof(SuiteRecord) == 16 && offsetof(SuiteRecord, suiteVersion) == 4 &&
              offsetof(SuiteRecord, suiteCount) == 6 && offsetof(SuiteRecord, routines) == 8);

// Followed in memory by recordCount suite records; none when it is not positive.
struct SuiteParameterBlock {
  uint32_t hostWord;  // the host's own
  int32_t recordCount;
};
static_assert(sizeof(SuiteParameterBlock) == 8);

inline const SuiteRecord* RecordsOf(const SuiteParameterBlock* block) {
  return reinterpret_cast<const SuiteRecord*>(block + 1);
}

// What the plug-in needs of each suite, in the order of acquisition. savedEntries entries are
// copied whatever count the host reports: a table of this version has at least that many.
struct SuiteFormat {
  uint32_t code;
  int16_t version;
  uint16_t minimumCount;
  uint16_t savedEntries;
};
enum SuiteIndex {
  kBlend,
  kConvert,
  kCore,
  kDisplay,
  kFilter,
  kMemory,
  kPaint,
  kResample,
  kSelect,
  kPath,
  kSuiteCount
};
inline constexpr SuiteFormat kSuiteFormats[kSuiteCount] = {
    {Code("blnd"), 6, 109, 395},  //
    {Code("conv"), 12, 15, 79},   //
    {Code("core"), 4, 8, 17},     //
    {Code("disp"), 7, 24, 82},    //
    {Code("filt"), 9, 60, 345},   //
    {Code("memo"), 4, 36, 182},   //
    {Code("pntg"), 11, 92, 151},  //
    {Code("rsmp"), 5, 9, 62},     //
    {Code("sele"), 6, 115, 123},  //
    {Code("path"), 16, 47, 53},   //
};

// Core services, by their slot in the core suite. A boolean result is in the low byte; the other
// bits may hold anything.
enum CoreSlot { kHostPoll = 0, kNoiseBuffer = 3, kHostCapabilityQuery = 5, kHostAssert = 16 };

using HostPoll = int64_t();
using NoiseBufferRoutine = uint64_t(uint8_t* base, uint32_t count, uint32_t size);
// answer: a pointer-sized word, or a 64-bit number.
using HostCapabilityQuery = uint32_t(uint32_t signature, uint32_t selector, void* answer);
using HostAssert = void(const char* message, const char* sourceFile, int32_t line, int32_t flag);

// The entry point. Only the low 16 bits of the selector count. The result word
// is always written; on success it is 0.
enum Selector : int16_t { kAbout = 0, kStartUp = 1, kShutDown = 2 };
inline constexpr int16_t kSuiteMissing = -1;
inline constexpr int16_t kUnknownSelector = -30300;

using PluginMainRoutine = int32_t(int32_t selector, const SuiteParameterBlock* block,
                                  uintptr_t data, int16_t* result);

}  // namespace vantrix
