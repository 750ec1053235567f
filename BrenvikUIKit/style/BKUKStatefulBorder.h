#pragma once

#include <utility>

#include "BrenvikUIKit/style/BKUKStatefulColors.h"
#include "BrenvikUIKit/style/BKUKStatefulNumbers.h"

namespace bkuk {

/// A border by interaction state.
class BKUKStatefulBorder {
 public:
  /// Widths are in points.
  BKUKStatefulBorder(BKUKStatefulColors colors, BKUKStatefulWidths width)
      : colors_(std::move(colors)), widths_(std::move(width)) {}

  [[nodiscard]] const BKUKStatefulColors& colors() const { return colors_; }
  [[nodiscard]] const BKUKStatefulWidths& widths() const { return widths_; }

  bool operator==(const BKUKStatefulBorder&) const = default;

 private:
  BKUKStatefulColors colors_;
  BKUKStatefulWidths widths_;
};

}  // namespace bkuk
