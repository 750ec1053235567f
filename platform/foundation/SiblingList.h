#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "platform/foundation/Ref.h"

namespace bkuk {

/// The children of one object, in order, each of which remembers in the member `place` where it was found
/// last. Finding a child, and adding and removing at the end, cost the same however many there are; what is
/// done elsewhere moves the references behind, and nothing more.
template <typename T, std::uint32_t T::*place>
class SiblingList {
 public:
  [[nodiscard]] const std::vector<Ref<T>>& all() const { return children_; }
  [[nodiscard]] std::size_t size() const { return children_.size(); }

  /// Of a child that is in the list.
  [[nodiscard]] std::size_t indexOf(const T& child) const {
    const std::size_t remembered = child.*place;
    if (isAt(remembered, child)) return remembered;
    const std::size_t farthest = drift_ > farthestSearch ? 0 : drift_;
    for (std::size_t distance = 1; distance <= farthest; ++distance) {
      if (distance <= remembered && isAt(remembered - distance, child))
        return remember(remembered - distance);
      if (isAt(remembered + distance, child)) return remember(remembered + distance);
    }
    rememberAll();
    return child.*place;
  }

  /// `index` is at most the size. The child is in no list.
  void insert(Ref<T> child, std::size_t index) {
    (*child).*place = static_cast<std::uint32_t>(index);
    if (children_.empty()) children_.reserve(fewChildren);
    if (index == children_.size()) return children_.push_back(std::move(child));
    ++drift_;
    children_.emplace_back();
    moveBytes(index + 1, index, children_.size() - 1 - index);
    new (&children_[index]) Ref<T>(std::move(child));
  }

  Ref<T> erase(std::size_t index) {
    Ref<T> child = std::move(children_[index]);
    const std::size_t last = children_.size() - 1;
    if (index != last) {
      ++drift_;
      moveBytes(index, index + 1, last - index);
      new (&children_[last]) Ref<T>();
    }
    children_.pop_back();
    if (children_.empty()) drift_ = 0;
    return child;
  }

 private:
  static constexpr std::size_t fewChildren = 2;
  // Beyond, all children are told their places once, which is less work than more such searches.
  static constexpr std::size_t farthestSearch = 1024;

  [[nodiscard]] bool isAt(std::size_t index, const T& child) const {
    return index < children_.size() && children_[index].get() == &child;
  }

  std::size_t remember(std::size_t index) const {
    (*children_[index]).*place = static_cast<std::uint32_t>(index);
    return index;
  }

  void rememberAll() const {
    drift_ = 0;
    for (std::size_t i = 0; i < children_.size(); ++i) remember(i);
  }

  // A reference is its pointer, wherever it lies: many move at once, uncounted.
  void moveBytes(std::size_t to, std::size_t from, std::size_t count) {
    static_assert(sizeof(Ref<T>) == sizeof(T*));
    Ref<T>* first = children_.data();
    std::memmove(static_cast<void*>(first + to), static_cast<const void*>(first + from),
                 count * sizeof(Ref<T>));
  }

  std::vector<Ref<T>> children_;
  mutable std::size_t drift_ = 0;  // how far from where it was found last a child may be
};

}  // namespace bkuk
