#pragma once

#include <span>
#include <vector>

#include "platform/appkit/NSView.h"

namespace bkuk {

/// Whether `a` is drawn before `b`; both are of one tree. A superview lies behind what it contains.
[[nodiscard]] bool viewIsBehind(const NSView& a, const NSView& b);

/// The views below `root` that may take the keyboard, or that are controls which may when they are
/// enabled, in the order in which a reader meets them: by their upper corners in rows from the top, in a
/// row from the leading side. Two views share a row when their heights overlap by more than half of the
/// lesser height, and all views of a row do. What lies inside a view follows it.
[[nodiscard]] std::vector<Ref<NSView>> viewsInReadingOrder(NSView& root);

/// The indexes of `rects`, which are in a space with y up, in that same order.
[[nodiscard]] std::vector<std::size_t> NSReadingOrder(std::span<const NSRect> rects, bool isRightToLeft);

}  // namespace bkuk
