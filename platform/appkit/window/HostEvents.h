#pragma once

#include "host/Events.h"
#include "platform/appkit/NSEvent.h"

namespace bkuk {

/// The event that a report of the host about `window`'s pointer, wheel or keyboard stands for; none for
/// any other report. A press that the desktop took back becomes a release far outside the window, so
/// that it ends without being taken for a click.
[[nodiscard]] Ref<NSEvent> eventFromHost(const host::WindowEvent& event, NSWindow& window);

/// A host's position, from the upper left corner, in the window's base coordinates.
[[nodiscard]] NSPoint baseLocation(const host::Point& point, const NSWindow& window);
[[nodiscard]] NSEventModifierFlags modifierFlagsFromHost(const host::Modifiers& modifiers);

}  // namespace bkuk
