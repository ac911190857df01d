// The ten suites as this host has them: which slots the plug-in takes over, and the
// host's own routines for those whose contract is settled.
#pragma once

#include <array>
#include <span>
#include <string>

#include "host/reference/reference.h"
#include "plugin/base/interface.h"
#include "plugin/base/slots.h"

namespace vantrix::host {

struct SuiteEntry {
  SuiteIndex index;
  const char* name;             // the four-character code
  std::span<const Slot> slots;  // what the plug-in writes, in its order
  std::span<const Reference> references;
};

const std::array<SuiteEntry, kSuiteCount>& Catalog();

// As a person names a slot: blnd:2.
std::string SlotName(const SuiteEntry& suite, uint16_t slot);

// What is said of a name that is none of a slot that the plug-in writes.
std::string WritesNoSlot(const std::string& name);

// Null where the host has no routine of its own for the slot.
const Reference* FindReference(const SuiteEntry& suite, uint16_t slot);

// What a suite's table says of a slot; null where the plug-in does not write it.
const Slot* FindSlot(const SuiteEntry& suite, uint16_t slot);

// What the words of the rules stand for, in sentences.
extern const char kRuleWords[];

// Whether this processor opens a gate.
bool ProcessorOpens(Gate gate);

const char* NameOf(Gate gate);

}  // namespace vantrix::host
