#include "platform/foundation/NSObject.h"

#include <memory>
#include <typeinfo>
#include <vector>

#include "platform/foundation/ClassName.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/LiveObjects.h"
#include "platform/foundation/NSThread.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/foundation/NSObject";

// A tree of any depth is destroyed without deepening the stack: beyond this depth an object whose last
// reference went waits for the outermost release to come back.
constexpr int maxDestructionDepth = 32;
thread_local int destructionDepth = 0;
thread_local std::vector<const NSObject*>* waitingForDestruction = nullptr;

}  // namespace

NSObject::~NSObject() {
  if (isCounted_.load(std::memory_order_relaxed)) LiveObjects::remove(*this);
  WeakCell* cell = cell_.load(std::memory_order_acquire);
  if (!cell) return;
  cell->clear();
  cell->release();
}

std::string NSObject::className() const { return plainClassName(typeid(*this)); }

bool NSObject::respondsTo(Selector selector) const { return selectors().find(selector) != nullptr; }

void NSObject::perform(Selector selector, NSObject* sender) {
  const auto action = selectors().find(selector);
  if (!action) fatal(className() + " does not perform " + std::string(selector.name()), unit);
  const Ref<NSObject> keepSelf(this);
  const Ref<NSObject> keepSender(sender);
  action(*this, sender);
}

const SelectorTable& NSObject::selectors() const { return SelectorTable::empty(); }

void NSObject::retain() const {
  if (count_.fetch_add(1, std::memory_order_relaxed) == 0)
    fatal("An object that is being destroyed was referenced", unit);
}

// What may be the last reference is looked at before it goes: a weak reference could otherwise no longer find
// an object that waits for the main thread.
void NSObject::release() const noexcept {
  auto count = count_.load(std::memory_order_relaxed);
  while (count > 1) {
    if (count_.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel)) return;
  }
  if (!NSThread::isMainThread() && !mayDieOnAnyThread()) return handToMainThread();
  if (count_.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  if (WeakCell* cell = cell_.load(std::memory_order_acquire)) cell->clear();
  destroy(this);
}

void NSObject::handToMainThread() const noexcept {
  DispatchQueue::main().async([last = Ref<const NSObject>::adopt(this)] {});
}

std::size_t NSObject::liveCount(std::string_view className) {
  std::size_t count = 0;
  for (const auto& [name, living] : LiveObjects::byClass()) {
    if (className.empty() || name == className) count += living;
  }
  return count;
}

void NSObject::countBirth() const { LiveObjects::add(*this); }

bool NSObject::retainIfAlive() const noexcept {
  auto count = count_.load(std::memory_order_relaxed);
  while (count != 0) {
    if (count_.compare_exchange_weak(count, count + 1, std::memory_order_acq_rel)) return true;
  }
  return false;
}

WeakCell* NSObject::weakCell() const {
  if (WeakCell* cell = cell_.load(std::memory_order_acquire)) return cell;
  auto made = std::make_unique<WeakCell>(count_.load(std::memory_order_relaxed) ? this : nullptr);
  WeakCell* expected = nullptr;
  if (cell_.compare_exchange_strong(expected, made.get(), std::memory_order_acq_rel)) return made.release();
  return expected;
}

void NSObject::destroy(const NSObject* object) noexcept {
  if (destructionDepth >= maxDestructionDepth) {
    if (!waitingForDestruction) waitingForDestruction = new std::vector<const NSObject*>;
    waitingForDestruction->push_back(object);
    return;
  }
  ++destructionDepth;
  delete object;
  while (destructionDepth == 1 && waitingForDestruction) {
    const std::unique_ptr<std::vector<const NSObject*>> batch(std::exchange(waitingForDestruction, nullptr));
    for (const NSObject* waiting : *batch) delete waiting;
  }
  --destructionDepth;
}

}  // namespace bkuk
