#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/ObjectBehind.h"

namespace bkuk {

/// A delegate that is not kept alive. `T` is an interface, or a class, that objects derived from `NSObject`
/// implement; anything else is a fatal error.
template <typename T>
class WeakDelegate {
 public:
  /// The delegate of one call, alive for as long as this is; empty when there is none.
  class Held {
   public:
    Held() = default;
    Held(Ref<NSObject> object, T* delegate) : object_(std::move(object)), delegate_(delegate) {}

    explicit operator bool() const { return static_cast<bool>(object_); }
    T& operator*() const { return *delegate_; }
    T* operator->() const { return delegate_; }
    [[nodiscard]] const Ref<NSObject>& object() const { return object_; }

   private:
    Ref<NSObject> object_;
    T* delegate_ = nullptr;
  };

  WeakDelegate() = default;
  WeakDelegate(T* delegate) : WeakDelegate(delegate, objectBehind(delegate)) {}
  /// The same where the object that the delegate is part of is known already.
  WeakDelegate(T* delegate, NSObject* object) : object_(object), delegate_(delegate) {}

  [[nodiscard]] bool isAlive() const { return object_.isAlive(); }
  /// Empty once the delegate is gone.
  [[nodiscard]] T* get() const { return isAlive() ? delegate_ : nullptr; }
  [[nodiscard]] Held lock() const { return {object_.lock(), delegate_}; }
  /// Whether it was made of that delegate, which need not live any more.
  [[nodiscard]] bool isOf(const T* delegate) const { return delegate_ == delegate; }

 private:
  Weak<NSObject> object_;
  T* delegate_ = nullptr;  // of the same object
};

}  // namespace bkuk
