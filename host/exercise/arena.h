// Memory between inaccessible pages, so that an access outside it is a fault.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantrix::host {

class Arena {
 public:
  // Allocates `regions` regions of at least `bytes` bytes, each with an inaccessible page right
  // before its first byte and right after its last. Throws std::bad_alloc if there is no room.
  Arena(int regions, size_t bytes);
  // Large enough for any scene.
  Arena() : Arena(8, size_t{2} << 20) {}
  ~Arena();
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  int RegionCount() const { return static_cast<int>(regions_.size()); }
  size_t RegionBytes() const { return regionBytes_; }
  uint8_t* Region(int index) const { return regions_[static_cast<size_t>(index)]; }

  // Makes the first `bytes` bytes of a region, whole pages, read-only or writable again.
  void SetWritable(int index, size_t bytes, bool isWritable) const;

  static constexpr size_t kPage = 4096;

 private:
  explicit Arena(size_t bytes);

  std::vector<uint8_t*> regions_;
  size_t regionBytes_;
};

}  // namespace vantrix::host
