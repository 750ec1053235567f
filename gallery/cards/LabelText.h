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

/// A label that takes the height of its lines: it does not move its text as the family of the user's language
/// asks, which may also take from the height.
[[nodiscard]] Ref<BKUKLabel> makeTightLabel(std::string_view text, const BKUKFontSettings& style);

/// The height of the lines of a label at that width, in points, whatever width the label has. A width of 0 is
/// none.
[[nodiscard]] CGFloat heightOfText(const BKUKLabel& label, CGFloat width);

}  // namespace bkuk::gallery
