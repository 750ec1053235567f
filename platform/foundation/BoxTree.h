#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace bkuk {

/// Boxes in an order of their own, such as back to front, and boxes around neighbours of them, so that those
/// at one place are found without asking all. Changing, adding or removing one at the end costs the logarithm
/// of their number. Neighbours in the order are mostly neighbours in space; where they are not, it still
/// finds all, in more time.
template <typename Number>
class BoxTree {
 public:
  /// From edge to edge, both included.
  struct Box {
    Number minX = std::numeric_limits<Number>::max();
    Number minY = std::numeric_limits<Number>::max();
    Number maxX = std::numeric_limits<Number>::lowest();
    Number maxY = std::numeric_limits<Number>::lowest();

    bool operator==(const Box&) const = default;
    [[nodiscard]] bool touches(const Box& other) const {
      return minY <= other.maxY && other.minY <= maxY && minX <= other.maxX && other.minX <= maxX;
    }
    void add(const Box& other) {
      minX = std::min(minX, other.minX);
      minY = std::min(minY, other.minY);
      maxX = std::max(maxX, other.maxX);
      maxY = std::max(maxY, other.maxY);
    }
  };
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  [[nodiscard]] std::size_t size() const { return levels_.empty() ? 0 : levels_.front().size(); }
  [[nodiscard]] const Box& operator[](std::size_t index) const { return levels_.front()[index]; }

  /// Around all; one that touches nothing when there is none.
  [[nodiscard]] Box bounds() const {
    return levels_.empty() ? Box() : around(levels_.size() - 1, 0, levels_.back().size());
  }

  /// No number of the box may be a NaN.
  void append(const Box& box) {
    if (levels_.empty()) levels_.emplace_back();
    levels_.front().push_back(box);
    for (std::size_t level = 0; levels_[level].size() > fanOut; ++level) {
      if (level + 1 == levels_.size()) levels_.emplace_back();
      auto& groups = levels_[level + 1];
      if (groups.size() == groupCount(level)) {
        groups.back().add(box);
      } else {
        while (groups.size() < groupCount(level)) groups.push_back(group(level, groups.size()));
      }
    }
  }

  void set(std::size_t index, const Box& box) {
    levels_.front()[index] = box;
    for (std::size_t level = 0; level + 1 < levels_.size(); ++level) {
      index /= fanOut;
      const Box changed = group(level, index);
      if (levels_[level + 1][index] == changed) return;
      levels_[level + 1][index] = changed;
    }
  }

  /// `size` is at most that of now.
  void truncate(std::size_t size) {
    if (levels_.empty()) return;
    levels_.front().resize(size);
    for (std::size_t level = 0; level + 1 < levels_.size(); ++level) {
      if (levels_[level].size() <= fanOut) return levels_.resize(level + 1);
      auto& groups = levels_[level + 1];
      groups.resize(groupCount(level));
      groups.back() = group(level, groups.size() - 1);
    }
  }

  /// The last before `end` that touches `area`, or `none`.
  [[nodiscard]] std::size_t lastTouching(const Box& area, std::size_t end) const {
    if (levels_.empty()) return none;
    return lastTouching(area, std::min(end, size()), levels_.size() - 1, 0, levels_.back().size());
  }

 private:
  static constexpr std::size_t fanOut = 16;

  [[nodiscard]] std::size_t groupCount(std::size_t level) const {
    return (levels_[level].size() + fanOut - 1) / fanOut;
  }
  [[nodiscard]] Box around(std::size_t level, std::size_t begin, std::size_t end) const {
    Box box;
    for (std::size_t i = begin; i < end; ++i) box.add(levels_[level][i]);
    return box;
  }
  [[nodiscard]] Box group(std::size_t level, std::size_t index) const {
    return around(level, index * fanOut, std::min((index + 1) * fanOut, levels_[level].size()));
  }

  // Among the boxes of a level from `begin` to before `last`, but for what lies from `end` on at the lowest.
  [[nodiscard]] std::size_t lastTouching(const Box& area, std::size_t end, std::size_t level,
                                         std::size_t begin, std::size_t last) const {
    std::size_t width = 1;
    for (std::size_t i = 0; i < level; ++i) width *= fanOut;
    last = std::min(last, (end + width - 1) / width);
    while (last-- > begin) {
      if (!levels_[level][last].touches(area)) continue;
      if (level == 0) return last;
      const auto found = lastTouching(area, end, level - 1, last * fanOut, (last + 1) * fanOut);
      if (found != none) return found;
    }
    return none;
  }

  std::vector<std::vector<Box>> levels_;
};

}  // namespace bkuk
