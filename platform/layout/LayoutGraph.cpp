#include "platform/layout/LayoutGraph.h"

#include <utility>

namespace bkuk {

void LayoutGraph::addTerms(Index equation, const LayoutExpression& expression, double factor) {
  if (equation >= firstOf_.size()) firstOf_.resize(equation + 1, none);
  for (auto each = expression.terms.rbegin(); each != expression.terms.rend(); ++each) {
    if (firstFree_ == none) {
      firstFree_ = static_cast<Index>(terms_.size());
      terms_.emplace_back();
    }
    const Index made = firstFree_;
    auto& term = terms_[made];
    firstFree_ = term.next;
    term = {each->coefficient * factor, each->variable.index, equation, firstOf_[equation], none, none};
    firstOf_[equation] = made;
    if (term.variable >= firstNaming_.size()) firstNaming_.resize(term.variable + 1, none);
  }
}

void LayoutGraph::removeTerms(Index equation) {
  Index i = std::exchange(firstOf_[equation], none);
  while (i != none) {
    const Index next = std::exchange(terms_[i].next, firstFree_);
    firstFree_ = std::exchange(i, next);
  }
}

void LayoutGraph::link(Index equation) {
  for (Index i = firstOf_[equation]; i != none; i = terms_[i].next) {
    auto& term = terms_[i];
    auto& first = firstNaming_[term.variable];
    term.before = none;
    term.after = first;
    if (first != none) terms_[first].before = i;
    first = i;
  }
}

void LayoutGraph::unlink(Index equation) {
  for (Index i = firstOf_[equation]; i != none; i = terms_[i].next) {
    const auto& term = terms_[i];
    (term.before == none ? firstNaming_[term.variable] : terms_[term.before].after) = term.after;
    if (term.after != none) terms_[term.after].before = term.before;
  }
}

}  // namespace bkuk
