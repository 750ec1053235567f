#pragma once

#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// What the kit's windows do after `makeFirstResponder` was asked for `responder`: they tell observers and
/// assistive clients, and bring the view that has the keyboard now into sight.
void announceFirstResponderChange(NSWindow& window, NSResponder* responder);

}  // namespace bkuk
