#pragma once

#include <functional>

namespace bkuk {

/// Lets views change in `block` without animation. With `disableLayerAnimations` no layer animates, also
/// none that was added by hand.
void BKUKDontAnimate(bool disableLayerAnimations, const std::function<void()>& block);

}  // namespace bkuk
