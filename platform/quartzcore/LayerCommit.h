#pragma once

#include "platform/quartzcore/CALayer.h"

namespace bkuk {

/// Lays out the marked layers of the tree below `top`, superlayers first.
void layoutMarked(CALayer& top);

/// Displays the layers of the tree that are marked when it begins, superlayers first.
void displayMarked(CALayer& root);

}  // namespace bkuk
