#include "BrenvikUIKit/animation/BKUKAnimate.h"

#include <utility>

#include "platform/appkit/NSAnimationContext.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

void BKUKAnimate(CGFloat duration, const Ref<CAMediaTimingFunction>& function,
                 const std::function<void()>& block, std::function<void()> completion) {
  required(block, "BKUKAnimate: no block of changes");
  const auto changes = [&](NSAnimationContext& context) {
    context.setAllowsImplicitAnimation(true);
    context.setTimingFunction(function);
    context.setDuration(duration);
    block();
  };
  NSAnimationContext::runAnimationGroup(changes, std::move(completion));
}

}  // namespace bkuk
