#include "BrenvikUIKit/animation/BKUKDontAnimate.h"

#include "platform/appkit/NSAnimationContext.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CATransactionScope.h"

namespace bkuk {

namespace {

void withoutImplicitAnimation(const std::function<void()>& block) {
  NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
    context.setAllowsImplicitAnimation(false);
    block();
  });
}

}  // namespace

void BKUKDontAnimate(bool disableLayerAnimations, const std::function<void()>& block) {
  required(block, "BKUKDontAnimate: no block of changes");
  if (!disableLayerAnimations) return withoutImplicitAnimation(block);
  const auto scope = CATransactionScope::withoutActions();
  withoutImplicitAnimation(block);
}

}  // namespace bkuk
