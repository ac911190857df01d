// Which version this is, and which build of a kernel a
// routine is: for tools that look into the loaded plug-in.
//
// The plug-in exports its entry point and nothing else. This table stands in its data; a tool
// that has the library loaded finds it by its mark. A host needs none of it.
#pragma once

#include "plugin/base/interface.h"

namespace vantrix {

struct FormIndexMark {
  char text[16];
};
// Ends in the version of the table.
inline constexpr FormIndexMark kFormIndexMark{"Vantrix forms 3"};

// Stands at a multiple of 8 bytes.
struct FormIndex {
  FormIndexMark mark;
  // This table. A library that looks for tables may have the mark in its data without one.
  const FormIndex* self;
  const char* version;       // of the plug-in, and the commit that it was built from
  int32_t count;             // of forms
  const char* const* names;  // one a form, narrowest first

  // The routine that a slot of a suite has in a form; null where it has none. Forms in which
  // a text came out the same share one routine.
  Routine (*build)(uint32_t suiteCode, uint32_t slot, int32_t form);
  // 1 where start-up found that the processor runs a form, else 0.
  uint32_t (*runs)(int32_t form);
};

}  // namespace vantrix
