#pragma once

#include <string>
#include <string_view>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// Text upon a card or a plate: `size` in points.
[[nodiscard]] BKUKFontSettings cardText(double size, BKUKFontType type = BKUKFontType::regular);

/// The name of a weight as people read it.
[[nodiscard]] std::string_view nameOf(BKUKFontType type);

/// A number of points as people read it, with no more than one decimal.
[[nodiscard]] std::string pointsText(double points);

/// The height that the text of a label needs at that width, in points, whatever width the label has.
[[nodiscard]] CGFloat heightOfText(const BKUKLabel& label, CGFloat width);

}  // namespace bkuk::gallery
