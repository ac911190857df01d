// The ten suites of this host: the slots that the plug-in writes, and the references for the slots
// whose contract is settled.
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
  std::span<const Slot> slots;  // that the plug-in writes, in its order
  std::span<const Reference> references;
};

const std::array<SuiteEntry, kSuiteCount>& Catalog();

// Returns the name of a slot as a user writes it: blnd:2.
std::string SlotName(const SuiteEntry& suite, uint16_t slot);

// Returns the message for a name that is not a slot that the plug-in writes.
std::string WritesNoSlot(const std::string& name);

// Returns the reference for a slot; null if the host has none.
const Reference* FindReference(const SuiteEntry& suite, uint16_t slot);

// Returns a slot's line in the suite's table; null if the plug-in does not write the slot.
const Slot* FindSlot(const SuiteEntry& suite, uint16_t slot);

// Defines the functions that the rules name, in sentences.
extern const char kRuleWords[];

// Whether this processor opens a gate.
bool ProcessorOpens(Gate gate);

const char* NameOf(Gate gate);

}  // namespace vantrix::host
