// The limit of each slot, in the form that this unit is compiled for: the cheapest loop that reads
// and writes the same planes as the slot. Rows are multiples of 64 bytes.
#include <array>
#include <utility>

#include "bench/by_form.h"
#include "common/lanes.h"
#include "suites/blend/signatures.h"
#include "suites/convert/signatures.h"
#include "suites/filter/signatures.h"
#include "suites/memory/signatures.h"
#include "suites/resample/signatures.h"
#include "suites/select/signatures.h"

namespace vantrix::bench {
namespace {

using V = Register<uint8_t, VX_FORM>;
constexpr intptr_t kBytes = VX_FORM::kBytes;

// A plane that is read or written.
template <class Byte>
struct Rows {
  template <class T>
  Rows(T* first, intptr_t bytesApart) : row(reinterpret_cast<Byte*>(first)), stride(bytesApart) {}

  Byte* row;
  intptr_t stride;
};
template <size_t kCount>
using In = std::array<Rows<const uint8_t>, kCount>;
template <size_t kCount>
using Out = std::array<Rows<uint8_t>, kCount>;

// Writes the exclusive or of the inputs to every output.
template <size_t kInputs, size_t kOutputs>
void Stream(int32_t rows, intptr_t bytes, In<kInputs> inputs, Out<kOutputs> outputs) {
  V all[4] = {}, start{};
  asm("" : "+x"(start));  // or the compiler might write nothing, or call a library
  const auto take = [&](intptr_t x, V& sum) VX_INLINED {
    V v = kOutputs == 0 ? V{} : start;
    for (const auto& input : inputs) v ^= Load<V>(input.row + x);
    for (const auto& output : outputs) Store(output.row + x, v);
    if constexpr (kOutputs == 0) sum ^= v;
  };
  for (; rows > 0; --rows) {
    intptr_t x = 0;
    for (; x + 4 * kBytes <= bytes; x += 4 * kBytes) {
#pragma GCC unroll 4
      for (int i = 0; i < 4; ++i) take(x + kBytes * i, all[i]);
    }
    for (; x + kBytes <= bytes; x += kBytes) take(x, all[0]);
    for (auto& input : inputs) input.row += input.stride;
    for (auto& output : outputs) output.row += output.stride;
  }
  asm volatile("" ::"x"(all[0] ^ all[1] ^ all[2] ^ all[3]));
}

// A source and the destination; Masked adds a mask.
void Plane(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds) {
  Stream<2, 1>(rows, columns, {{{s, ss}, {d, ds}}}, {{{d, ds}}});
}
void Opacity(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds,
             uint32_t) {
  Plane(s, d, rows, columns, ss, ds);
}
void Color(uint32_t, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns, int32_t ds,
           int32_t ms) {
  Plane(m, d, rows, columns, ms, ds);
}
void MaskFirst(const uint8_t* m, uint8_t* d, int32_t rows, int32_t columns, int32_t ms, int32_t ds,
               uint32_t) {
  Plane(m, d, rows, columns, ms, ds);
}
void Masked(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
            int32_t ss, int32_t ds, int32_t ms) {
  Stream<3, 1>(rows, columns, {{{s, ss}, {m, ms}, {d, ds}}}, {{{d, ds}}});
}

// Two planes into a third; Share works on two planes in place.
void Planes(const uint8_t* a, uint8_t* d, const uint8_t* b, int32_t rows, int32_t columns,
            int32_t as, int32_t ds, int32_t bs) {
  Stream<2, 1>(rows, columns, {{{a, as}, {b, bs}}}, {{{d, ds}}});
}
void Inverted(const uint8_t* a, const uint8_t* b, uint8_t* d, int32_t rows, int32_t columns,
              int32_t as, int32_t bs, int32_t ds, uint32_t, uint32_t, uint32_t) {
  Planes(a, d, b, rows, columns, as, ds, bs);
}
void Share(uint8_t* q, uint8_t* p, int32_t rows, int32_t columns, int32_t qs, int32_t ps) {
  Stream<2, 2>(rows, columns, {{{p, ps}, {q, qs}}}, {{{p, ps}, {q, qs}}});
}

// One plane into twice its bytes; the others work in place.
void Expand(const uint8_t* s, uint16_t* d, int32_t rows, int32_t width, int32_t ss, int32_t ds) {
  Stream<1, 2>(rows, width, {{{s, ss}}}, {{{d, ds}, {d + width / 2, ds}}});
}
uint64_t Rescale(uint16_t* d, uint32_t, uint32_t, int32_t rows, int32_t width, int32_t ds) {
  Stream<1, 1>(rows, 2 * intptr_t{width}, {{{d, ds}}}, {{{d, ds}}});
  return 0;
}
void Mark(uint8_t* d, int32_t rows, int32_t width, int32_t ds) {
  Stream<1, 1>(rows, width, {{{d, ds}}}, {{{d, ds}}});
}

void CopyRows(const uint8_t* s, uint8_t* d, int32_t rows, int32_t bytes, int32_t ss, int32_t ds) {
  Stream<1, 1>(rows, bytes, {{{s, ss}}}, {{{d, ds}}});
}
void CopyRun(const uint8_t* s, uint8_t* d, int32_t bytes) { CopyRows(s, d, 1, bytes, 0, 0); }
int64_t Deviation(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss,
                  int32_t ds) {
  CopyRows(s, d, rows, columns, ss, ds);
  return 0;
}
void Convolution(const uint8_t* s, uint8_t* d, uint32_t rows, int32_t columns, int32_t ss,
                 int32_t ds, const ConvolutionKernel*) {
  CopyRows(s, d, static_cast<int32_t>(rows), columns, ss, ds);
}

// Only writes a value, or only reads.
template <class T>
void FillRows(T* d, int32_t rows, int32_t width, int32_t stride, uint32_t) {
  Stream<0, 1>(rows, width * intptr_t{sizeof(T)}, {}, {{{d, stride}}});
}
template <class T>
void FillRun(T* d, int32_t count, uint32_t) {
  FillRows(d, 1, count, 0, 0);
}
template <class T>
int32_t Classify(const T* d, int32_t rows, int32_t width, int32_t stride) {
  Stream<1, 0>(rows, width * intptr_t{sizeof(T)}, {{{d, stride}}}, {});
  return 0;
}
uint32_t EqualRows(const uint8_t* d, int32_t rows, int32_t width, int32_t stride, uint32_t) {
  return static_cast<uint32_t>(Classify(d, rows, width, stride));
}
uint32_t EqualRun(const uint8_t* d, int32_t bytes, uint32_t) {
  return EqualRows(d, 1, bytes, 0, 0);
}

// Several rows, or parts of rows, into one.
void AverageRows(const uint8_t* s, uint8_t* d, int32_t rows, int32_t width, const int32_t* counts,
                 int32_t ss, int32_t ds) {
  const auto from = [&]<size_t... k>(std::index_sequence<k...>) {
    constexpr auto kCount = static_cast<intptr_t>(sizeof...(k));
    Stream<kCount, 1>(rows, width, {{{s + static_cast<intptr_t>(k) * ss, kCount * ss}...}},
                      {{{d, ds}}});
  };
  if (counts[0] == 2) from(std::make_index_sequence<2>{});
  if (counts[0] == 3) from(std::make_index_sequence<3>{});
  if (counts[0] == 7) from(std::make_index_sequence<7>{});
}
void AverageArea(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t, int32_t,
                 int32_t ss, int32_t ds) {
  const intptr_t stride = 2 * intptr_t{ss};
  Stream<4, 1>(rows, columns,
               {{{s, stride}, {s + columns, stride}, {s + ss, stride}, {s + ss + columns, stride}}},
               {{{d, ds}}});
}

// Reads as many bytes of the source's rows as it writes.
template <class T>
void Horizontal(const T* s, T* d, uint32_t rows, int32_t width, const int32_t*, const uint8_t*,
                int32_t ss, int32_t ds, int32_t, const int16_t*) {
  Stream<1, 1>(static_cast<int32_t>(rows), width * intptr_t{sizeof(T)}, {{{s, ss}}}, {{{d, ds}}});
}
template <class T>
void Vertical(const T* s, T* d, int32_t rows, int32_t width, const int32_t*, const uint8_t*,
              int32_t ss, int32_t ds, int32_t, const int16_t*) {
  Stream<1, 1>(rows, width * intptr_t{sizeof(T)}, {{{s, ss}}}, {{{d, ds}}});
}

constexpr SlotsRoutine kLimits[] = {
    {kBlend, {24, 27, 28, 29, 49, 52}, Entry<Plane>},
    {kBlend, {56, 57, 58, 59}, Entry<Opacity>},
    {kBlend, {2, 7, 10, 22, 30, 47, 50}, Entry<Masked>},
    {kBlend, {3, 8, 11, 26, 31, 48, 51}, Entry<Color>},
    {kBlend, {66, 74, 75}, Entry<Planes>},
    {kBlend, {96}, Entry<Share>},
    {kBlend, {97}, Entry<Inverted>},
    {kBlend, {106}, Entry<MaskFirst>},
    {kConvert, {18}, Entry<Expand>},
    {kConvert, {19}, Entry<Rescale>},
    {kFilter, {12}, Entry<Deviation>},
    {kFilter, {28}, Entry<Convolution>},
    {kMemory, {0}, Entry<CopyRun>, ""},
    {kMemory, {1}, Entry<CopyRows>},
    {kMemory, {3}, Entry<FillRun<uint8_t>>, ""},
    {kMemory, {4}, Entry<FillRows<uint8_t>>},
    {kMemory, {17}, Entry<EqualRun>},
    {kMemory, {18}, Entry<EqualRows>},
    {kMemory, {65}, Entry<FillRun<uint16_t>>},
    {kMemory, {66}, Entry<FillRows<uint16_t>>},
    {kResample, {3}, Entry<AverageRows>},
    {kResample, {5}, Entry<Horizontal<uint8_t>>},
    {kResample, {6}, Entry<Vertical<uint8_t>>},
    {kResample, {13}, Entry<Horizontal<uint16_t>>},
    {kResample, {24}, Entry<AverageArea>},
    {kResample, {26}, Entry<Horizontal<float>>},
    {kResample, {27}, Entry<Vertical<float>>},
    {kSelect, {26}, Entry<Mark>},
    {kSelect, {33}, Entry<Classify<uint8_t>>},
    {kSelect, {75}, Entry<Classify<uint16_t>>},
};

}  // namespace

template <>
std::span<const SlotsRoutine> Limits<VX_FORM>() {
  return kLimits;
}

}  // namespace vantrix::bench
