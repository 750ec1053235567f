#pragma once

#include <cstdint>

namespace bkuk {

/// On which side of a shape's edge its shadow lies.
enum class BKUKShadowType : std::uint8_t { outer, inner };

}  // namespace bkuk
