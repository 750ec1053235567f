#include "bench/peer/common/Memory.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <memory>
#include <unistd.h>

namespace peer {

std::size_t residentBytes() {
  std::ifstream file("/proc/self/statm");
  std::size_t whole = 0;
  std::size_t resident = 0;
  file >> whole >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

void touchHeap(std::size_t bytes) {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  const auto block = std::make_unique<volatile char[]>(bytes);
  for (std::size_t i = 0; i < bytes; i += 4096) block[i] = 1;
}

}  // namespace peer
