#pragma once

#include <cstdint>
#include <vector>

namespace bkuk {

/// A number that a solver finds, known by its place in that solver.
struct LayoutVariable {
  std::uint32_t index = 0;
  bool operator==(const LayoutVariable&) const = default;
};

struct LayoutTerm {
  LayoutVariable variable;
  double coefficient = 0;
};

/// A sum of multiples of variables and a constant. No variable occurs twice and none with a factor of 0.
struct LayoutExpression {
  std::vector<LayoutTerm> terms;
  double constant = 0;

  /// Adds a multiple of a variable.
  LayoutExpression& add(LayoutVariable variable, double coefficient = 1);
  /// Adds a multiple of another expression.
  LayoutExpression& add(const LayoutExpression& other, double factor);
  LayoutExpression& addConstant(double value);
};

}  // namespace bkuk
