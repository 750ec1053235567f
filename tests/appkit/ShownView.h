#pragma once

#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// A view on the screen of a virtual desktop, all of whose layers were committed.
struct ShownView {
  Ref<NSWindow> window = make<NSWindow>(NSRect(100, 100, 200, 100));
  Ref<NSView> view = make<NSView>(NSRect(50, 20, 100, 50));

  ShownView() {
    window->contentView()->addSubview(view);
    window->orderFront();
    window->displayIfNeeded();
  }
  ~ShownView() { window->close(); }
};

}  // namespace bkuk
