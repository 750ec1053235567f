#pragma once

#include <functional>

#include "platform/foundation/CGGeometry.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"

namespace bkuk {

/// Animates what `block` changes in views and layers, within `duration` seconds and at the pace of
/// `function`. `completion` is called on the main thread, in a later turn of the run loop, when all of it has
/// come to its end.
void BKUKAnimate(CGFloat duration, const Ref<CAMediaTimingFunction>& function,
                 const std::function<void()>& block, std::function<void()> completion = {});

}  // namespace bkuk
