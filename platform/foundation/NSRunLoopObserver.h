#pragma once

#include <functional>
#include <utility>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Work that a run loop does at the end of every turn, until it is invalidated. Made by
/// `NSRunLoop::addTurnEndObserver`, which also keeps it alive.
class NSRunLoopObserver final : public NSObject {
 public:
  NSRunLoopObserver(int order, std::function<void()> handler, std::function<bool()> hasWorkLeft)
      : order_(order), handler_(std::move(handler)), hasWorkLeft_(std::move(hasWorkLeft)) {}

  [[nodiscard]] int order() const { return order_; }
  [[nodiscard]] bool isValid() const { return isValid_; }
  /// Takes the observer off its loop; allowed in its own handler.
  void invalidate();

 private:
  friend class NSRunLoop;

  int order_;
  bool isValid_ = true;
  std::function<void()> handler_;
  std::function<bool()> hasWorkLeft_;
};

}  // namespace bkuk
