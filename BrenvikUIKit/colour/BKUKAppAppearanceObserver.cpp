#include "BrenvikUIKit/colour/BKUKAppAppearanceObserver.h"

#include <utility>

#include "BrenvikUIKit/colour/BKUKNSNotificationName+Extensions.h"
#include "BrenvikUIKit/colour/DarkAppearanceSupport.h"
#include "platform/appkit/NSApplication.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

void postChange() { NSNotificationCenter::default_().post(appAppearanceChanged(), &NSApplication::shared()); }

}  // namespace

BKUKAppAppearanceObserver& BKUKAppAppearanceObserver::shared() {
  static const auto& observer = permanent([] { return make<BKUKAppAppearanceObserver>(); });
  return *observer;
}

BKUKAppAppearanceObserver::~BKUKAppAppearanceObserver() { endObservation(); }

void BKUKAppAppearanceObserver::startObserving() {
  if (__builtin_add_overflow(observerCount_, 1, &observerCount_)) {
    trap("BKUKAppAppearanceObserver: startObserving was called too often; call stopObserving once for each");
  }
  if (observerCount_ > 1) return;
  if (observer_) return;
  if (!systemKnowsDarkAppearance()) return;
  observer_ = observe(NSApplication::shared(), NSApplication::effectiveAppearanceKey, postChange);
}

void BKUKAppAppearanceObserver::stopObserving() {
  if (__builtin_sub_overflow(observerCount_, 1, &observerCount_)) {
    trap(
        "BKUKAppAppearanceObserver: stopObserving was called too often; call it once for each "
        "startObserving");
  }
  if (observerCount_ > 0) return;
  endObservation();
}

void BKUKAppAppearanceObserver::endObservation() {
  if (const auto observation = std::exchange(observer_, nullptr)) observation->invalidate();
}

}  // namespace bkuk
