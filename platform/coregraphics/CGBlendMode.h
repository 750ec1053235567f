#pragma once

#include <cstdint>

namespace bkuk {

/// How painted colours meet those that are there. Every mode is weighted by what the shape covers.
enum class CGBlendMode : std::int32_t {
  normal = 0,
  clear = 16,
  copy = 17,
  sourceIn = 18,
  sourceOut = 19,
  sourceAtop = 20,
  destinationOver = 21,
  destinationIn = 22,
  destinationOut = 23,
  destinationAtop = 24,
  XOR = 25,
};

}  // namespace bkuk
