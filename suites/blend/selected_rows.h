// Rows in which a rule selects samples and leaves the others alone: their bytes may belong to
// another thread, or lie on a page that must not be written.
//
// In the groups of 16 that start at the target's first 16-byte boundary, all samples may
// be written. Before and after these groups only selected samples are written.
#pragma once

#include "common/changed.h"
#include "common/groups.h"
#include "common/masked.h"
#include "common/rows.h"

namespace vantrix {

// rule.Selects(d, samples...) says which samples of a register the rule selects, and
// rule.Selected(d, samples...) what becomes of them. kReadsTarget says whether either uses d.
template <class Place, class Rule, class To, class... From>
VX_INLINE auto SelectsAt(Place place, Rule rule, To to, From... from) {
  return rule.Selects(to.At(place), from.At(place)...);
}
template <class Place, class Rule, class To, class... From>
VX_INLINE auto SelectedAt(Place place, Rule rule, To to, From... from) {
  return rule.Selected(to.At(place), from.At(place)...);
}

// Samples as they were read, and as they will be. They are compared with what was read: if they
// were read again, a sample that another thread stored in between would be overwritten.
template <class V>
struct Change {
  V before, after;
};

// A target that stores only those groups of a block in which a sample changes.
struct ChangedGroupsTarget : Target {
  template <class V>
  VX_LANE void Write(Block<V> block, Change<V> samples) const {
    StoreChangedGroups(row + block.x, samples.before, samples.after);
  }
  VX_LANE ChangedGroupsTarget From(intptr_t x) const { return {Target::From(x)}; }
};

// Takes one sample at a time. Masks vary, so branches would be mispredicted.
template <class Rule, class To, class... From>
VX_INLINE void WriteSelectedSingly(intptr_t count, Rule rule, To to, From... from) {
  Singly<uint8_t>{count}.ForEach([=](auto one) VX_INLINED {
    StoreIf(SelectsAt(one, rule, to, from...)[0] != 0, to.row + one.x,
            SelectedAt(one, rule, to, from...)[0]);
  });
}

// Whether short rows and the ends of long ones are stored under masks. A load soon afterwards of
// any byte of such a store, written or not, waits for it. So a rule that reads the target stores
// under masks only if rows are at least 32 bytes apart.
template <class Rule>
VX_INLINE bool StoresUnderMask(int32_t columns, int64_t stride) {
  constexpr int64_t kReach = 2 * kGroupBytes;  // after a row's end and before the next one's start
  return kHasMasks && (!Rule::kReadsTarget || Magnitude(stride) - columns >= kReach);
}
template <class V, class Rule, class To, class... From>
VX_INLINE void WriteSelectedLanes(SomeLanes<V> lanes, Rule rule, To to, From... from) {
  lanes.StoreWhere(SelectsAt(lanes, rule, to, from...), to.row,
                   SelectedAt(lanes, rule, to, from...));
}

// Takes a row of fewer than 16 samples.
template <class Rule, class To, class... From>
VX_INLINE void WriteSelectedInShort(bool underMask, intptr_t count, Rule rule, To to,
                                    From... from) {
  if constexpr (kHasMasks)
    if (underMask)
      return WriteSelectedLanes(SomeLanes<Group<uint8_t>>::FirstAfter(0, count), rule, to, from...);
  const bool isDone = WithEnds<uint8_t, FewestInRegister<Rule>()>(count, [=](auto walk) VX_INLINED {
    walk.ForEach([=]<class V, int kBytes>(Ends<V, kBytes> ends) VX_INLINED {
      StoreSome(ends, to.row, SetBytes(SelectsAt(ends, rule, to, from...)),
                SelectedAt(ends, rule, to, from...));
    });
  });
  if (!isDone) WriteSelectedSingly(count, rule, to, from...);
}

// Takes a row of at least one group.
template <class Form, class Rule, class To, class... Source>
VX_INLINE void WriteSelectedInLong(bool underMask, intptr_t count, Rule rule, To to,
                                   Source... from) {
  const intptr_t head = ToBoundary<kGroupBytes>(to.row);
  const intptr_t end = head + ((count - head) & -kGroupBytes);
  if (head > 0 && kHasMasks && underMask) {
    if constexpr (kHasMasks)
      WriteSelectedLanes(SomeLanes<Group<uint8_t>>::LastBefore(head, head), rule, to, from...);
  } else if (head > 0) {
    WriteSelectedInShort(false, head, rule, to, from...);
  }
  // Registers of 16 bytes are the groups themselves, so none reaches back.
  if (Form::kBytes > kGroupBytes && end - head >= Form::kBytes)
    ApplyToRow(Blocks<Lanes<uint8_t, Form::kBytes>>{end, head}, rule, to, from...);
  else
    for (intptr_t x = head; x < end; x += kGroupBytes)
      ApplyAt(Block<Group<uint8_t>>{x}, rule, to, from...);
  if (end < count)
    WriteSelectedInShort(underMask, count - end, rule, to.From(end), from.From(end)...);
}

// One sample at a time.
struct ApplyToSelectedSingly {
  template <class To, class Rule, class... From>
  VX_INLINE void operator()(int32_t rows, int32_t columns, To to, Rule rule, From... from) const {
    ForEachRow(
        rows, [=](auto... row) VX_INLINED { WriteSelectedSingly(columns, rule, row...); }, to,
        from...);
  }
};

// Applies a rule that selects samples. A count below 1 touches no memory. Operands may overlap the
// target in any way, as with ApplyToRows.
template <class Form, class Rule, class To, class... From>
VX_INLINE void ApplyToSelected(int32_t rows, int32_t columns, To to, Rule rule, From... from) {
  if (rows < 1 || columns < 1) return;
  const bool underMask = StoresUnderMask<Rule>(columns, to.stride);
  const auto inEachRow = [=](auto work) VX_INLINED {
    ForEachRow(
        rows, [=](auto... row) VX_INLINED { work(underMask, columns, rule, row...); }, to, from...);
  };
  if (Form::kBytes == 1 || (OverlapsInPart(from, to, rows, columns) || ...))
    return DoShared<ApplyToSelectedSingly>(rows, columns, to, rule, from...);
  if constexpr (Form::kBytes > 1) {
    if (columns < kGroupBytes)
      inEachRow([](auto... row) VX_INLINED { WriteSelectedInShort(row...); });
    else
      inEachRow([](auto... row) VX_INLINED { WriteSelectedInLong<Form>(row...); });
  }
}

}  // namespace vantrix
