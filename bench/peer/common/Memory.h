#pragma once

#include <cstddef>

namespace peer {

/// What the process holds in memory now, in bytes.
[[nodiscard]] std::size_t residentBytes();

/// Touches so much heap and keeps it for what comes later. Fresh pages of the system cost many times what is
/// measured, and are nobody's own time.
void touchHeap(std::size_t bytes);

}  // namespace peer
