#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk {

/// Brings the view into sight in whatever scrolls around it, within `duration` seconds; at once where the
/// user wants no motion. Does nothing for a view that shows already.
void scrollToBeVisible(NSView& view, double duration);

}  // namespace bkuk
