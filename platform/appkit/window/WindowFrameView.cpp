#include "platform/appkit/window/WindowFrameView.h"

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"
#include "platform/coregraphics/CGColor.h"

namespace bkuk {

namespace {

// What a window shows where its application says nothing: the usual light and dark of desktops.
Ref<NSColor> standardBackground() {
  const bool isDark = NSApplication::shared().effectiveAppearance()->isDark();
  return NSColor::genericGamma22White(isDark ? 0.12 : 0.93, 1);
}

}  // namespace

WindowFrameView::WindowFrameView(NSWindow& window) : NSView({{}, window.frame().size}) {
  setIdentifier("window frame");
}

void WindowFrameView::updateLayer() {
  const auto window = this->window();
  if (!window) return;
  const auto color = window->backgroundColor() ? window->backgroundColor() : standardBackground();
  layer()->setBackgroundColor(color->cgColor());
}

void WindowFrameView::subviewWasTaken(NSView& view) {
  const auto window = this->window();
  if (window && window->contentView_ == &view) window->contentViewWasTaken();
}

}  // namespace bkuk
