#pragma once

#include <utility>
#include <variant>

#include "BrenvikUIKit/drawing/BKUKLinearGradientSettings.h"
#include "BrenvikUIKit/drawing/BKUKRadialGradientSettings.h"

namespace bkuk {

/// What an area is filled with: a colour, a linear gradient or a radial gradient.
class BKUKFill {
 public:
  using Value = std::variant<Ref<NSColor>, BKUKLinearGradientSettings, BKUKRadialGradientSettings>;

  /// A fill of an absent colour may be kept, but stops the process when it is shown.
  [[nodiscard]] static BKUKFill color(Ref<NSColor> color) { return BKUKFill(std::move(color)); }
  [[nodiscard]] static BKUKFill linearGradient(BKUKLinearGradientSettings settings) {
    return BKUKFill(std::move(settings));
  }
  [[nodiscard]] static BKUKFill radialGradient(BKUKRadialGradientSettings settings) {
    return BKUKFill(std::move(settings));
  }
  /// The colour that is fully transparent.
  [[nodiscard]] static BKUKFill clear() { return color(NSColor::clear()); }

  [[nodiscard]] const Value& value() const { return value_; }

  bool operator==(const BKUKFill& other) const;

 private:
  explicit BKUKFill(Value value) : value_(std::move(value)) {}

  Value value_;
};

}  // namespace bkuk
