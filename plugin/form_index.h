// Which version this is, and which build of a kernel a
// routine is: for tools that look into the loaded plug-in.
//
// The plug-in exports its entry point and nothing else. This table is in its data. A tool that has
// loaded the library finds the table by its mark. Hosts do not need it.
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
  // The table's own address. A library that looks for tables has the mark in its data without one.
  const FormIndex* self;
  const char* version;       // of the plug-in, and the commit that it was built from
  int32_t count;             // of forms
  const char* const* names;  // one a form, narrowest first

  // Returns the routine of a suite's slot in a form, or null if it has none. Forms whose code is
  // the same share one routine.
  Routine (*build)(uint32_t suiteCode, uint32_t slot, int32_t form);
  // Returns 1 if start-up found that the processor runs a form, else 0.
  uint32_t (*runs)(int32_t form);
};

}  // namespace vantrix
