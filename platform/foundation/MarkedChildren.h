#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace bkuk {

/// Where a child stands that is in no list of marked ones.
inline constexpr std::uint32_t notMarked = std::numeric_limits<std::uint32_t>::max();

/// Those of an object's children that are marked, each once and in no order, so that finding one of many asks
/// none of the others. Every child keeps in the member `place`, at first `notMarked`, where it stands; it has
/// to be taken out before it goes elsewhere.
template <typename T, std::uint32_t T::*place>
class MarkedChildren {
 public:
  [[nodiscard]] const std::vector<T*>& all() const { return children_; }

  void add(T& child) {
    if (child.*place != notMarked) return;
    child.*place = static_cast<std::uint32_t>(children_.size());
    if (children_.empty()) children_.reserve(2);
    children_.push_back(&child);
  }

  void remove(T& child) {
    const auto index = child.*place;
    if (index == notMarked) return;
    child.*place = notMarked;
    T* last = children_.back();
    children_.pop_back();
    if (last == &child) return;
    children_[index] = last;
    last->*place = index;
  }

  void clear() {
    for (T* child : children_) child->*place = notMarked;
    children_.clear();
  }

 private:
  std::vector<T*> children_;
};

}  // namespace bkuk
