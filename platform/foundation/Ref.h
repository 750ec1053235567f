#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>  // std::hash, without the weight of <functional>
#include <utility>

namespace bkuk {

/// A strong reference to an object derived from `NSObject`, or none.
template <typename T>
class Ref {
 public:
  constexpr Ref() noexcept = default;
  constexpr Ref(std::nullptr_t) noexcept {}
  Ref(T* object) : object_(object) { retain(); }
  Ref(const Ref& other) : object_(other.object_) { retain(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

  template <typename U>
  requires std::convertible_to<U*, T*> Ref(const Ref<U>& other) : object_(other.get()) { retain(); }
  template <typename U>
  requires std::convertible_to<U*, T*> Ref(Ref<U>&& other)
  noexcept : object_(other.detach()) {}

  ~Ref() {
    if (object_) object_->release();
  }

  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a reference that is counted already.
  [[nodiscard]] static Ref adopt(T* object) noexcept {
    Ref ref;
    ref.object_ = object;
    return ref;
  }

  /// Gives the counted reference to the caller and becomes empty.
  [[nodiscard]] T* detach() noexcept { return std::exchange(object_, nullptr); }

  [[nodiscard]] T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  template <typename U>
  bool operator==(const Ref<U>& other) const noexcept {
    return object_ == other.get();
  }
  bool operator==(const T* other) const noexcept { return object_ == other; }
  bool operator==(std::nullptr_t) const noexcept { return object_ == nullptr; }

 private:
  void retain() const {
    if (object_) object_->retain();
  }

  T* object_ = nullptr;
};

/// The object as a `T`, empty when it is none.
template <typename T, typename U>
[[nodiscard]] Ref<T> as(const Ref<U>& object) {
  return Ref<T>(dynamic_cast<T*>(object.get()));
}

}  // namespace bkuk

template <typename T>
struct std::hash<bkuk::Ref<T>> {
  std::size_t operator()(const bkuk::Ref<T>& ref) const noexcept { return std::hash<T*>{}(ref.get()); }
};
