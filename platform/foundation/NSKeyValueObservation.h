#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// The token of an observation that `observe` began. The observation ends when the token is invalidated or
/// dies; the token holds neither the object nor the observer.
class NSKeyValueObservation final : public NSObject {
 public:
  using Handler = std::function<void()>;

  NSKeyValueObservation(NSObject& object, std::string_view keyPath, Handler handler);
  ~NSKeyValueObservation() override;

  /// Ends the observation; allowed in the handler.
  void invalidate();

 private:
  friend void didChangeValue(NSObject& object, std::string_view key);

  void leaveTable();
  void notify(const NSObject& object, std::string_view key);

  Weak<NSObject> object_;
  const NSObject* address_;
  std::string keyPath_;
  Handler handler_;
};

/// Calls `handler` after each change of the value, without an initial call. The caller holds the token for as
/// long as it wants to hear. Belongs to the main thread.
[[nodiscard]] Ref<NSKeyValueObservation> observe(NSObject& object, std::string_view keyPath,
                                                 NSKeyValueObservation::Handler handler);

/// Called by a class after an observable value of one of its objects really changed: runs the handlers of
/// that object and key in order of observation. Costs next to nothing when nobody observes the object.
void didChangeValue(NSObject& object, std::string_view key);

}  // namespace bkuk
