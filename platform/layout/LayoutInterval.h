#pragma once

#include <limits>
#include <span>

namespace bkuk {

/// The values that a single number may have, narrowed by one demand after the other.
class LayoutInterval {
 public:
  /// A value that the number is wished to have, or to be at least or at most.
  struct Wish {
    double at;
    double weight;  // of a unit by which the wish is broken, above 0
    bool mindsLess;
    bool mindsMore;
  };

  [[nodiscard]] double least() const { return least_; }
  [[nodiscard]] double greatest() const { return greatest_; }
  [[nodiscard]] bool isPoint() const;

  /// Whether that leaves any value; if not nothing changes.
  [[nodiscard]] bool demandAtLeast(double value);
  [[nodiscard]] bool demandAtMost(double value);
  /// Keeps the values at which the sum of the distances from the wishes is least. Sorts them.
  void prefer(std::span<Wish> wishes);

 private:
  double least_ = -std::numeric_limits<double>::infinity();
  double greatest_ = std::numeric_limits<double>::infinity();
};

}  // namespace bkuk
