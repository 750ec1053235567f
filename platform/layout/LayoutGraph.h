#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "platform/layout/LayoutExpression.h"

namespace bkuk {

/// Which equations name which variables, from both sides. An equation is a sum of terms; a term stands in the
/// list of its equation, and while the equation is linked in that of its variable too. All terms lie in one
/// pool, and entering or leaving a list takes the same time however long it is.
///
/// Variables and equations are the caller's numbers, small and close together.
class LayoutGraph {
 public:
  using Index = std::uint32_t;
  static constexpr Index none = std::numeric_limits<Index>::max();

  struct Term {
    double coefficient = 0;
    Index variable = none;
    Index equation = none;
    Index next = none;  // of the equation
    Index before = none;
    Index after = none;  // of the variable
  };

  /// Those of the expression, `factor` times, to an equation without terms so far.
  void addTerms(Index equation, const LayoutExpression& expression, double factor);
  /// Of an equation that is not linked.
  void removeTerms(Index equation);
  void link(Index equation);
  void unlink(Index equation);

  [[nodiscard]] const Term& term(Index index) const { return terms_[index]; }
  [[nodiscard]] Index firstOf(Index equation) const { return firstOf_[equation]; }
  /// Of linked equations only.
  [[nodiscard]] Index firstNaming(Index variable) const {
    return variable < firstNaming_.size() ? firstNaming_[variable] : none;
  }
  template <typename Visit>
  void forTermsOf(Index equation, Visit&& visit) const {
    for (Index i = firstOf_[equation]; i != none; i = terms_[i].next) visit(terms_[i]);
  }

 private:
  std::vector<Term> terms_;
  std::vector<Index> firstOf_;
  std::vector<Index> firstNaming_;
  Index firstFree_ = none;
};

}  // namespace bkuk
