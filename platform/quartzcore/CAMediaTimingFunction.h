#pragma once

#include <string_view>

#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

inline constexpr std::string_view kCAMediaTimingFunctionLinear = "linear";
inline constexpr std::string_view kCAMediaTimingFunctionEaseIn = "easeIn";
inline constexpr std::string_view kCAMediaTimingFunctionEaseOut = "easeOut";
inline constexpr std::string_view kCAMediaTimingFunctionEaseInEaseOut = "easeInEaseOut";
inline constexpr std::string_view kCAMediaTimingFunctionDefault = "default";

/// The pace of an animation: a cubic from (0, 0) to (1, 1) that maps the fraction of the time to the fraction
/// of the way. Immutable.
class CAMediaTimingFunction final : public NSObject {
 public:
  /// An unknown name stands for the default curve.
  explicit CAMediaTimingFunction(std::string_view name);
  /// The two inner control points; their x values are cut to 0…1, so that there is one way for each time.
  CAMediaTimingFunction(CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2);

  [[nodiscard]] CGPoint controlPoint1() const { return first_; }
  [[nodiscard]] CGPoint controlPoint2() const { return second_; }

  /// The fraction of the way at the fraction `time` of the duration, which is cut to 0…1. The way may leave
  /// that range in between.
  [[nodiscard]] CGFloat evaluate(CGFloat time) const;

  /// Equal control points.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;
  [[nodiscard]] std::string className() const override { return "CAMediaTimingFunction"; }

 private:
  CGPoint first_;
  CGPoint second_;
};

}  // namespace bkuk
