#pragma once

#include <atomic>
#include <cstdint>

namespace bkuk {

class NSObject;

/// What weak references hold of an object: a block that outlives it and knows whether it still lives.
/// One is made for an object at the first weak reference. Only `NSObject` and `Weak` use it.
class WeakCell {
 public:
  explicit WeakCell(const NSObject* object) : object_(object) {}

  void retain() noexcept { references_.fetch_add(1, std::memory_order_relaxed); }
  void release() noexcept;

  /// Adds a strong reference to the object for the caller; false when it is gone or going.
  [[nodiscard]] bool retainObject() noexcept;
  [[nodiscard]] bool isAlive() const noexcept { return object_.load(std::memory_order_acquire) != nullptr; }
  /// From now on every weak reference reads empty.
  void clear() noexcept;

 private:
  // Held for a few instructions only: between reading the object's address and raising its count the
  // object must not be freed.
  class Lock;

  std::atomic<const NSObject*> object_;
  std::atomic<std::uint32_t> references_{1};
  std::atomic_flag busy_;
};

}  // namespace bkuk
