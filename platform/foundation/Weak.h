#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

#include "platform/foundation/Ref.h"
#include "platform/foundation/WeakCell.h"

namespace bkuk {

/// A reference that does not keep its object alive and reads empty from the moment the last strong
/// reference goes, before any destructor body runs. May be taken from `this` in a constructor.
template <typename T>
class Weak {
 public:
  constexpr Weak() noexcept = default;
  constexpr Weak(std::nullptr_t) noexcept {}
  Weak(T* object) : object_(object), cell_(object ? object->weakCell() : nullptr) { retain(); }
  Weak(const Weak& other) noexcept : object_(other.object_), cell_(other.cell_) { retain(); }
  Weak(Weak&& other) noexcept
      : object_(std::exchange(other.object_, nullptr)), cell_(std::exchange(other.cell_, nullptr)) {}
  template <typename U>
  requires std::convertible_to<U*, T*> Weak(const Ref<U>& object) : Weak(object.get()) {}

  ~Weak() {
    if (cell_) cell_->release();
  }

  Weak& operator=(Weak other) noexcept {
    std::swap(object_, other.object_);
    std::swap(cell_, other.cell_);
    return *this;
  }

  /// A strong reference to the object, empty when it is gone.
  [[nodiscard]] Ref<T> lock() const noexcept {
    return cell_ && cell_->retainObject() ? Ref<T>::adopt(object_) : Ref<T>();
  }

  /// The object without holding it, null when it is gone. For walks on the main thread that call nobody who
  /// could let it go.
  [[nodiscard]] T* peek() const noexcept { return isAlive() ? object_ : nullptr; }

  [[nodiscard]] bool isAlive() const noexcept { return cell_ && cell_->isAlive(); }

  /// Whether this refers to exactly that object and it is alive.
  [[nodiscard]] bool refersTo(const T* object) const noexcept { return isAlive() && object_ == object; }

 private:
  void retain() const noexcept {
    if (cell_) cell_->retain();
  }

  T* object_ = nullptr;
  WeakCell* cell_ = nullptr;
};

}  // namespace bkuk
