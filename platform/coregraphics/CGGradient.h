#pragma once

#include <optional>
#include <span>
#include <vector>

#include "host/Canvas.h"
#include "platform/coregraphics/CGColor.h"

namespace bkuk {

enum CGGradientDrawingOptions : unsigned {
  CGGradientDrawsNothingOutside = 0,
  CGGradientDrawsBeforeStartLocation = 1,
  CGGradientDrawsAfterEndLocation = 2,
};

/// Colours along a line from 0 to 1, between which components run linearly, alpha not multiplied in.
/// Immutable.
class CGGradient final : public NSObject {
 public:
  /// Empty for no colours. Without locations the first colour lies at 0, the last at 1 and the others
  /// evenly between. Locations are cut to 0…1 and put in rising order with their colours, NaN counts as
  /// 0; a colour beyond the last location lies at 1. The colours run in `space`.
  [[nodiscard]] static Ref<CGGradient> create(
      const Ref<CGColorSpace>& space, std::span<const Ref<CGColor>> colors,
      const std::optional<std::vector<CGFloat>>& locations = std::nullopt);

  [[nodiscard]] const Ref<CGColorSpace>& colorSpace() const { return space_; }
  /// In rising order, at least one.
  [[nodiscard]] std::span<const host::GradientStop> stops() const { return stops_; }

  [[nodiscard]] std::string className() const override { return "CGGradient"; }

 private:
  CGGradient(const Ref<CGColorSpace>& space, std::vector<host::GradientStop> stops)
      : space_(space), stops_(std::move(stops)) {}

  Ref<CGColorSpace> space_;
  std::vector<host::GradientStop> stops_;
};

}  // namespace bkuk
