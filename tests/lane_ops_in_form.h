// The operations on lanes as each form's unit compiles them, for a test compiled without its flags.
//
// Operands and results are passed as bytes: a unit with flags of its own must share no inline
// function with another.
#pragma once

#include <cstddef>
#include <cstdint>

#include "common/forms.h"
#include "tests/text64.h"

namespace vantrix {

struct LaneOperands {
  alignas(64) uint8_t a[64], b[64], c[64];
};

// The result of an operation on registers of `bytes` bytes, or on single lanes.
struct LaneResult {
  const char* operation;
  size_t bytes;
  const uint8_t* result;
  size_t resultBytes;
};
using TakeResult = void(void* taker, const LaneResult& result);

template <class Form>
struct LaneOpsIn {
  // Runs every operation on registers of 16, 32 and 64 bytes, and some on single lanes.
  static void Run(const LaneOperands& operands, void* taker, TakeResult* take);

  // Adds one to each of `count` samples of a row, in blocks. Returns the number of places.
  static int AddOne(const uint8_t* from, uint8_t* to, intptr_t count);
  static int AddOne(const uint16_t* from, uint16_t* to, intptr_t count);
  static int AddOne(const uint32_t* from, uint32_t* to, intptr_t count);
};

}  // namespace vantrix
