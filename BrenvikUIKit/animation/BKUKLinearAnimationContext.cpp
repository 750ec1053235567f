#include "BrenvikUIKit/animation/BKUKLinearAnimationContext.h"

#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"

namespace bkuk {

// The main thread may deliver the first frame of a start on another thread before `animate` returns, so the
// frames' own fields are written before.
void BKUKLinearAnimationContext::startAnimating() {
  currentFrame_ = 0;
  isAnimating_ = true;
  cancelable_ = BKUKLinearAnimator::sharedInstance().animate(*this);
}

void BKUKLinearAnimationContext::stopAnimating() {
  if (cancelable_) cancelable_();
}

}  // namespace bkuk
