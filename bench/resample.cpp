// The resampling kernels beside ordinary routines that the compiler makes the best of,
// with the taps and scales of photographs.
#include "bench/bench.h"
#include "bench/ordinary_resample.h"
#include "host/exercise/exercises.h"
#include "host/exercise/resample_filters.h"
#include "suites/resample/box.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/positions.h"
#include "suites/resample/stepped.h"
#include "suites/resample/vertical.h"

namespace vantrix::bench {
namespace {

template <class Sample, int kTaps, int kPercent>
void MeasureHorizontal(Routine routine, host::Scene& scene) {
  host::FilterHorizontally<Sample>(routine, scene, {kTaps, kPercent / 100.0});
}
template <class Sample, int kTaps, int kPercent>
void MeasureVertical(Routine routine, host::Scene& scene) {
  host::FilterVertically<Sample>(routine, scene, {kTaps, kPercent / 100.0});
}

// Planes in the first and in the second level of the cache, and few rows.
constexpr host::Shape kShapes[] = {{64, 256}, {256, 1024}, {16, 1024}};

template <class Routine>
void Add(const std::string& name, host::Exercise* exercise, Routine* routine) {
  for (const host::Shape shape : kShapes)
    Register("resample/" + name, exercise, reinterpret_cast<vantrix::Routine>(routine), shape);
}

template <class Sample, int kTaps, int kPercent>
void AddHorizontal(const char* type) {
  const std::string name = std::string("horizontal ") + type + " " + std::to_string(kTaps) +
                           " taps x" + std::to_string(kPercent) + "%/";
  const auto measure = MeasureHorizontal<Sample, kTaps, kPercent>;
  Add(name + "ordinary", measure, OrdinaryHorizontal<Vectorised, Sample>);
  Add(name + "not vectorised", measure, OrdinaryHorizontal<NotVectorised, Sample>);
  Add(name + "scalar", measure, FilterHorizontalOneByOne<Sample>);
  Add(name + "SSE2", measure, FilterHorizontalWide<Sample, ByGather>);
  Add(name + "SSSE3", measure, FilterHorizontalWide<Sample, ByWindow, ByGather>);
}

template <class Sample, int kTaps>
void AddVertical(const char* type) {
  const std::string name =
      std::string("vertical ") + type + " " + std::to_string(kTaps) + " taps x73%/";
  const auto measure = MeasureVertical<Sample, kTaps, 73>;
  Add(name + "ordinary", measure, OrdinaryVertical<Vectorised, Sample>);
  Add(name + "not vectorised", measure, OrdinaryVertical<NotVectorised, Sample>);
  if constexpr (std::is_same_v<Sample, float>) {
    Add(name + "scalar", measure, FilterResampleVertical32F<OneSample>);
    Add(name + "SSE2", measure, FilterResampleVertical32F<Sse2>);
  } else {
    Add(name + "scalar", measure, FilterResampleVertical8<OneSample>);
    Add(name + "SSE2", measure, FilterResampleVertical8<Sse2>);
  }
}

// A routine in four: ordinary ones, and the kernel in both forms.
template <class Routine>
void AddAll(const std::string& name, host::Exercise* exercise, Routine* ordinary,
            Routine* notVectorised, Routine* scalar, Routine* sse2) {
  Add(name + "/ordinary", exercise, ordinary);
  Add(name + "/not vectorised", exercise, notVectorised);
  Add(name + "/scalar", exercise, scalar);
  if (sse2) Add(name + "/SSE2", exercise, sse2);
}

}  // namespace

void RegisterResample() {
  AddHorizontal<uint8_t, 2, 170>("8");
  AddHorizontal<uint8_t, 4, 170>("8");
  AddHorizontal<uint8_t, 6, 170>("8");
  AddHorizontal<uint8_t, 4, 73>("8");
  AddHorizontal<uint8_t, 6, 73>("8");
  AddHorizontal<uint8_t, 12, 33>("8");
  AddHorizontal<uint16_t, 4, 170>("16");
  AddHorizontal<uint16_t, 4, 73>("16");
  AddHorizontal<uint16_t, 6, 73>("16");
  AddHorizontal<float, 4, 170>("32F");
  AddHorizontal<float, 4, 73>("32F");
  AddHorizontal<float, 6, 73>("32F");
  AddVertical<uint8_t, 2>("8");
  AddVertical<uint8_t, 4>("8");
  AddVertical<uint8_t, 6>("8");
  AddVertical<uint8_t, 5>("8");
  AddVertical<uint8_t, 12>("8");
  AddVertical<float, 4>("32F");
  AddVertical<float, 6>("32F");
  AddVertical<float, 12>("32F");
  AddAll<BoxAverageRows>("average of 3 rows", host::ExerciseBoxAverageRows,
                         OrdinaryAverageRows<Vectorised>, OrdinaryAverageRows<NotVectorised>,
                         BoxAverageRows8<OneSample>, BoxAverageRows8<Sse2>);
  AddAll<BoxAverageArea>("average of 2x2", host::ExerciseBoxAverageArea,
                         OrdinaryAverageArea<Vectorised>, OrdinaryAverageArea<NotVectorised>,
                         BoxAverageArea8<OneSample>, BoxAverageArea8<Sse2>);
  AddAll<ResampleRowsStepped>("stepped rows", host::ExerciseResampleRowsStepped,
                              OrdinaryStepped<Vectorised>, OrdinaryStepped<NotVectorised>,
                              ResampleRowsStepped8, nullptr);
  AddAll<SampleAtPositions1D>("positions 1D", host::ExerciseSampleAtPositions1D,
                              OrdinaryPositions1D<Vectorised>, OrdinaryPositions1D<NotVectorised>,
                              SampleAtPositions1D8<OneSample>, SampleAtPositions1D8<Sse2>);
  AddAll<SampleAtPositions2D>("positions 2D", host::ExerciseSampleAtPositions2D,
                              OrdinaryPositions2D<Vectorised>, OrdinaryPositions2D<NotVectorised>,
                              SampleAtPositions2D8<OneSample>, SampleAtPositions2D8<Sse2>);
}

}  // namespace vantrix::bench
