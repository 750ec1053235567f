#include "BrenvikUIKit/interaction/BKUKNSView+Extensions.h"
#include "platform/appkit/NSAnimationContext.h"

namespace bkuk {

void scrollToBeVisible(NSView& view, double duration) {
  const Ref<NSView> self(&view);
  NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
    context.setDuration(duration);
    context.setAllowsImplicitAnimation(true);
    self->scrollToVisible(self->bounds());
  });
}

}  // namespace bkuk
