#pragma once

#include <cstdint>

#include "BrenvikUIKit/drawing/BKUKGradient.h"

namespace bkuk {

/// A gradient along a line. Points are in the unit space of what is filled, y up: (0, 0) and (1, 1) are
/// opposite corners, and points beyond them are allowed.
struct BKUKLinearGradientSettings {
  class Directions;

  BKUKGradient gradient{};
  CGPoint startPoint{};
  CGPoint endPoint{};
  CGFloat opacity = 1;

  void setStartEndPoint(const Directions& direction);

  bool operator==(const BKUKLinearGradientSettings&) const = default;
};

/// Which way a gradient runs.
class BKUKLinearGradientSettings::Directions {
 public:
  /// From the side of that angle through the centre to the other side; counter-clockwise, 0 starts at the
  /// right. Both ends keep the same distance from the centre, a little beyond the edges.
  [[nodiscard]] static Directions degrees(CGFloat angle);

  // From edge to edge.
  static const Directions bottomTop;
  static const Directions topBottom;
  static const Directions leftRight;
  static const Directions rightLeft;

  [[nodiscard]] CGPoint startPoint() const { return start_; }
  [[nodiscard]] CGPoint endPoint() const { return end_; }

  bool operator==(const Directions&) const = default;

 private:
  constexpr Directions(CGPoint start, CGPoint end) : start_(start), end_(end) {}

  CGPoint start_;
  CGPoint end_;
};

inline constexpr BKUKLinearGradientSettings::Directions BKUKLinearGradientSettings::Directions::bottomTop{
    {0, 0}, {0, 1}};
inline constexpr BKUKLinearGradientSettings::Directions BKUKLinearGradientSettings::Directions::topBottom{
    {0, 1}, {0, 0}};
inline constexpr BKUKLinearGradientSettings::Directions BKUKLinearGradientSettings::Directions::leftRight{
    {0, 0}, {1, 0}};
inline constexpr BKUKLinearGradientSettings::Directions BKUKLinearGradientSettings::Directions::rightLeft{
    {1, 0}, {0, 0}};

}  // namespace bkuk
