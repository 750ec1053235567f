#pragma once

#include <vector>

namespace bkuk {

/// What a change costs: an amount at each priority, of which no amount at a lower one outweighs any at a
/// higher one.
class LayoutCost {
 public:
  void clear() { levels_.clear(); }
  void add(double priority, double amount);

  /// Of the highest priority at which there is an amount: -1, 0 or 1.
  [[nodiscard]] int sign() const;
  /// Whether this, taken `factor` times, is less than `other` taken `otherFactor` times.
  [[nodiscard]] bool isLess(double factor, const LayoutCost& other, double otherFactor) const;

 private:
  struct Level {
    double priority;
    double amount;
  };
  std::vector<Level> levels_;  // highest priority first
};

}  // namespace bkuk
