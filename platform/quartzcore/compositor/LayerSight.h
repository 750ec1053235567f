#pragma once

#include <optional>

#include "platform/quartzcore/compositor/LayerBox.h"
#include "platform/quartzcore/compositor/LayerShadow.h"

namespace bkuk {

/// The pixels of an image that shows layers, and as far around it as what will come into sight soon.
[[nodiscard]] PixelRect sightAround(const PixelRect& image);

/// The device pixels in and near the visible part, as far as they concern what is inside of `shown`, of
/// which `sight` is in and near it outside. `shadow`: its shadow at most.
[[nodiscard]] PixelRect sightInside(const CALayer& shown, const LayerBox& box, const PixelRect& sight,
                                    const LayerShadow& shadow);

/// Where bitmaps are still kept that were drawn when they were in sight, so that going to and fro at its
/// border draws nothing twice.
[[nodiscard]] PixelRect whereBitmapsAreKept(const PixelRect& sight);

/// The part of the layer's bounds that is in or near what its window shows; empty where it is far from it.
/// Absent for layers without a window, without a place, and in masks, for which nobody knows.
[[nodiscard]] std::optional<CGRect> boundsInSight(const CALayer& layer);

/// The part of the bounds whose pixels lie in `pixels`, or the box around it.
[[nodiscard]] CGRect boundsWithin(const LayerBox& box, const PixelRect& pixels);

/// The part of the bounds that a bitmap drawn for them holds.
[[nodiscard]] CGRect boundsDrawn(const CALayer& layer, bool isFlipped);

}  // namespace bkuk
