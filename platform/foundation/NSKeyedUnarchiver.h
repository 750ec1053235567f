#pragma once

#include <cstddef>
#include <span>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Turns bytes of `NSKeyedArchiver` back into objects.
struct NSKeyedUnarchiver {
  /// How many objects may be under construction inside one another. A deeper archive gives no object.
  static constexpr int maxDepth = 256;

  /// The root object; empty when the bytes are no archive of a known version, are damaged, or hold objects
  /// that cannot be made. Memory and time stay in proportion to the number of bytes.
  [[nodiscard]] static Ref<NSObject> unarchive(std::span<const std::byte> data);
};

}  // namespace bkuk
