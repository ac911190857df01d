// Runs every operation on lanes in the form that this unit is compiled for.
#include "tests/lane_ops_in_form.h"

#include "common/blocks.h"
#include "common/groups.h"
#include "common/look_up.h"

namespace vantrix {
namespace {

struct Recorder {
  void* taker;
  TakeResult* take;
  size_t bytes;

  template <class R>
  VX_INLINE void operator()(const char* operation, R result) const {
    alignas(64) uint8_t memory[128];
    __builtin_memcpy(memory, &result, sizeof result);
    take(taker, {operation, bytes, memory, sizeof result});
  }
};

template <int kBytes>
void RunOn(const LaneOperands& in, const Recorder& record) {
  using B = Lanes<uint8_t, kBytes>;
  using W = U16<B>;
  using S = U32<B>;
  using Q = U64<B>;
  const auto bytesOf = [&](const uint8_t* from) VX_INLINED { return Load<B>(from); };
  const auto wordsOf = [&](const uint8_t* from) VX_INLINED { return Load<W>(from); };
  const auto sumsOf = [&](const uint8_t* from) VX_INLINED { return Load<S>(from); };
  const auto quadsOf = [&](const uint8_t* from) VX_INLINED { return Load<Q>(from); };

  record("Fill 8", Fill<B>(in.a[0]));
  record("Fill 16", Fill<W>(Load<uint16_t>(in.a)));
  record("Half 0", Half<0>(bytesOf(in.a)));
  record("Half 1", Half<1>(bytesOf(in.a)));
  record("Join", Join(Half<1>(bytesOf(in.a)), Half<0>(bytesOf(in.b))));
  record("InterleaveLow 8", InterleaveLow(bytesOf(in.a), bytesOf(in.b)));
  record("InterleaveLow 16", InterleaveLow(wordsOf(in.a), wordsOf(in.b)));
  record("InterleaveLow 32", InterleaveLow(sumsOf(in.a), sumsOf(in.b)));
  record("InterleaveLow 64", InterleaveLow(quadsOf(in.a), quadsOf(in.b)));
  record("InterleaveHigh 8", InterleaveHigh(bytesOf(in.a), bytesOf(in.b)));
  record("InterleaveHigh 16", InterleaveHigh(wordsOf(in.a), wordsOf(in.b)));
  record("InterleaveHigh 32", InterleaveHigh(sumsOf(in.a), sumsOf(in.b)));
  record("InterleaveHigh 64", InterleaveHigh(quadsOf(in.a), quadsOf(in.b)));
  record("WidenLow", WidenLow(bytesOf(in.a)));
  record("WidenHigh", WidenHigh(bytesOf(in.a)));
  record("Narrow 16", Narrow(wordsOf(in.a), wordsOf(in.b)));
  record("Narrow 32", Narrow(sumsOf(in.a), sumsOf(in.b)));
  record("Narrow of Widen", Narrow(WidenLow(bytesOf(in.a)), WidenHigh(bytesOf(in.a))));
  record("InMemoryOrder", InMemoryOrder(Narrow(wordsOf(in.a), wordsOf(in.b))));
  record("WeighLow", WeighLow(bytesOf(in.a), bytesOf(in.b), bytesOf(in.c)));
  record("WeighHigh", WeighHigh(bytesOf(in.a), bytesOf(in.b), bytesOf(in.c)));
  record("Twice", Twice(Half<0>(bytesOf(in.a))));
  record("HighProduct", HighProduct(wordsOf(in.a), wordsOf(in.b)));
  record("Excess", Excess(bytesOf(in.a), bytesOf(in.b)));
  record("SumOfDifferences", SumOfDifferences(bytesOf(in.a), bytesOf(in.b)));
  record("RoundedMean", RoundedMean(bytesOf(in.a), bytesOf(in.b)));
  record("ProductSums", ProductSums(wordsOf(in.a), wordsOf(in.b)));
  const auto floats = ToFloats(As<I32<B>>(sumsOf(in.a)));
  record("ToFloats", floats);
  record("Truncated", Truncated(floats / 3.0f));
  record("Root", Root(ToFloats(As<I32<B>>(sumsOf(in.a) >> 1))));
  record("Spread 8", Spread<13>(bytesOf(in.a)));
  record("Spread 16", Spread<5>(wordsOf(in.a)));
  record("Spread 32", Spread<2>(sumsOf(in.a)));
  record("ClampedSum", ClampedSum(wordsOf(in.a), wordsOf(in.b)));
  record("HalfUp", HalfUp(wordsOf(in.a)));
  record("TruncatedQuotient", TruncatedQuotient(wordsOf(in.a), wordsOf(in.b) | 2));
  record("IsLight", IsLight(bytesOf(in.a)));
  record("SetBytes 8", uint64_t{SetBytes(bytesOf(in.a) < bytesOf(in.b))});
  record("SetBytes 16", uint64_t{SetBytes(wordsOf(in.a) < wordsOf(in.b))});
  record("AllSet", uint8_t{AllSet(bytesOf(in.a) == bytesOf(in.c))});
  record("NoneSet", uint8_t{NoneSet(bytesOf(in.a) != bytesOf(in.c))});
#if defined(__SSSE3__)
  record("Shuffle", Shuffle(bytesOf(in.a), bytesOf(in.b)));
  record("MixedProductSums", MixedProductSums(B(bytesOf(in.a) & 127), bytesOf(in.b)));
#endif

  alignas(64) uint8_t changed[kBytes];
  Store(changed, bytesOf(in.c));
  StoreChangedGroups(changed, bytesOf(in.a), bytesOf(in.b));
  record("StoreChangedGroups", Load<B>(changed));
}

// Runs the overloads of these for a single sample.
void RunOnOne(const LaneOperands& in, const Recorder& record) {
  using Byte = Lanes<uint8_t, 1>;
  using Word = Lanes<uint16_t, 1>;
  const auto a = Load<Byte>(in.a), b = Load<Byte>(in.b);
  const auto aWord = Load<Word>(in.a), bWord = Load<Word>(in.b);
  record("Excess", Excess(a, b));
  record("RoundedMean", RoundedMean(a, b));
  record("SumOfDifferences of one", SumOfDifferences(a, b));
  record("ClampedSum", ClampedSum(aWord, bWord));
  record("HalfUp", HalfUp(aWord));
}

template <class T>
VX_INLINE int AddOneInBlocks(const T* from, T* to, intptr_t count) {
  int places = 0;
  WithBlocks<VX_FORM, T>(count, [&](auto walk) VX_INLINED {
    walk.ForEach([&](auto place) VX_INLINED {
      place.StoreTo(to, place.LoadFrom(from) + 1);
      ++places;
    });
  });
  return places;
}

}  // namespace

template <>
void LaneOpsIn<VX_FORM>::Run(const LaneOperands& operands, void* taker, TakeResult* take) {
  RunOnOne(operands, {taker, take, 1});
  RunOn<16>(operands, {taker, take, 16});
  RunOn<32>(operands, {taker, take, 32});
  RunOn<64>(operands, {taker, take, 64});
}

template <>
int LaneOpsIn<VX_FORM>::AddOne(const uint8_t* from, uint8_t* to, intptr_t count) {
  return AddOneInBlocks(from, to, count);
}
template <>
int LaneOpsIn<VX_FORM>::AddOne(const uint16_t* from, uint16_t* to, intptr_t count) {
  return AddOneInBlocks(from, to, count);
}
template <>
int LaneOpsIn<VX_FORM>::AddOne(const uint32_t* from, uint32_t* to, intptr_t count) {
  return AddOneInBlocks(from, to, count);
}

}  // namespace vantrix
