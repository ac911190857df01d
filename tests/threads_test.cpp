// Many threads call the live tables: on planes of their own, and side by
// side on one picture, as a host divides it. Under the thread sanitizer
// a write outside a strip, even of the byte that was there, is a race.
#include <gtest/gtest.h>

#include <chrono>
#include <latch>
#include <thread>

#include "host/catalog.h"
#include "plugin/base/interface.h"
#include "suites/blend/signatures.h"
#include "suites/convert/signatures.h"
#include "suites/filter/signatures.h"
#include "suites/memory/signatures.h"
#include "suites/resample/signatures.h"
#include "tests/started_tables.h"

namespace vantrix {
namespace {

constexpr int kThreads = 8;

// Calls work(thread) in all threads at once.
template <class Work>
void OnThreads(Work work) {
  std::latch start(kThreads);
  std::jthread threads[kThreads];
  for (int thread = 0; thread < kThreads; ++thread)
    threads[thread] = std::jthread([&, thread] {
      start.arrive_and_wait();
      work(thread);
    });
}

TEST(ThreadsTest, EqualTheHostsRoutinesOnPlanesOfTheirOwn) {
  const host::Tables& tables = StartedTables();
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
  std::string differences[kThreads];
  int calls[kThreads] = {};
  OnThreads([&](int thread) {
    host::Arena arena;
    for (uint64_t seed = 0; std::chrono::steady_clock::now() < end; ++seed) {
      for (const host::SuiteEntry& suite : host::Catalog()) {
        for (const host::Reference& reference : suite.references) {
          const std::string difference = host::CompareRoutines(
              reference.exercise, tables.Default(suite.index, reference.slot),
              tables.Live(suite.index, reference.slot),
              host::Scene(arena, host::Choices(seed * kThreads + static_cast<uint64_t>(thread))));
          ++calls[thread];
          if (!difference.empty()) {
            differences[thread] =
                std::string(suite.name) + ' ' + std::to_string(reference.slot) + ": " + difference;
            return;
          }
        }
      }
    }
  });
  for (int thread = 0; thread < kThreads; ++thread) {
    EXPECT_EQ(differences[thread], "");
    EXPECT_GE(calls[thread], 60);
  }
}

// A picture in strips of an odd number of columns, one per thread.
constexpr int32_t kRows = 60, kStripColumns = 37, kColumns = kThreads * kStripColumns;
constexpr int32_t kBorder = 3, kStride = kColumns + 5;

struct Picture {
  std::vector<uint8_t> source, mask, destination;
  std::vector<uint16_t> words;

  Picture() : words(kRows * kStride) {
    for (auto* plane : {&source, &mask, &destination}) {
      plane->resize((kRows + 2 * kBorder) * kStride);
      for (size_t i = 0; i < plane->size(); ++i)
        (*plane)[i] = static_cast<uint8_t>((i + source.size()) * 2654435761u >> 13);
    }
  }
  bool operator==(const Picture&) const = default;
};

// Where a strip starts in the planes.
struct Strip {
  uint8_t *source, *mask, *destination;
  uint16_t* words;
  int32_t columns;

  Strip(Picture& picture, int32_t first, int32_t count)
      : source(picture.source.data() + kBorder * kStride + first),
        mask(picture.mask.data() + kBorder * kStride + first),
        destination(picture.destination.data() + kBorder * kStride + first),
        words(picture.words.data() + first),
        columns(count) {}
};

struct StripWork {
  SuiteIndex suite;
  uint16_t slot;
  void (*run)(Routine routine, Strip strip);
};

void RunPlaneBlend(Routine routine, Strip s) {
  Call<PlaneBlend>(routine)(s.source, s.destination, kRows, s.columns, kStride, kStride);
}
void RunMaskedBlend(Routine routine, Strip s) {
  Call<MaskedBlend>(routine)(s.source, s.destination, s.mask, kRows, s.columns, kStride, kStride,
                             kStride);
}
void RunPlanesBlend(Routine routine, Strip s) {
  Call<PlanesBlend>(routine)(s.source, s.destination, s.mask, kRows, s.columns, kStride, kStride,
                             kStride);
}
void RunExpand(Routine routine, Strip s) {
  Call<Expand8To16Routine>(routine)(s.source, s.words, kRows, s.columns, kStride, 2 * kStride);
}
void RunDeviation(Routine routine, Strip s) {
  // The borders belong to other rows and strips: they are read, never written.
  Call<DeviationRoutine>(routine)(s.source, s.destination, kRows, s.columns - 2, kStride, kStride);
}
void RunConvolve(Routine routine, Strip s) {
  alignas(4) uint8_t record[sizeof(ConvolutionKernel) + 7 * 4] = {};
  const int32_t radius = kBorder, weights[] = {10, 30, 50, 76, 50, 30, 10};
  std::memcpy(record + 80, &radius, 4);
  std::memcpy(record + 84, weights, sizeof weights);
  Call<ConvolveRoutine>(routine)(s.source, s.destination, kRows, s.columns, kStride, kStride,
                                 reinterpret_cast<const ConvolutionKernel*>(record));
}
void RunCopy(Routine routine, Strip s) {
  Call<CopyRectRoutine>(routine)(s.source, s.destination, kRows, s.columns, kStride, kStride);
}
void RunFill(Routine routine, Strip s) {
  Call<FillRectRoutine>(routine)(s.destination, kRows, s.columns, kStride, 0x77);
}
void RunAverage(Routine routine, Strip s) {
  const int32_t counts[] = {1, 2, 3, 4, 7, 30};
  Call<BoxAverageRows>(routine)(s.source, s.destination, 6, s.columns, counts, kStride, kStride);
}

constexpr StripWork kStripWorks[] = {
    {kBlend, 2, RunMaskedBlend},  {kBlend, 10, RunMaskedBlend}, {kBlend, 22, RunMaskedBlend},
    {kBlend, 24, RunPlaneBlend},  {kBlend, 28, RunPlaneBlend},  {kBlend, 30, RunMaskedBlend},
    {kBlend, 47, RunMaskedBlend}, {kBlend, 52, RunPlaneBlend},  {kBlend, 66, RunPlanesBlend},
    {kBlend, 74, RunPlanesBlend}, {kConvert, 18, RunExpand},    {kFilter, 12, RunDeviation},
    {kFilter, 28, RunConvolve},   {kMemory, 1, RunCopy},        {kMemory, 4, RunFill},
    {kResample, 3, RunAverage},
};

TEST(ThreadsTest, WriteNothingBesideTheirStripOfAPicture) {
  const host::Tables& tables = StartedTables();
  for (const StripWork& work : kStripWorks) {
    SCOPED_TRACE(testing::Message() << host::Catalog()[work.suite].name << ' ' << work.slot);
    Picture expected;
    for (int32_t strip = 0; strip < kThreads; ++strip)
      work.run(tables.Default(work.suite, work.slot),
               Strip(expected, strip * kStripColumns, kStripColumns));
    for (int turn = 0; turn < 8; ++turn) {
      Picture picture;
      OnThreads([&](int thread) {
        work.run(tables.Live(work.suite, work.slot),
                 Strip(picture, thread * kStripColumns, kStripColumns));
      });
      ASSERT_EQ(picture, expected);
    }
  }
}

}  // namespace
}  // namespace vantrix
