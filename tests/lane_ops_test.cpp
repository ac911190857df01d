// Compares operations on lanes, in every form and width, with models that name each lane. Operands
// are noise and bytes that hold their place, so that a misplaced lane shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "host/exercise/arena.h"
#include "tests/builds.h"
#include "tests/lane_ops_in_form.h"

namespace vantrix {
namespace {

using Memory = std::vector<uint8_t>;

template <class T>
T LaneAt(const uint8_t* bytes, size_t index) {
  T lane;
  std::memcpy(&lane, bytes + index * sizeof(T), sizeof lane);
  return lane;
}
template <class T>
void Append(Memory& memory, T lane) {
  const auto bytes = reinterpret_cast<const uint8_t*>(&lane);
  memory.insert(memory.end(), bytes, bytes + sizeof lane);
}

// What an operation makes of registers of `bytes` bytes.
using Model = std::function<Memory(const LaneOperands& in, size_t bytes)>;

// Lane i is rule(in, i). There are as many bytes as the operands have, and at least one lane.
template <class T, class Rule>
Model Each(Rule rule) {
  return [=](const LaneOperands& in, size_t bytes) {
    Memory made;
    for (size_t i = 0; i < std::max<size_t>(bytes / sizeof(T), 1); ++i)
      Append(made, static_cast<T>(rule(in, i)));
    return made;
  };
}
// The same for lanes that come from their 16-byte group: lane i of a group is rule(a, b, i), which
// sees only that group's lanes, of type From.
template <class From, class T, class Rule>
Model InGroups(Rule rule) {
  return Each<T>([=](const LaneOperands& in, size_t i) {
    const size_t lanes = 16 / sizeof(T), group = i / lanes * 16;
    const auto a = [&](size_t k) { return LaneAt<From>(in.a + group, k); };
    const auto b = [&](size_t k) { return LaneAt<From>(in.b + group, k); };
    return rule(a, b, i % lanes);
  });
}
template <class T>
Model Interleaved(bool isHigh) {
  return InGroups<T, T>([=](auto a, auto b, size_t i) {
    const size_t from = i / 2 + (isHigh ? 8 / sizeof(T) : 0);
    return i % 2 ? b(from) : a(from);
  });
}
// Narrowed lanes of each group: those of a, then those of b.
template <class From, class T>
Model Narrowed(int64_t least, int64_t most) {
  return InGroups<From, T>([=](auto a, auto b, size_t i) {
    const size_t half = 8 / sizeof(T);
    return std::clamp<int64_t>(i < half ? a(i) : b(i - half), least, most);
  });
}
template <class T>
Model Spread(size_t lane) {
  return InGroups<T, T>([=](auto a, auto, size_t) { return a(lane); });
}
Model Weighed(size_t start) {
  return Each<uint16_t>([=](const LaneOperands& in, size_t i) {
    const size_t k = i / 8 * 16 + start + i % 8;
    return in.a[k] * (255 - in.c[k]) + in.b[k] * in.c[k];
  });
}
// Lane i is rule(lane i of a, lane i of b).
template <class T, class Rule>
Model Pairwise(Rule rule) {
  return Each<T>([=](const LaneOperands& in, size_t i) {
    return rule(LaneAt<T>(in.a, i), LaneAt<T>(in.b, i));
  });
}
template <class T>
Model SetBits() {
  return [](const LaneOperands& in, size_t bytes) {
    uint64_t bits = 0;
    for (size_t i = 0; i < bytes; ++i)
      bits |= uint64_t{LaneAt<T>(in.a, i / sizeof(T)) < LaneAt<T>(in.b, i / sizeof(T))} << i;
    Memory made;
    Append(made, bits);
    return made;
  };
}
Memory BytesFrom(const uint8_t* from, size_t bytes) { return Memory(from, from + bytes); }
Model AreSame() {
  return [](const LaneOperands& in, size_t bytes) {
    return Memory{BytesFrom(in.a, bytes) == BytesFrom(in.c, bytes)};
  };
}

const std::map<std::string, Model>& Models() {
  static const std::map<std::string, Model> models = {
      {"Fill 8", Each<uint8_t>([](auto& in, size_t) { return in.a[0]; })},
      {"Fill 16", Each<uint16_t>([](auto& in, size_t) { return LaneAt<uint16_t>(in.a, 0); })},
      {"Half 0", [](auto& in, size_t bytes) { return BytesFrom(in.a, bytes / 2); }},
      {"Half 1", [](auto& in, size_t bytes) { return BytesFrom(in.a + bytes / 2, bytes / 2); }},
      {"Join",
       [](auto& in, size_t bytes) {
         Memory made = BytesFrom(in.a + bytes / 2, bytes / 2);
         made.insert(made.end(), in.b, in.b + bytes / 2);
         return made;
       }},
      {"InterleaveLow 8", Interleaved<uint8_t>(false)},
      {"InterleaveLow 16", Interleaved<uint16_t>(false)},
      {"InterleaveLow 32", Interleaved<uint32_t>(false)},
      {"InterleaveLow 64", Interleaved<uint64_t>(false)},
      {"InterleaveHigh 8", Interleaved<uint8_t>(true)},
      {"InterleaveHigh 16", Interleaved<uint16_t>(true)},
      {"InterleaveHigh 32", Interleaved<uint32_t>(true)},
      {"InterleaveHigh 64", Interleaved<uint64_t>(true)},
      {"WidenLow", InGroups<uint8_t, uint16_t>([](auto a, auto, size_t i) { return a(i); })},
      {"WidenHigh", InGroups<uint8_t, uint16_t>([](auto a, auto, size_t i) { return a(i + 8); })},
      {"Narrow 16", Narrowed<int16_t, uint8_t>(0, 255)},
      {"Narrow 32", Narrowed<int32_t, int16_t>(-32768, 32767)},
      {"Narrow of Widen", Each<uint8_t>([](auto& in, size_t i) { return in.a[i]; })},
      {"InMemoryOrder",
       [](auto& in, size_t bytes) {
         Memory made;
         for (const uint8_t* from : {in.a, in.b})
           for (size_t i = 0; i < bytes / 2; ++i)
             Append(made, static_cast<uint8_t>(std::clamp<int>(LaneAt<int16_t>(from, i), 0, 255)));
         return made;
       }},
      {"WeighLow", Weighed(0)},
      {"WeighHigh", Weighed(8)},
      {"Twice", Each<uint8_t>([](auto& in, size_t i) { return in.a[i / 2]; })},
      {"HighProduct", Pairwise<uint16_t>([](uint32_t a, uint32_t b) { return a * b >> 16; })},
      {"Excess", Pairwise<uint8_t>([](int a, int b) { return std::max(a - b, 0); })},
      {"SumOfDifferences", Each<uint64_t>([](auto& in, size_t i) {
         int sum = 0;
         for (size_t k = 8 * i; k < 8 * i + 8; ++k) sum += std::abs(in.a[k] - in.b[k]);
         return sum;
       })},
      {"SumOfDifferences of one",
       Each<uint32_t>([](auto& in, size_t) { return std::abs(in.a[0] - in.b[0]); })},
      {"RoundedMean", Pairwise<uint8_t>([](int a, int b) { return (a + b + 1) / 2; })},
      {"ProductSums", Each<uint32_t>([](auto& in, size_t i) {
         const auto product = [&](size_t k) {
           return int64_t{LaneAt<int16_t>(in.a, k)} * LaneAt<int16_t>(in.b, k);
         };
         return static_cast<uint32_t>(product(2 * i) + product(2 * i + 1));
       })},
      {"ToFloats", Each<float>([](auto& in, size_t i) { return LaneAt<int32_t>(in.a, i); })},
      {"Truncated", Each<int32_t>([](auto& in, size_t i) {
         return static_cast<float>(LaneAt<int32_t>(in.a, i)) / 3.0f;
       })},
      {"Root", Each<float>([](auto& in, size_t i) {
         return std::sqrt(static_cast<float>(LaneAt<uint32_t>(in.a, i) >> 1));
       })},
      {"Spread 8", Spread<uint8_t>(13)},
      {"Spread 16", Spread<uint16_t>(5)},
      {"Spread 32", Spread<uint32_t>(2)},
      {"ClampedSum", Pairwise<uint16_t>([](int a, int b) { return std::min(a + b, 65535); })},
      {"HalfUp", Pairwise<uint16_t>([](int a, int) { return (a + 1) / 2; })},
      {"TruncatedQuotient", Pairwise<uint16_t>([](int a, int b) { return a / (b | 2); })},
      {"IsLight", Each<uint8_t>([](auto& in, size_t i) { return in.a[i] >= 128 ? 255 : 0; })},
      {"SetBytes 8", SetBits<uint8_t>()},
      {"SetBytes 16", SetBits<uint16_t>()},
      {"AllSet", AreSame()},
      {"NoneSet", AreSame()},
      {"Shuffle", InGroups<uint8_t, uint8_t>([](auto a, auto b, size_t i) {
         return b(i) >= 128 ? uint8_t{0} : a(b(i) & 15);
       })},
      {"MixedProductSums", Each<int16_t>([](auto& in, size_t i) {
         const auto product = [&](size_t k) { return (in.a[k] & 127) * LaneAt<int8_t>(in.b, k); };
         return product(2 * i) + product(2 * i + 1);
       })},
      {"StoreChangedGroups", Each<uint8_t>([](auto& in, size_t i) {
         const size_t group = i / 16 * 16;
         return std::equal(in.a + group, in.a + group + 16, in.b + group) ? in.c[i] : in.b[i];
       })},
  };
  return models;
}

// Returns bytes that hold their place, noise, and operands
// that are the same except for some groups or single bytes.
std::vector<LaneOperands> Operands() {
  std::vector<LaneOperands> all;
  LaneOperands places;
  for (size_t i = 0; i < 64; ++i) {
    places.a[i] = static_cast<uint8_t>(i);
    places.b[i] = static_cast<uint8_t>(64 + i);
    places.c[i] = static_cast<uint8_t>(128 + i);
  }
  all.push_back(places);
  std::mt19937 random;
  for (int round = 0; round < 2000; ++round) {
    LaneOperands noise;
    for (size_t i = 0; i < 64; ++i) {
      noise.a[i] = static_cast<uint8_t>(random());
      noise.b[i] = static_cast<uint8_t>(random());
      noise.c[i] = static_cast<uint8_t>(random());
    }
    if (round % 4 == 1) std::memcpy(noise.b, noise.a, 64), noise.b[random() % 64] ^= 1;
    if (round % 4 == 2) std::memcpy(noise.c, noise.a, 64), noise.c[random() % 64] ^= 1;
    if (round % 4 == 3) {
      std::memcpy(noise.c, noise.a, 64);
      std::memcpy(noise.b + random() % 4 * 16, noise.a, 16);
    }
    all.push_back(noise);
  }
  return all;
}

struct TestedForm {
  const char* name;
  int bytes;
  bool runsHere;
  void (*run)(const LaneOperands& operands, void* taker, TakeResult* take);
  int (*addOne8)(const uint8_t* from, uint8_t* to, intptr_t count);
  int (*addOne16)(const uint16_t* from, uint16_t* to, intptr_t count);
  int (*addOne32)(const uint32_t* from, uint32_t* to, intptr_t count);
};

std::vector<TestedForm> TestedForms() {
  std::vector<TestedForm> forms;
  const auto add = [&]<class Form>() {
    using Ops = LaneOpsIn<Form>;
    forms.push_back({Form::kName, Form::kBytes, Form::RunsOn(InstructionSetsHere()), Ops::Run,
                     Ops::AddOne, Ops::AddOne, Ops::AddOne});
  };
  Forms::ForEach(add);
  TestForms::ForEach(add);
  return forms;
}

class LaneOpsTest : public ::testing::TestWithParam<TestedForm> {
 protected:
  void SetUp() override {
    if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
  }
};

TEST_P(LaneOpsTest, DoAsTheirNamesSayInEveryWidth) {
  struct Checking {
    const LaneOperands* operands;
    std::set<std::string> seen;
  } checking;
  const auto check = [](void* taker, const LaneResult& result) {
    auto* const now = static_cast<Checking*>(taker);
    const Memory want = Models().at(result.operation)(*now->operands, result.bytes);
    ASSERT_EQ(want, BytesFrom(result.result, result.resultBytes))
        << result.operation << " of " << result.bytes << " bytes";
    now->seen.insert(result.operation);
  };
  for (const LaneOperands& operands : Operands()) {
    checking.operands = &operands;
    GetParam().run(operands, &checking, check);
    ASSERT_FALSE(HasFailure());
  }
  const bool hasShuffle =
      GetParam().name != std::string("scalar") && GetParam().name != std::string("SSE2");
  EXPECT_EQ(checking.seen.size(), Models().size() - (hasShuffle ? 0 : 2));
}

// Returns in how many places a row must be processed: in the widest registers that it fills, the
// last one reaching back, but in three of 32 bytes rather than two of 64. Below 16 bytes, in
// wide forms below 32, one place holds both ends. Only the scalar form takes one sample at a time.
intptr_t PlacesOf(intptr_t formBytes, intptr_t sampleBytes, intptr_t count) {
  if (formBytes == 1) return count;
  if (formBytes == 64 && count * sampleBytes > 64 && count * sampleBytes <= 96) return 3;
  for (intptr_t bytes = formBytes; bytes >= std::min<intptr_t>(formBytes, 32); bytes /= 2)
    if (count * sampleBytes >= bytes) return (count * sampleBytes + bytes - 1) / bytes;
  return std::min<intptr_t>(count, 1);
}

template <class T>
void ExpectRows(int (*addOne)(const T*, T*, intptr_t), intptr_t formBytes) {
  static host::Arena arena(2, 4096);
  for (const bool isAtEnd : {false, true}) {
    for (size_t count = 0; count * sizeof(T) <= 400; ++count) {
      // At the first or the last byte that may be accessed.
      const size_t start = isAtEnd ? arena.RegionBytes() - count * sizeof(T) : 0;
      T* const from = reinterpret_cast<T*>(arena.Region(0) + start);
      T* const to = reinterpret_cast<T*>(arena.Region(1) + start);
      std::memset(arena.Region(1), 0x5A, arena.RegionBytes());
      for (size_t i = 0; i < count; ++i) from[i] = static_cast<T>(i * 0x01010307u);
      const auto length = static_cast<intptr_t>(count);
      EXPECT_EQ(addOne(from, to, length), PlacesOf(formBytes, sizeof(T), length)) << count;
      for (size_t i = 0; i < count; ++i)
        ASSERT_EQ(to[i], static_cast<T>(from[i] + 1)) << "sample " << i << " of " << count;
      const uint8_t* const rest = isAtEnd ? arena.Region(1) : arena.Region(1) + count * sizeof(T);
      for (size_t i = 0; i < arena.RegionBytes() - count * sizeof(T); ++i)
        ASSERT_EQ(rest[i], 0x5A) << "beside " << count;
    }
  }
}

TEST_P(LaneOpsTest, TakeEveryRowInFewPlaces) {
  ExpectRows<uint8_t>(GetParam().addOne8, GetParam().bytes);
  ExpectRows<uint16_t>(GetParam().addOne16, GetParam().bytes);
  ExpectRows<uint32_t>(GetParam().addOne32, GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Forms, LaneOpsTest, ::testing::ValuesIn(TestedForms()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace vantrix
