#include "BrenvikUIKit/interaction/BKUKNSView+Extensions.h"

#include "platform/appkit/NSAnimationContext.h"
#include "platform/appkit/NSWorkspace.h"

namespace bkuk {

void scrollToBeVisible(NSView& view, double duration) {
  const Ref<NSView> self(&view);
  const double seconds = NSWorkspace::accessibilityDisplayShouldReduceMotion() ? 0 : duration;
  NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
    context.setDuration(seconds);
    context.setAllowsImplicitAnimation(true);
    self->scrollToVisible(self->bounds());
  });
}

}  // namespace bkuk
