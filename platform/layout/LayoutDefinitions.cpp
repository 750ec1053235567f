#include "platform/layout/LayoutDefinitions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace bkuk {

namespace {

// A fixed variable that is off by less, as a part of itself, is off by rounding.
constexpr double negligiblePart = 1e-9;
constexpr double negligibleFactor = 1e-10;
// Fixed variables may follow from each other as deep as views lie in each other. Only rounding that turns in
// a circle could take longer.
constexpr int mostRounds = 1000;

}  // namespace

LayoutVariable LayoutDefinitions::makeVariable() {
  if (free_.empty()) {
    free_.push_back(static_cast<Index>(variables_.size()));
    variables_.emplace_back();
  }
  const LayoutVariable made{free_.back()};
  free_.pop_back();
  return made;
}

void LayoutDefinitions::removeVariable(LayoutVariable variable) {
  auto& removed = variables_[variable.index];
  removed.rootValue = 0;
  removed.value = 0;
  free_.push_back(variable.index);
}

bool LayoutDefinitions::isSettled(LayoutVariable variable) const {
  return variables_[variable.index].equation != none;
}

bool LayoutDefinitions::isDependedOn(LayoutVariable variable) const {
  const Index own = variables_[variable.index].equation;
  Index term = graph_.firstNaming(variable.index);
  if (term != none && graph_.term(term).equation == own) term = graph_.term(term).after;
  return term != none;
}

// Equations

void LayoutDefinitions::add(Equation equation, const LayoutExpression& expression, double factor) {
  if (equation >= equations_.size()) equations_.resize(equation + 1);
  equations_[equation] = {expression.constant * factor, 0, none, Part::none};
  graph_.addTerms(equation, expression, factor);
}

void LayoutDefinitions::remove(Equation equation) { graph_.removeTerms(equation); }

void LayoutDefinitions::setConstant(Equation equation, double constant) {
  auto& changed = equations_[equation];
  changed.constant = constant;
  if (changed.part == Part::definition) markDirty(changed.variable);
  if (changed.part == Part::fixing) reachedFixings_.push_back(equation);
}

bool LayoutDefinitions::canDefine(LayoutVariable root, Equation equation) {
  if (isSettled(root)) return false;
  if (!isDependedOn(root)) return true;
  beginWalk();
  graph_.forTermsOf(equation, [&](const LayoutGraph::Term& term) {
    if (term.variable != root.index) walkInputs(term.variable);
  });
  return variables_[root.index].visit != visit_;
}

void LayoutDefinitions::settle(LayoutVariable root, Equation equation, Part part) {
  variables_[root.index].equation = equation;
  variables_[root.index].isFixed = part == Part::fixing;
  equations_[equation].variable = root.index;
  equations_[equation].part = part;
  graph_.link(equation);
  markDirty(root.index);
}

void LayoutDefinitions::define(LayoutVariable root, Equation equation) {
  settle(root, equation, Part::definition);
}

void LayoutDefinitions::fix(LayoutVariable root, Equation equation, double factor) {
  settle(root, equation, Part::fixing);
  equations_[equation].factor = factor;
  variables_[root.index].rootValue = 0;
  reachedFixings_.push_back(equation);
}

void LayoutDefinitions::use(Equation equation) {
  equations_[equation].part = Part::use;
  graph_.link(equation);
}

void LayoutDefinitions::release(Equation equation) {
  auto& released = equations_[equation];
  graph_.unlink(equation);
  released.part = Part::none;
  if (released.variable == none) return;
  auto& variable = variables_[released.variable];
  variable.equation = none;
  variable.isFixed = false;
  variable.rootValue = 0;
  markDirty(std::exchange(released.variable, none));
}

void LayoutDefinitions::setRootValue(LayoutVariable root, double value) {
  if (std::exchange(variables_[root.index].rootValue, value) != value) markDirty(root.index);
}

// Walks. They keep their own stack, for a chain may be long.

void LayoutDefinitions::beginWalk() {
  ++visit_;
  order_.clear();
}

/// `first` answers the term that leads away from a variable first, `next` steps a term on to where it leads,
/// which may be nowhere.
template <typename First, typename Next>
void LayoutDefinitions::walk(Index from, First&& first, Next&& next) {
  if (std::exchange(variables_[from].visit, visit_) == visit_) return;
  steps_.push_back({from, first(from)});
  while (!steps_.empty()) {
    auto& step = steps_.back();
    if (step.term == none) {
      order_.push_back(step.variable);
      steps_.pop_back();
      continue;
    }
    const Index neighbour = next(step.term);
    if (neighbour == none || std::exchange(variables_[neighbour].visit, visit_) == visit_) continue;
    steps_.push_back({neighbour, first(neighbour)});
  }
}

// Along definitions, so that the order reversed has each after what it follows from.
void LayoutDefinitions::walkDependents(Index from) {
  walk(
      from, [this](Index variable) { return graph_.firstNaming(variable); },
      [this](Index& place) {
        const auto& term = graph_.term(place);
        place = term.after;
        const auto& equation = equations_[term.equation];
        return equation.part == Part::definition ? equation.variable : none;
      });
}

LayoutGraph::Index LayoutDefinitions::firstInput(Index variable) const {
  const auto& asked = variables_[variable];
  return asked.equation == none || asked.isFixed ? none : graph_.firstOf(asked.equation);
}

void LayoutDefinitions::walkInputs(Index from) {
  walk(
      from, [this](Index variable) { return firstInput(variable); },
      [this](Index& place) {
        const auto& term = graph_.term(place);
        place = term.next;
        return term.variable;
      });
}

std::vector<LayoutDefinitions::Equation> LayoutDefinitions::usesOfRoot(LayoutVariable root) {
  std::vector<Equation> uses;
  beginWalk();
  walkDependents(root.index);
  for (const auto variable : order_) {
    for (Index i = graph_.firstNaming(variable); i != none; i = graph_.term(i).after) {
      const Equation equation = graph_.term(i).equation;
      if (equations_[equation].part == Part::use) uses.push_back(equation);
    }
  }
  return uses;
}

std::vector<LayoutDefinitions::Equation> LayoutDefinitions::usesOfSettled(LayoutVariable variable) {
  std::vector<Equation> uses;
  beginWalk();
  walk(
      variable.index, [this](Index each) { return graph_.firstNaming(each); },
      [&](Index& place) {
        const auto& term = graph_.term(place);
        place = term.after;
        const auto& equation = equations_[term.equation];
        if (equation.part != Part::definition) uses.push_back(term.equation);
        return equation.variable;
      });
  return uses;
}

std::vector<LayoutDefinitions::Equation> LayoutDefinitions::fixingsBehind(Equation equation) {
  std::vector<Equation> found;
  beginWalk();
  graph_.forTermsOf(equation, [&](const LayoutGraph::Term& named) {
    walk(
        named.variable,
        [&](Index variable) {
          const auto& asked = variables_[variable];
          if (asked.isFixed) found.push_back(asked.equation);
          return asked.equation == none ? none : graph_.firstOf(asked.equation);
        },
        [this](Index& place) {
          const auto& term = graph_.term(place);
          place = term.next;
          return term.variable;
        });
  });
  return found;
}

double LayoutDefinitions::constantInRoots(Equation equation) const {
  double constant = equations_[equation].constant;
  graph_.forTermsOf(equation, [&](const LayoutGraph::Term& term) {
    constant += term.coefficient * variables_[term.variable].offset;
  });
  return constant;
}

const LayoutExpression& LayoutDefinitions::inRoots(Equation equation) {
  beginWalk();
  const auto addTo = [this](const LayoutGraph::Term& term, double factor) {
    variables_[term.variable].factor += factor * term.coefficient;
  };
  graph_.forTermsOf(equation, [&](const LayoutGraph::Term& term) { walkInputs(term.variable); });
  for (const auto index : order_) variables_[index].factor = 0;
  roots_.terms.clear();
  roots_.constant = constantInRoots(equation);
  graph_.forTermsOf(equation, [&](const LayoutGraph::Term& term) { addTo(term, 1); });
  // Backwards, so that all that a variable is multiplied with has arrived when its inputs take it over.
  for (auto index = order_.rbegin(); index != order_.rend(); ++index) {
    const auto& variable = variables_[*index];
    if (std::abs(variable.factor) <= negligibleFactor || variable.isFixed) continue;
    if (variable.equation == none) {
      roots_.terms.push_back({{*index}, variable.factor});
      continue;
    }
    double own = 0;
    graph_.forTermsOf(variable.equation, [&](const LayoutGraph::Term& term) {
      if (term.variable == *index) own = term.coefficient;
    });
    graph_.forTermsOf(variable.equation, [&](const LayoutGraph::Term& term) {
      if (term.variable != *index) addTo(term, -variable.factor / own);
    });
  }
  return roots_;
}

// Values

void LayoutDefinitions::markDirty(Index variable) {
  if (!std::exchange(variables_[variable].isDirty, true)) dirty_.push_back(variable);
}

void LayoutDefinitions::update(std::vector<Equation>& reached) {
  for (int round = 0; round < mostRounds; ++round) {
    updateOnce(reached);
    if (!adjustFixed()) return;
  }
}

void LayoutDefinitions::updateOnce(std::vector<Equation>& reached) {
  if (dirty_.empty()) return;
  beginWalk();
  std::swap(walked_, dirty_);
  for (const auto index : walked_) walkDependents(index);
  walked_.clear();
  for (auto index = order_.rbegin(); index != order_.rend(); ++index) {
    if (std::exchange(variables_[*index].isDirty, false)) evaluate(*index, reached);
  }
}

void LayoutDefinitions::evaluate(Index index, std::vector<Equation>& reached) {
  auto& variable = variables_[index];
  double value = variable.rootValue;
  double offset = variable.isFixed ? variable.rootValue : 0;
  if (variable.equation != none && !variable.isFixed) {
    value = offset = equations_[variable.equation].constant;
    double own = 0;
    graph_.forTermsOf(variable.equation, [&](const LayoutGraph::Term& term) {
      if (term.variable == index) {
        own = -term.coefficient;
        return;
      }
      value += term.coefficient * variables_[term.variable].value;
      offset += term.coefficient * variables_[term.variable].offset;
    });
    value /= own;
    offset /= own;
  }
  const bool offsetChanged = std::exchange(variable.offset, offset) != offset;
  const bool valueChanged = std::exchange(variable.value, value) != value;
  if (valueChanged && !std::exchange(variable.isChanged, true)) changed_.push_back({index});
  if (!valueChanged && !offsetChanged) return;
  for (Index i = graph_.firstNaming(index); i != none; i = graph_.term(i).after) {
    const Equation equation = graph_.term(i).equation;
    const auto& naming = equations_[equation];
    if (naming.part == Part::definition && naming.variable != index)
      variables_[naming.variable].isDirty = true;
    if (naming.part == Part::use && offsetChanged) reached.push_back(equation);
    if (naming.part == Part::fixing && offsetChanged) reachedFixings_.push_back(equation);
  }
}

// An equation that does not come out at 0 says by how much what it fixes is off.
bool LayoutDefinitions::adjustFixed() {
  bool hasMoved = false;
  for (const auto equation : reachedFixings_) {
    const auto& fixing = equations_[equation];
    if (fixing.part != Part::fixing) continue;
    auto& fixed = variables_[fixing.variable];
    if (fixed.isDirty) continue;  // moved already, and reached again by that
    const double step = constantInRoots(equation) / -fixing.factor;
    if (std::abs(step) <= negligiblePart * std::max(1.0, std::abs(fixed.rootValue))) continue;
    fixed.rootValue += step;
    markDirty(fixing.variable);
    hasMoved = true;
  }
  reachedFixings_.clear();
  return hasMoved;
}

void LayoutDefinitions::forgetChanges() {
  for (const auto variable : changed_) variables_[variable.index].isChanged = false;
  changed_.clear();
}

}  // namespace bkuk
