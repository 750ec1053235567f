#include "platform/foundation/NSNotificationCenter.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <utility>
#include <variant>
#include <vector>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

/// One observer's wish; the token of a block observer.
class NSNotificationCenter::Registration final : public NSObject {
 public:
  struct Target {
    Weak<NSObject> observer;
    Selector selector;
  };
  struct Handler {
    Ref<DispatchQueue> queue;
    Block block;
  };

  Registration(NSNotificationName name, NSObject* object, std::variant<Target, Handler> receiver)
      : name_(std::move(name)),
        wantsObject_(object != nullptr),
        object_(object),
        receiver_(std::move(receiver)) {}

  [[nodiscard]] const NSNotificationName& name() const { return name_; }
  [[nodiscard]] std::uint64_t order() const { return order_; }
  void setOrder(std::uint64_t order) { order_ = order; }

  [[nodiscard]] bool wants(const NSObject* object) const { return !wantsObject_ || object_.refersTo(object); }
  /// The observer is dead, or the object that it wanted to hear of.
  [[nodiscard]] bool isSpent() const {
    const auto* target = std::get_if<Target>(&receiver_);
    return (wantsObject_ && !object_.isAlive()) || (target && !target->observer.isAlive());
  }

  using LastOf = std::unordered_map<const NSObject*, Registration*>;
  /// Hangs it on those of the same observer.
  void link(LastOf& lastOf, const NSObject* observer) {
    auto& last = lastOf[observer];
    lastOf_ = &lastOf;
    observer_ = observer;
    before_ = std::exchange(last, this);
    if (before_) before_->after_ = this;
  }
  /// The one that its observer made before.
  [[nodiscard]] Registration* before() const { return before_; }

  void remove() {
    isRemoved_ = true;
    auto* lastOf = std::exchange(lastOf_, nullptr);
    if (!lastOf) return;
    if (before_) before_->after_ = after_;
    if (after_) {
      after_->before_ = before_;
    } else if (before_) {
      (*lastOf)[observer_] = before_;
    } else {
      lastOf->erase(observer_);
    }
  }
  void deliver(NSNotification& notification) {
    if (const auto* target = std::get_if<Target>(&receiver_)) {
      if (const auto observer = target->observer.lock()) observer->perform(target->selector, &notification);
    } else {
      deliver(notification, std::get<Handler>(receiver_));
    }
  }

 private:
  void deliver(NSNotification& notification, const Handler& handler) {
    if (!handler.queue) return handler.block(notification);
    handler.queue->async([self = Ref(this), kept = Ref(&notification)] {
      if (!self->isRemoved_) std::get<Handler>(self->receiver_).block(*kept);
    });
  }

  NSNotificationName name_;
  std::uint64_t order_ = 0;
  bool wantsObject_;
  std::atomic<bool> isRemoved_ = false;  // read on the observer's queue
  Weak<NSObject> object_;
  std::variant<Target, Handler> receiver_;
  LastOf* lastOf_ = nullptr;  // while it is linked
  const NSObject* observer_ = nullptr;
  Registration* before_ = nullptr;
  Registration* after_ = nullptr;
};

/// The registrations of one name, in order. Removal leaves a gap, so that walks may go on by index; gaps and
/// spent registrations are closed up when nobody walks.
class NSNotificationCenter::Bucket {
 public:
  [[nodiscard]] std::size_t size() const { return slots_.size(); }
  /// Empty for a gap.
  [[nodiscard]] const Ref<Registration>& operator[](std::size_t index) const {
    return slots_[index].registration;
  }
  [[nodiscard]] std::uint64_t order(std::size_t index) const { return slots_[index].order; }

  void append(Ref<Registration> registration) {
    const auto order = registration->order();
    slots_.push_back({order, std::move(registration)});
  }

  void remove(std::size_t index) {
    const auto removed = std::exchange(slots_[index].registration, nullptr);
    removed->remove();
    ++gaps_;
  }

  void remove(const Registration& registration) {
    const auto found = std::ranges::lower_bound(slots_, registration.order(), {}, &Slot::order);
    if (found == slots_.end() || found->registration != &registration) return;
    remove(static_cast<std::size_t>(found - slots_.begin()));
  }

  template <typename Condition>
  void removeIf(Condition condition) {
    for (std::size_t i = 0; i < slots_.size(); ++i) {
      if (slots_[i].registration && condition(*slots_[i].registration)) remove(i);
    }
  }

  /// Nothing but gaps is left.
  [[nodiscard]] bool isEmpty() const { return gaps_ == slots_.size(); }
  void removeSpent() {
    removeIf([](const Registration& registration) { return registration.isSpent(); });
  }

  /// Cheap on average: works only when enough has changed since the last time.
  void tidy() {
    if (slots_.size() >= sizeToSweep_) {
      removeSpent();
      closeGaps();
      sizeToSweep_ = std::max(smallestSweep, 2 * slots_.size());
    } else if (gaps_ * 2 > slots_.size()) {
      closeGaps();
    }
  }

 private:
  struct Slot {
    std::uint64_t order;
    Ref<Registration> registration;
  };

  void closeGaps() {
    std::erase_if(slots_, [](const Slot& slot) { return !slot.registration; });
    gaps_ = 0;
  }

  std::vector<Slot> slots_;
  std::size_t gaps_ = 0;
  std::size_t sizeToSweep_ = smallestSweep;
};

/// The way of one post through the observers of its name and those of any name, in order of registration.
/// Works by index on the living lists: it costs no copy, and sees removals at once.
class NSNotificationCenter::Walk {
 public:
  Walk(NSNotificationCenter& center, Bucket* named, Bucket* any)
      : center_(center), lastOrder_(center.lastOrder_), buckets_{named, any} {
    ++center_.walks_;
  }
  ~Walk() {
    if (--center_.walks_ != 0) return;
    for (Bucket* bucket : buckets_) {
      if (bucket) bucket->tidy();
    }
    center_.forgetEmptyBuckets();
  }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  /// The next registration that wants to hear of `object`; empty at the end.
  Ref<Registration> next(const NSObject* object) {
    while (Bucket* bucket = bucketOfNext()) {
      const auto index = indexes_[bucket == buckets_[1]]++;
      const auto& registration = (*bucket)[index];
      if (!registration) continue;
      if (registration->wants(object)) return registration;
    }
    return {};
  }

 private:
  static constexpr std::uint64_t none = std::numeric_limits<std::uint64_t>::max();

  [[nodiscard]] std::uint64_t nextOrder(std::size_t which) const {
    const Bucket* bucket = buckets_[which];
    return bucket && indexes_[which] < bucket->size() ? bucket->order(indexes_[which]) : none;
  }
  [[nodiscard]] Bucket* bucketOfNext() const {
    const auto named = nextOrder(0);
    const auto any = nextOrder(1);
    return std::min(named, any) > lastOrder_ ? nullptr : buckets_[any < named];
  }

  NSNotificationCenter& center_;
  std::uint64_t lastOrder_;
  Bucket* buckets_[2];
  std::size_t indexes_[2] = {0, 0};
};

NSNotificationCenter::NSNotificationCenter() = default;
NSNotificationCenter::~NSNotificationCenter() = default;

NSNotificationCenter& NSNotificationCenter::default_() {
  static const auto& center = permanent([] { return make<NSNotificationCenter>(); });
  return *center;
}

void NSNotificationCenter::addObserver(NSObject* observer, Selector selector, NSNotificationName name,
                                       NSObject* object) {
  required(observer, "NSNotificationCenter: no observer; give addObserver one, or a block");
  auto registration = make<Registration>(name, object, Registration::Target{observer, selector});
  registration->link(lastOf_, observer);
  add(std::move(registration));
}

Ref<NSObject> NSNotificationCenter::addObserver(NSNotificationName name, NSObject* object,
                                                DispatchQueue* queue, Block block) {
  required(block, "NSNotificationCenter: no block; give addObserver one");
  auto registration = make<Registration>(name, object, Registration::Handler{queue, std::move(block)});
  add(registration);
  return registration;
}

void NSNotificationCenter::add(Ref<Registration> registration) {
  registration->setOrder(++lastOrder_);
  Bucket& bucket = buckets_[registration->name()];
  bucket.append(std::move(registration));
  if (walks_ != 0) return;
  bucket.tidy();
  forgetEmptyBuckets();
}

void NSNotificationCenter::removeObserver(NSObject* observer) {
  if (const auto* token = dynamic_cast<Registration*>(observer)) return remove(*token);
  const auto found = lastOf_.find(observer);
  if (found == lastOf_.end()) return;
  std::vector<Ref<Registration>> all;
  for (auto* each = found->second; each; each = each->before()) all.emplace_back(each);
  for (const auto& registration : all) remove(*registration);
}

// What goes with a registration may come back here, so the table itself changes only afterwards.
void NSNotificationCenter::removeSpent() {
  std::vector<Bucket*> all;
  for (auto& [name, bucket] : buckets_) all.push_back(&bucket);
  ++walks_;
  for (Bucket* bucket : all) bucket->removeSpent();
  --walks_;
}

// Also those whose observers have all died, once there are many more names than the last time.
void NSNotificationCenter::forgetEmptyBuckets() {
  const bool isTimeToSweep = buckets_.size() >= bucketsToSweep_;
  if (!std::exchange(hasEmptyBuckets_, false) && !isTimeToSweep) return;
  if (isTimeToSweep) removeSpent();
  std::erase_if(buckets_, [](const auto& entry) { return entry.second.isEmpty(); });
  if (isTimeToSweep) bucketsToSweep_ = std::max(smallestSweep, 2 * buckets_.size());
}

void NSNotificationCenter::remove(const Registration& token) {
  Bucket* bucket = find(token.name());
  if (!bucket) return;
  bucket->remove(token);
  if (bucket->isEmpty()) hasEmptyBuckets_ = true;
  if (walks_ != 0) return;
  bucket->tidy();
  forgetEmptyBuckets();
}

NSNotificationCenter::Bucket* NSNotificationCenter::find(const NSNotificationName& name) {
  const auto found = buckets_.find(name);
  return found != buckets_.end() && found->second.size() != 0 ? &found->second : nullptr;
}

void NSNotificationCenter::post(NSNotificationName name, NSObject* object, NSObject* userInfo) {
  if (!find(name) && !find({})) return;
  post(*make<NSNotification>(name, object, userInfo));
}

void NSNotificationCenter::post(NSNotification& notification) {
  const Ref<NSObject> keepSelf(this);
  const Ref<NSNotification> keepNotification(&notification);
  const auto name = notification.name();
  Walk walk(*this, name ? find(name) : nullptr, find({}));
  while (const auto registration = walk.next(notification.object())) registration->deliver(notification);
}

}  // namespace bkuk
