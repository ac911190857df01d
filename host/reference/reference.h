// The references: the host's own routines. They are its
// defaults, and every kernel must do the same.
//
// Each is written from the sentence that defines it, one sample at a time, with plain division
// where the sentence divides. Nothing here depends on how the plug-in works.
#pragma once

#include <cstdint>
#include <span>

#include "host/exercise/scene.h"
#include "plugin/base/interface.h"

namespace vantrix::host {

struct Reference {
  uint16_t slot;
  Routine routine;
  Exercise* exercise;
};

template <class Signature>
Reference Refer(uint16_t slot, Signature* routine, Exercise* exercise) {
  return {slot, reinterpret_cast<Routine>(routine), exercise};
}

std::span<const Reference> BlendReferences();
std::span<const Reference> ConvertReferences();
std::span<const Reference> FilterReferences();
std::span<const Reference> MemoryReferences();
std::span<const Reference> ResampleReferences();
std::span<const Reference> SelectReferences();
std::span<const Reference> PathReferences();

}  // namespace vantrix::host
