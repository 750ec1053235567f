#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foundation/Ref.h"
#include "platform/foundation/Selector.h"
#include "platform/foundation/SelectorTable.h"
#include "platform/foundation/Weak.h"

namespace bkuk {

/// The root of every reference type: an intrusive strong count and zeroing weak references.
///
/// Objects are made with `make<T>(...)` and held by `Ref<T>`. Counting and weak references are atomic,
/// so that an object may be held and let go on any thread, even one whose members belong to the main
/// thread: a last reference that goes elsewhere is handed to the main queue, which lets it go in its
/// next turn. Until then weak references still find the object.
class NSObject {
 public:
  NSObject(const NSObject&) = delete;
  NSObject& operator=(const NSObject&) = delete;

  /// Equality of content; identity unless overridden. Objects that are equal have the same `hash()`.
  [[nodiscard]] virtual bool isEqual(const NSObject* other) const { return this == other; }
  [[nodiscard]] virtual std::size_t hash() const { return std::hash<const NSObject*>{}(this); }

  /// The plain name of the object's class, without namespace.
  [[nodiscard]] virtual std::string className() const;

  [[nodiscard]] bool respondsTo(Selector selector) const;
  /// Runs the operation of that name. An unknown selector is a fatal error: ask `respondsTo` first
  /// where the answer is open.
  void perform(Selector selector, NSObject* sender = nullptr);

  void retain() const;
  void release() const noexcept;

  /// How many objects are alive of that class, by its plain name and without those of derived classes; of
  /// all classes without a name. Only objects made while `LiveObjects` counted are known, and of those
  /// none that is made to stay for good. For tests; to be asked while no other thread makes objects.
  [[nodiscard]] static std::size_t liveCount(std::string_view className = {});

 protected:
  NSObject() {
    if (isCounted_.load(std::memory_order_relaxed)) countBirth();
  }
  virtual ~NSObject();

  /// Called once by `make`, on the complete object. Whatever calls overridable members while an object
  /// is set up belongs here and not in a constructor. Overrides call the base first.
  virtual void didInit() {}

  /// Whether the last reference may destroy the object on whichever thread lets it go. Only for classes
  /// whose destruction, that of their members included, touches nothing of the main thread's.
  [[nodiscard]] virtual bool mayDieOnAnyThread() const noexcept { return false; }

  /// The operations that the class performs by name: a static table that names its base's.
  [[nodiscard]] virtual const SelectorTable& selectors() const;

 private:
  template <typename T, typename... Args>
  friend Ref<T> make(Args&&... args);
  template <typename T>
  friend class Weak;
  friend class WeakCell;
  friend class LiveObjects;

  void countBirth() const;
  void handToMainThread() const noexcept;
  bool retainIfAlive() const noexcept;
  [[nodiscard]] WeakCell* weakCell() const;
  static void destroy(const NSObject* object) noexcept;

  inline static std::atomic<bool> isCounted_{false};

  mutable std::atomic<WeakCell*> cell_{nullptr};
  // The creator's reference is counted from the start, so that a constructor may hand out references. Last,
  // so that small members of derived classes find place behind it.
  mutable std::atomic<std::uint32_t> count_{1};
};

/// Constructs an object, then calls its `didInit()`.
template <typename T, typename... Args>
[[nodiscard]] Ref<T> make(Args&&... args) {
  auto object = Ref<T>::adopt(new T(std::forward<Args>(args)...));
  static_cast<NSObject&>(*object).didInit();
  return object;
}

}  // namespace bkuk
