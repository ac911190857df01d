#include "host/exercise/arena.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif

#include <new>

namespace vantrix::host {
namespace {

enum class Access { kNone, kRead, kWrite };

#if defined(_WIN32)
uint8_t* Reserve(size_t bytes) {
  return static_cast<uint8_t*>(
      VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS));
}
void Release(uint8_t* memory, size_t) { VirtualFree(memory, 0, MEM_RELEASE); }
bool Allow(uint8_t* memory, size_t bytes, Access access) {
  DWORD previous;
  const DWORD protection = access == Access::kWrite ? PAGE_READWRITE : PAGE_READONLY;
  return VirtualProtect(memory, bytes, protection, &previous) != 0;
}
#else
uint8_t* Reserve(size_t bytes) {
  void* memory = mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory == MAP_FAILED ? nullptr : static_cast<uint8_t*>(memory);
}
void Release(uint8_t* memory, size_t bytes) { munmap(memory, bytes); }
bool Allow(uint8_t* memory, size_t bytes, Access access) {
  return mprotect(memory, bytes, access == Access::kWrite ? PROT_READ | PROT_WRITE : PROT_READ) ==
         0;
}
#endif

}  // namespace

Arena::Arena(size_t bytes) : regionBytes_((bytes + kPage - 1) / kPage * kPage) {}

// Delegates to the other constructor, so that the destructor runs if not all regions fit.
Arena::Arena(int regions, size_t bytes) : Arena(bytes) {
  for (int i = 0; i < regions; ++i) {
    uint8_t* memory = Reserve(regionBytes_ + 2 * kPage);
    if (!memory) throw std::bad_alloc();
    regions_.push_back(memory + kPage);
    if (!Allow(memory + kPage, regionBytes_, Access::kWrite)) throw std::bad_alloc();
  }
}

Arena::~Arena() {
  for (uint8_t* region : regions_) Release(region - kPage, regionBytes_ + 2 * kPage);
}

void Arena::SetWritable(int index, size_t bytes, bool isWritable) const {
  Allow(Region(index), bytes, isWritable ? Access::kWrite : Access::kRead);
}

}  // namespace vantrix::host
