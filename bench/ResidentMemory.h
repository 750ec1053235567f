#pragma once

#include <fstream>
#include <unistd.h>

namespace bkuk {

/// What the process holds in memory now, in megabytes of 2^20 bytes.
inline double residentMegabytes() {
  std::ifstream file("/proc/self/statm");
  double whole = 0;
  double resident = 0;
  file >> whole >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

}  // namespace bkuk
