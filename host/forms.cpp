#include "host/forms.h"

#include <cstring>

#include "host/plugin_library.h"

namespace vantrix::host {
namespace {

// Whether a FormIndex is here. Not sanitized, as the sanitizer
// knows only the parts of this memory that are variables.
__attribute__((no_sanitize("address"))) bool IsFormIndex(const char* at) {
  for (size_t i = 0; i < sizeof kFormIndexMark; ++i)
    if (at[i] != kFormIndexMark.text[i]) return false;
  const auto* const index = reinterpret_cast<const FormIndex*>(at);
  return index->self == index;
}

Routine BuildOf(const FormIndex& index, SuiteIndex suite, uint16_t slot, int32_t form) {
  return index.build(kSuiteFormats[suite].code, slot, form);
}

}  // namespace

const FormIndex* FindFormIndex(PluginMainRoutine* loaded) {
  for (const std::span<const char> data : DataAround(loaded))
    for (size_t i = 0; i + sizeof(FormIndex) <= data.size(); i += 8)
      if (IsFormIndex(&data[i])) return reinterpret_cast<const FormIndex*>(&data[i]);
  return nullptr;
}

std::string FormOf(const FormIndex& index, SuiteIndex suite, uint16_t slot, Routine routine) {
  for (int32_t form = 0; form < index.count; ++form)
    if (BuildOf(index, suite, slot, form) == routine) return index.names[form];
  return {};
}

std::string FormsOf(const FormIndex& index, SuiteIndex suite, uint16_t slot) {
  std::string names;
  for (int32_t form = 0; form < index.count; ++form)
    if (BuildOf(index, suite, slot, form))
      names += (names.empty() ? "" : ", ") + std::string(index.names[form]);
  return names;
}

std::string RunningForms(const FormIndex& index) {
  std::string names;
  for (int32_t form = 0; form < index.count; ++form)
    if (index.runs(form)) names += (names.empty() ? "" : ", ") + std::string(index.names[form]);
  return names;
}

}  // namespace vantrix::host
