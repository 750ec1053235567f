#pragma once

#include <cstdint>
#include <span>

namespace bkuk {

/// The greatest standard deviation that is blurred with, in pixels; a greater one counts as this.
inline constexpr double maxBlurSigma = 256;

/// How many pixels a blur spreads into each direction.
[[nodiscard]] int blurReach(double sigma);

/// Blurs a plane of coverage in place, rows from the top without padding, by three box filters whose joint
/// variance is that of the Gaussian. What lies outside the plane counts as uncovered: leave `blurReach`
/// pixels around the shape to keep all of it. A sigma that is not above 0 changes nothing.
void gaussianBlur(std::span<std::uint8_t> plane, int width, int height, double sigma);

}  // namespace bkuk
