#pragma once

#include <cstdint>

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// How round corners are: a radius in points, or one that grows with the frame.
struct BKUKCornerSettings {
  enum class RadiusType : std::uint8_t { absolute, relative };

  RadiusType type = RadiusType::absolute;
  CGFloat value = 0;  ///< points, or a fraction of the frame's shorter side

  /// The same radius for every frame.
  [[nodiscard]] static constexpr BKUKCornerSettings radius(CGFloat points) {
    return {RadiusType::absolute, points};
  }
  /// That fraction of the shorter side.
  [[nodiscard]] static constexpr BKUKCornerSettings ratio(CGFloat fraction) {
    return {RadiusType::relative, fraction};
  }
  static const BKUKCornerSettings zero;
  /// The short side is all round.
  static const BKUKCornerSettings round;

  /// In points. The sides of the frame count as they were given, negative ones too.
  [[nodiscard]] CGFloat radius(const CGRect& forFrame) const;

  bool operator==(const BKUKCornerSettings&) const = default;
};

inline constexpr BKUKCornerSettings BKUKCornerSettings::zero{RadiusType::absolute, 0};
inline constexpr BKUKCornerSettings BKUKCornerSettings::round{RadiusType::relative, 0.5};

}  // namespace bkuk
