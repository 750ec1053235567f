#pragma once

#include <cstdint>

namespace bkuk {

enum class CGLineCap : std::int32_t { butt = 0, round = 1, square = 2 };

enum class CGLineJoin : std::int32_t { miter = 0, round = 1, bevel = 2 };

}  // namespace bkuk
