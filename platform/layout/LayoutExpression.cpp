#include "platform/layout/LayoutExpression.h"

#include <algorithm>

namespace bkuk {

LayoutExpression& LayoutExpression::add(LayoutVariable variable, double coefficient) {
  if (coefficient == 0) return *this;
  const auto found = std::ranges::find(terms, variable, &LayoutTerm::variable);
  if (found == terms.end()) {
    terms.push_back({variable, coefficient});
    return *this;
  }
  found->coefficient += coefficient;
  if (found->coefficient == 0) terms.erase(found);
  return *this;
}

LayoutExpression& LayoutExpression::add(const LayoutExpression& other, double factor) {
  for (const auto& term : other.terms) add(term.variable, term.coefficient * factor);
  return addConstant(other.constant * factor);
}

LayoutExpression& LayoutExpression::addConstant(double value) {
  constant += value;
  return *this;
}

}  // namespace bkuk
