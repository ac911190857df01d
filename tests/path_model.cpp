#include "tests/path_model.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "plugin/base/suites.h"
#include "suites/memory/signatures.h"
#include "suites/path/debug.h"
#include "suites/path/fill_array.h"
#include "tests/builds.h"

namespace vantrix {
namespace {

constexpr int64_t kHead = 26;

class Model {
 public:
  explicit Model(const PathCase& call) : call_(call), outcome_{call.words, {}, {}} {
    rows_ = int64_t{Signed(3)} - Signed(1);
    stride_ = Signed(5);
    room_ = stride_ - 2;
    evenRoom_ = room_ - room_ % 2;
    calc_ = kHead + rows_ * stride_ + (call.isChecked && call.guard != 0 ? 1 : 0);
  }

  PathOutcome Run() {
    const uint32_t kOutputs[5][4] = {
        {0, 1, 1, 1}, {0, 0, 1, 0}, {0, 0, 0, 1}, {0, 1, 1, 0}, {0, 0, 1, 1}};
    if (call_.operation > 3)
      Debug("CApplyFillArrayOperation Unexpected operation code. -Tavik", 671);
    outputs_ = kOutputs[std::min(call_.operation, 4u)];
    if (call_.isChecked && call_.isDebugging) Validate(676);
    if (rows_ < 1)
      Debug("ApplyFillArrayOperation rows <= 0", 680);
    else
      for (int64_t y = 0; y < rows_; ++y) FoldRow(kHead + y * stride_);
    return std::move(outcome_);
  }

 private:
  using List = std::vector<uint32_t>;

  uint32_t& Word(int64_t at) { return outcome_.words.at(static_cast<size_t>(at)); }
  int32_t Signed(int64_t at) { return static_cast<int32_t>(Word(at)); }

  void Report(const char* message, int32_t line, int32_t flag) {
    outcome_.reports.push_back({message, kPathSourceFile, line, flag});
  }
  void Debug(const char* message, int32_t line) {
    if (call_.isChecked && call_.isDebugging) Report(message, line, 1);
  }
  void DebugIf(bool condition, const char* message, int32_t line) {
    if (condition) Debug(message, line);
  }
  void CheckGuards(int32_t line) {
    if (call_.isChecked && call_.guard != 0) Verify(line);
  }

  void Verify(int32_t line) {
    const int64_t first = kHead + std::max<int64_t>(rows_, 0) * stride_;
    if (Word(first) != call_.guard)
      Report("VerifyPathFillArray crossings buffer guard mismatch, possible buffer overwrite", line,
             1);
    if (Word(first + 1 + stride_) != call_.guard)
      Report("VerifyPathFillArray calc buffer guard mismatch, possible buffer overwrite", line, 1);
  }

  void Validate(int32_t line) {
    for (int64_t row = kHead; row < kHead + rows_ * stride_; row += stride_) {
      const int32_t pending = Signed(row + 1);
      if (pending > stride_ - 2) Report("ValidateFillArray: count too large.", line, 1);
      if (pending < 0) Report("ValidateFillArray: count is negative.", line, 1);
      if (pending % 2 != 0) continue;
      int64_t up = 0, down = 0;
      for (int64_t at = row + stride_ - 1; at >= 0 && at >= row + stride_ - pending; --at)
        ++(Word(at) % 2 != 0 ? up : down);
      if (up != down) Report("ValidateFillArray: Up does not match down.", line, 1);
    }
    if (call_.guard != 0) Verify(line);
  }

  int64_t Clamped(int64_t count, const char* message, int32_t line) {
    if (count <= room_) return count;
    Report(message, line, 0);
    return evenRoom_;
  }

  void FoldRow(int64_t row) {
    if (Word(row + 1) == 0) {
      if (call_.operation == 2) Word(row) = 0;
      return;
    }
    const int64_t pending = Clamped(Word(row + 1), "WARNING - illegal value for row count", 695);
    DebugIf(pending % 2 != 0, "ApplyFillArrayOperation Odd number of entries. (0)", 712);

    const int64_t list = row + stride_ - pending;
    std::sort(outcome_.words.begin() + list, outcome_.words.begin() + list + pending);
    CheckGuards(721);
    const int64_t resolved = Resolve(list, pending);
    const int64_t added = Cancel(list, resolved);
    CheckGuards(795);
    DebugIf(added % 2 != 0, "CApplyFillArrayOperation Odd number of entries. (1)", 799);

    DebugIf(Word(row) % 2 != 0, "CApplyFillArrayOperation Odd number of entries. (2)", 821);
    const int64_t settled = Clamped(Word(row), "WARNING - illegal value for old row count", 823);
    const auto words = outcome_.words.begin();
    const List result = Merge(List(words + list, words + list + added),
                              List(words + row + 2, words + row + 2 + settled));
    CheckGuards(914);
    DebugIf(result.size() % 2 != 0, "CApplyFillArrayOperation Odd number of entries. (3)", 920);

    Word(row + 1) = 0;
    Word(row) = static_cast<uint32_t>(result.size());
    std::copy(result.begin(), result.end(), outcome_.words.begin() + row + 2);
    outcome_.copies.push_back({calc_, row + 2, static_cast<int32_t>(4 * result.size())});
    CheckGuards(932);
  }

  int64_t Resolve(int64_t list, int64_t pending) {
    int64_t winding = 0, count = 0;
    bool isInside = false;
    for (int64_t i = 0; i < pending; ++i) {
      const uint32_t entry = Word(list + i);
      winding += entry % 2 != 0 ? 1 : -1;
      if (call_.nonZeroWinding != 0 && (winding != 0) == isInside) continue;
      isInside = winding != 0;
      Word(list + count++) = entry / 2;
    }
    return count;
  }

  int64_t Cancel(int64_t list, int64_t count) {
    int64_t kept = 0;
    for (int64_t i = 0; i < count;) {
      const uint32_t position = Word(list + i);
      int64_t length = 0;
      for (; i < count && Word(list + i) == position; ++i) ++length;
      if (length % 2 != 0) Word(list + kept++) = position;
    }
    return kept;
  }

  List Merge(const List& added, const List& settled) {
    List result;
    size_t a = 0, b = 0;
    uint32_t state = 0, output = 0;
    const auto finds = [&](uint32_t value, uint32_t toggle) {
      state ^= toggle;
      if (outputs_[state] == output) return true;
      output = outputs_[state];
      if (static_cast<int64_t>(result.size()) == room_) return false;
      result.push_back(value);
      return true;
    };
    bool fits = true;
    while (fits && a < added.size() && b < settled.size()) {
      const uint32_t headA = added[a], headB = settled[b];
      if (headA <= headB) ++a;
      if (headB <= headA) ++b;
      fits = finds(std::min(headA, headB), (headA <= headB ? 1u : 0) | (headB <= headA ? 2u : 0));
    }
    DebugIf(!fits, "CApplyFillArrayOperation Too many entries.", 863);
    for (fits = true; fits && b < settled.size();) fits = finds(settled[b++], 2);
    DebugIf(!fits, "CApplyFillArrayOperation Too many entries. (2)", 884);
    for (fits = true; fits && a < added.size();) fits = finds(added[a++], 1);
    DebugIf(!fits, "CApplyFillArrayOperation Too many entries. (3)", 905);
    return result;
  }

  const PathCase& call_;
  PathOutcome outcome_;
  const uint32_t* outputs_ = nullptr;
  int64_t rows_, stride_, room_, evenRoom_, calc_;
};

// The services that a call needs, and where they note their arguments.
PathOutcome* outcome;
const uint32_t* block;

void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag) {
  outcome->reports.push_back({message, sourceFile, line, flag});
}
void CopyBytes(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  outcome->copies.push_back({reinterpret_cast<const uint32_t*>(source) - block,
                             reinterpret_cast<const uint32_t*>(destination) - block, bytes});
  std::memmove(destination, source, static_cast<size_t>(std::max(bytes, 0)));
}

uint32_t ChooseWord(host::Choices& choose) {
  switch (choose.Below(8)) {
    case 0:
      return 0x7FFFFFFE + choose.Below(5);
    case 1:
      return 0 - choose.Below(4);
    case 2:
      return choose.Below(65536) << 16 | choose.Below(65536);
    default:
      return choose.Below(24);
  }
}

uint32_t ChooseCount(host::Choices& choose, uint32_t room) {
  switch (choose.Below(8)) {
    case 0:
      return room + choose.Below(5);
    case 1:
      return 2 * choose.Below(60);
    case 2:
      return ChooseWord(choose);
    default:
      return choose.Below(room + 1);
  }
}

std::string Text(const std::vector<uint32_t>& words) {
  std::string text;
  for (const uint32_t word : words) text += ' ' + std::to_string(word);
  return text;
}

std::string Text(const std::vector<FakeHost::Report>& reports) {
  std::string text;
  for (const auto& report : reports)
    text += "\n    " + report.message + " (" + report.sourceFile + ", " +
            std::to_string(report.line) + ", " + std::to_string(report.flag) + ")";
  return text;
}

}  // namespace

PathCase ChoosePathCase(host::Choices& choose) {
  PathCase call;
  call.isChecked = choose.Below(4) != 0;
  call.isDebugging = choose.Below(4) != 0;
  call.guard = choose.Below(2) != 0 ? ChooseWord(choose) : 0;
  call.operation = choose.OneIn(8) ? ChooseWord(choose) : choose.Below(5);
  call.nonZeroWinding = choose.OneIn(8) ? ChooseWord(choose) : choose.Below(2);

  const uint32_t size = choose.Below(32);
  const uint32_t stride = 2 + (size == 31   ? 150 + choose.Below(60)
                               : size >= 24 ? choose.Below(50)
                                            : choose.Below(10));
  const int32_t rows = choose.Between(-1, 4);
  const auto filled = static_cast<uint32_t>(std::max(rows, 0));
  call.words.resize(kHead + (filled + 1) * size_t{stride} + (call.guard != 0 ? 2 : 0));
  for (uint32_t& word : call.words) word = ChooseWord(choose);
  const auto firstRow = static_cast<uint32_t>(choose.OneIn(8) ? INT32_MAX - 4 : -2);
  call.words[1] = firstRow;
  call.words[3] = firstRow + static_cast<uint32_t>(rows);
  call.words[5] = stride;
  for (uint32_t y = 0; y < filled; ++y) {
    uint32_t* const row = &call.words[kHead + y * size_t{stride}];
    row[0] = ChooseCount(choose, stride - 2);
    row[1] = ChooseCount(choose, stride - 2);
    if (choose.Below(2) != 0) std::sort(row + 2, row + 2 + std::min(row[0], stride - 2));
  }
  if (call.guard != 0 && !choose.OneIn(4)) {
    call.words[kHead + filled * size_t{stride}] = call.guard;
    if (!choose.OneIn(4)) call.words.back() = call.guard;
  }
  return call;
}

std::vector<FillArrayRoutine*> FoldRoutines(bool checked) {
  static const auto plain = BuildsOf<FillArrayRoutine>(kPath, 24);
  return checked ? std::vector<FillArrayRoutine*>{ApplyFillArrayOperationChecked} : plain;
}

PathOutcome CallRoutine(const PathCase& call, FillArrayRoutine* fold) {
  static Routine core[kSuiteFormats[kCore].savedEntries];
  static Routine memory[kSuiteFormats[kMemory].savedEntries];
  core[kHostAssert] = AsRoutine(Assert);
  memory[0] = AsRoutine(CopyBytes);
  coreSuite.live = core;
  memorySuite.live = memory;
  PathDebugEnabled = call.isDebugging;
  PathDebugGuardValue = call.guard;

  // Memory of exactly the block's size, for the sanitizers.
  const auto words = std::make_unique<uint32_t[]>(call.words.size());
  std::copy(call.words.begin(), call.words.end(), words.get());
  PathOutcome result;
  outcome = &result;
  block = words.get();
  fold(reinterpret_cast<FillArray*>(words.get()), call.operation, call.nonZeroWinding);
  PathDebugEnabled = 0;
  PathDebugGuardValue = 0;
  result.words.assign(words.get(), words.get() + call.words.size());
  return result;
}

PathOutcome CallModel(const PathCase& call) { return Model(call).Run(); }

namespace {

std::string Compare(const PathCase& call, PathOutcome expected, PathOutcome actual) {
  // The calc buffer is scratch except its last two words.
  const auto stride = static_cast<ptrdiff_t>(call.words[5]);
  const ptrdiff_t rows = std::max<ptrdiff_t>(
      ptrdiff_t{static_cast<int32_t>(call.words[3])} - static_cast<int32_t>(call.words[1]), 0);
  const bool isBehindGuard = call.isChecked && call.guard != 0;
  const ptrdiff_t calc = kHead + rows * stride + (isBehindGuard ? 1 : 0);
  std::fill_n(actual.words.begin() + calc, stride - 2, 0);
  std::fill_n(expected.words.begin() + calc, stride - 2, 0);
  if (actual.words == expected.words && actual.reports == expected.reports &&
      actual.copies == expected.copies)
    return {};
  return std::string(call.isChecked ? "checked" : "plain") + ", debugging " +
         (call.isDebugging ? "on" : "off") + ", guard " + std::to_string(call.guard) +
         ", operation " + std::to_string(call.operation) + ", winding " +
         std::to_string(call.nonZeroWinding) + "\n  block   " + Text(call.words) + "\n  expected" +
         Text(expected.words) + Text(expected.reports) + "\n  actual  " + Text(actual.words) +
         Text(actual.reports);
}

}  // namespace

std::string ComparePathCase(const PathCase& call) {
  const PathOutcome expected = CallModel(call);
  for (FillArrayRoutine* const fold : FoldRoutines(call.isChecked)) {
    std::string difference = Compare(call, expected, CallRoutine(call, fold));
    if (!difference.empty()) return difference;
  }
  return {};
}

}  // namespace vantrix
