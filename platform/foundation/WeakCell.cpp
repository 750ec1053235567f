#include "platform/foundation/WeakCell.h"

#include <thread>

#include "platform/foundation/NSObject.h"

namespace bkuk {

// Held for a few instructions, so that whoever finds it taken only steps aside for a moment.
class WeakCell::Lock {
 public:
  explicit Lock(std::atomic_flag& busy) noexcept : busy_(busy) {
    while (busy_.test_and_set(std::memory_order_acquire)) std::this_thread::yield();
  }
  ~Lock() { busy_.clear(std::memory_order_release); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  std::atomic_flag& busy_;
};

void WeakCell::release() noexcept {
  if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

bool WeakCell::retainObject() noexcept {
  const Lock lock(busy_);
  const NSObject* object = object_.load(std::memory_order_relaxed);
  return object && object->retainIfAlive();
}

void WeakCell::clear() noexcept {
  const Lock lock(busy_);
  object_.store(nullptr, std::memory_order_release);
}

}  // namespace bkuk
