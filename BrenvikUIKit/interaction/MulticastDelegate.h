#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/WeakDelegate.h"

namespace bkuk {

/// Any number of listeners that are not kept alive. `T` is an interface, or a class, that objects derived
/// from `NSObject` implement; a listener that dies drops out.
///
/// Listeners may be added, removed and destroyed during a call: the call goes to those that were there when
/// it began. All operations may be used on any thread; what the calls do there is the caller's business.
template <typename T>
class MulticastDelegate : public NSObject {
 public:
  using Invocation = std::function<void(T& delegate)>;

  /// One that is equal to a listener already there is not added again; absent ones are ignored. One that is
  /// no `NSObject` stops the process.
  void add(T* delegate) {
    auto* object = objectBehind(delegate);
    if (!object) return;
    const std::scoped_lock lock(mutex_);
    std::erase_if(delegates_, [](const Entry& entry) { return !entry.isAlive(); });
    const bool isThere = std::ranges::any_of(delegates_, [&](const Entry& entry) {
      const auto other = entry.lock().object();
      return other && other->hash() == object->hash() && other->isEqual(object);
    });
    if (!isThere) delegates_.push_back({delegate, object});
  }

  /// Takes out that very listener; nothing happens when it is not there.
  void remove(T* delegate) {
    const std::scoped_lock lock(mutex_);
    std::erase_if(delegates_, [&](const Entry& entry) { return entry.isOf(delegate); });
  }

  /// Calls with each living listener, from the last added to the first, which all stay alive until it
  /// returns.
  template <typename Call>
  void invoke(Call&& invocation) const {
    if constexpr (std::same_as<std::remove_cvref_t<Call>, Invocation>) required(invocation, noCall);
    Snapshot snapshot(*this);
    for (const auto& held : snapshot) invocation(*held);
  }

  /// Makes the same calls later, on `queue`.
  void invoke(Invocation invocation, DispatchQueue& queue) {
    required(invocation, noCall);
    queue.async([self = Ref<MulticastDelegate>(this), invocation = std::move(invocation)] {
      self->invoke(invocation);
    });
  }

  /// How many listeners live.
  [[nodiscard]] std::size_t count() const {
    const std::scoped_lock lock(mutex_);
    return static_cast<std::size_t>(
        std::ranges::count_if(delegates_, [](const Entry& entry) { return entry.isAlive(); }));
  }

 private:
  static constexpr std::string_view noCall = "MulticastDelegate: invoke without a call";

  using Entry = WeakDelegate<T>;
  using Held = typename Entry::Held;

  // The listeners of one call, last added first. A few need no memory of their own.
  class Snapshot {
   public:
    explicit Snapshot(const MulticastDelegate& source) {
      const std::scoped_lock lock(source.mutex_);
      const auto& entries = source.delegates_;
      if (entries.size() > few) many_ = std::make_unique<Held[]>(entries.size());
      Held* next = begin();
      for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (auto held = entry->lock()) *next++ = std::move(held);
      }
      end_ = next;
    }

    [[nodiscard]] Held* begin() { return many_ ? many_.get() : held_; }
    [[nodiscard]] Held* end() { return end_; }

   private:
    static constexpr std::size_t few = 12;
    Held held_[few];
    std::unique_ptr<Held[]> many_;
    Held* end_ = nullptr;
  };

  mutable std::mutex mutex_;
  std::vector<Entry> delegates_;
};

}  // namespace bkuk
