#pragma once

#include <cstddef>

namespace bkuk::soak {

/// What the process holds at a moment.
struct Usage {
  std::size_t bytes = 0;        ///< allocated and not freed
  std::size_t objects = 0;      ///< living, of all classes
  std::size_t descriptors = 0;  ///< open
  std::size_t names = 0;        ///< of notifications

  [[nodiscard]] static Usage now();
  /// Of each the less.
  [[nodiscard]] Usage atMost(const Usage& other) const;
};

}  // namespace bkuk::soak
