#pragma once

#include <cstdint>

namespace bkuk {

/// Which areas that a path goes around several times are inside.
enum class BKUKFillRule : std::uint8_t { evenOdd, nonZero };

}  // namespace bkuk
