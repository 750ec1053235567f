#include "BrenvikUIKit/animation/BKUKDontAnimate.h"

#include "platform/appkit/NSAnimationContext.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CATransaction.h"

namespace bkuk {

void BKUKDontAnimate(bool disableLayerAnimations, const std::function<void()>& block) {
  required(block, "BKUKDontAnimate: no block of changes");
  if (disableLayerAnimations) {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
  }
  NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
    context.setAllowsImplicitAnimation(false);
    block();
  });
  if (disableLayerAnimations) CATransaction::commit();
}

}  // namespace bkuk
