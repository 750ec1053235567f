#pragma once

#include <cstdint>

#include "platform/foundation/NSKeyValueObservation.h"

namespace bkuk {

/// Turns changes of the application's effective appearance into the notification `appAppearanceChanged`, for
/// as long as somebody wants it: callers pair `startObserving` with `stopObserving`. Main thread only.
///
/// The count of open calls has no floor: a stop without its start takes it below zero, and the next start
/// observes all the same.
class BKUKAppAppearanceObserver final : public NSObject {
 public:
  [[nodiscard]] static BKUKAppAppearanceObserver& shared();

  BKUKAppAppearanceObserver() = default;
  ~BKUKAppAppearanceObserver() override;

  /// Observes from the first call on. Before system version 10.14 there is nothing to observe and only the
  /// count rises.
  void startObserving();
  /// Ends the observation when no call is left open.
  void stopObserving();

  /// Calls of `startObserving` less calls of `stopObserving`.
  [[nodiscard]] std::int64_t observerCount() const { return observerCount_; }
  /// Present while observing.
  [[nodiscard]] const Ref<NSKeyValueObservation>& observer() const { return observer_; }

 private:
  friend class BKUKAppAppearanceObserverTestApi;

  void endObservation();

  std::int64_t observerCount_ = 0;
  Ref<NSKeyValueObservation> observer_;
};

}  // namespace bkuk
