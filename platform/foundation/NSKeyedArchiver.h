#pragma once

#include <cstddef>
#include <vector>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Turns a graph of `NSCoding` objects into bytes that `NSKeyedUnarchiver` turns back. The format carries a
/// version and is the same on every machine.
struct NSKeyedArchiver {
  [[nodiscard]] static std::vector<std::byte> archivedData(const NSObject& root);
};

}  // namespace bkuk
