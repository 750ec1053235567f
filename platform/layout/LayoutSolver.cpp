#include "platform/layout/LayoutSolver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

namespace bkuk {

namespace {

constexpr double negligibleCoefficient = 1e-10;
constexpr double negligibleValue = 1e-7;  // points
// An equation is no ground for a variable that stands in it with a smaller factor.
constexpr double leastFactor = 1e-6;

// Sorted by symbol, each once.
void combine(std::vector<LayoutCell>& cells) {
  std::ranges::sort(cells, {}, &LayoutCell::symbol);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < cells.size();) {
    LayoutCell sum = cells[i];
    for (++i; i < cells.size() && cells[i].symbol == sum.symbol; ++i) sum.coefficient += cells[i].coefficient;
    if (std::abs(sum.coefficient) > negligibleCoefficient) cells[kept++] = sum;
  }
  cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(kept), cells.end());
}

}  // namespace

LayoutVariable LayoutSolver::makeVariable() {
  const LayoutVariable made = definitions_.makeVariable();
  variables_.resize(std::max<std::size_t>(variables_.size(), made.index + 1));
  return made;
}

void LayoutSolver::removeVariable(LayoutVariable variable) {
  forgetSymbol(variable);
  definitions_.removeVariable(variable);
}

// Of a variable that no equation of the tableau names.
void LayoutSolver::forgetSymbol(LayoutVariable variable) {
  const LayoutSymbol symbol = std::exchange(variables_[variable.index].symbol, noLayoutSymbol);
  if (symbol == noLayoutSymbol) return;
  if (tableau_.isBasic(symbol)) tableau_.removeRow(symbol);
  tableau_.discardSymbol(symbol);
}

// Constraints

LayoutConstraintId LayoutSolver::add(const LayoutExpression& expression, LayoutRelation relation,
                                     double priority) {
  if (free_.empty()) {
    free_.push_back(static_cast<LayoutConstraintId>(constraints_.size()));
    constraints_.emplace_back();
  }
  const LayoutConstraintId id = free_.back();
  free_.pop_back();
  auto& constraint = constraints_[id];
  constraint.isTurned = relation == LayoutRelation::lessThanOrEqual;
  constraint.isEquality = relation == LayoutRelation::equal;
  constraint.priority = priority;
  constraint.age = ++age_;
  definitions_.add(id, expression, constraint.isTurned ? -1 : 1);
  queue(id);
  return id;
}

void LayoutSolver::queue(LayoutConstraintId id) {
  constraints_[id].state = State::waiting;
  waiting_.push_back(id);
  hasChanges_ = true;
}

void LayoutSolver::remove(LayoutConstraintId id) {
  if (constraints_[id].state == State::dropped) std::erase(dropped_, id);
  release(id);
  definitions_.remove(id);
  free_.push_back(id);
  hasChanges_ = true;
}

void LayoutSolver::setConstant(LayoutConstraintId id, double constant) {
  const auto& constraint = constraints_[id];
  definitions_.setConstant(id, constraint.isTurned ? -constant : constant);
  reached_.push_back(id);
  hasChanges_ = true;
}

void LayoutSolver::setPriority(LayoutConstraintId id, double priority) {
  auto& constraint = constraints_[id];
  constraint.priority = priority;
  hasChanges_ = true;
  if (constraint.state == State::single) markUnplaced(constraint.root);
  if (constraint.state != State::tableau) return;
  if (constraint.isEquality) tableau_.setPriority(constraint.marker, priority);
  tableau_.setPriority(constraint.error, priority);
}

// Solving

void LayoutSolver::solve() {
  definitions_.forgetChanges();
  if (!hasChanges_) return;
  for (const auto id : std::exchange(dropped_, {})) {
    constraints_[id].age = ++age_;  // it is not to push out what holds
    queue(id);
  }
  for (;;) {
    enterWaiting();
    const LayoutConstraintId conflicting = findConflict();
    if (conflicting == none) break;
    drop(conflicting);
  }
  simplex_.lowerCost();
  updateValues();
  hasChanges_ = false;
}

// Definitions first, for then they find their variables unused, and what fixes a root. What waits after them
// waits for what they lifted out too, and goes in by weight, so that little is moved twice.
void LayoutSolver::enterWaiting() {
  while (!waiting_.empty()) {
    std::vector<LayoutConstraintId> rest;
    for (std::size_t i = 0; i < waiting_.size(); ++i) {
      const LayoutConstraintId id = waiting_[i];
      if (constraints_[id].state == State::waiting && !define(id)) rest.push_back(id);
    }
    waiting_.clear();
    updateConstants();
    std::ranges::sort(rest, {}, [this](auto id) {
      const auto& constraint = constraints_[id];
      return std::tuple(-constraint.priority, !constraint.isEquality, constraint.age);
    });
    for (const auto id : rest) fixRoot(id);
    for (const auto id : rest) {
      if (constraints_[id].state == State::waiting) enter(id);
    }
  }
}

// A required equality that names a variable which nothing settles so far settles that one. Best is one on
// which nothing depends; else what builds on it is lifted out, to come back later.
bool LayoutSolver::define(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  if (!constraint.isEquality || !constraint.isRequired()) return false;
  std::optional<LayoutVariable> chosen;
  bool isChosenUnused = false;
  definitions_.forTermsOf(id, [&](LayoutVariable variable, double coefficient) {
    if (isChosenUnused || definitions_.isSettled(variable) || std::abs(coefficient) < leastFactor) return;
    const bool isUnused = !definitions_.isDependedOn(variable);
    if ((chosen && !isUnused) || !definitions_.canDefine(variable, id)) return;
    chosen = variable;
    isChosenUnused = isUnused;
  });
  if (!chosen) return false;
  settleRoot(*chosen);
  definitions_.define(*chosen, id);
  constraint.root = chosen->index;
  constraint.state = State::definition;
  return true;
}

// Lifts out what has the root among its own, to come back in other terms.
void LayoutSolver::settleRoot(LayoutVariable root) {
  const auto& variable = variables_[root.index];
  if (variable.symbol == noLayoutSymbol && variable.firstSingle == none) return;
  for (const auto use : definitions_.usesOfRoot(root)) {
    const auto& constraint = constraints_[use];
    const bool isOfRoot = constraint.state == State::single && constraint.root == root.index;
    if (!isOfRoot && constraint.state != State::tableau) continue;
    leave(use);
    queue(use);
  }
  forgetSymbol(root);
}

void LayoutSolver::liftUsesOfSettled(LayoutVariable variable) {
  if (uses_ == 0) return;
  for (const auto use : definitions_.usesOfSettled(variable)) {
    const State state = constraints_[use].state;
    if (state == State::removed || state == State::waiting) continue;  // about to go, or lifted already
    leave(use);
    queue(use);
  }
}

// A required equality that comes down to a single root fixes it.
void LayoutSolver::fixRoot(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  const bool mayFix = method_ == Method::arithmetic && constraint.state == State::waiting &&
                      constraint.isEquality && constraint.isRequired();
  if (!mayFix) return;
  const auto& roots = definitions_.inRoots(id).terms;
  if (roots.size() != 1 || std::abs(roots[0].coefficient) < leastFactor) return;
  const auto [root, factor] = roots[0];
  settleRoot(root);
  definitions_.fix(root, id, factor);
  constraint.root = root.index;
  constraint.state = State::fixing;
  ++uses_;
}

// What is left is told by the roots that the constraint comes down to.
void LayoutSolver::enter(LayoutConstraintId id) {
  fixRoot(id);
  auto& constraint = constraints_[id];
  if (constraint.state == State::fixing) return;
  const LayoutExpression& roots = definitions_.inRoots(id);
  constraint.known = roots.constant;
  ++uses_;
  definitions_.use(id);
  const auto count = roots.terms.size();
  if (method_ == Method::general || count > 1) return enterTableau(id, roots);
  if (count == 1) {
    const bool isGeneral = variables_[roots.terms[0].variable.index].symbol != noLayoutSymbol;
    return isGeneral || std::abs(roots.terms[0].coefficient) < leastFactor ? enterTableau(id, roots)
                                                                           : addSingle(id, roots.terms[0]);
  }
  constraint.state = State::constant;
  if (constraint.isRequired()) unchecked_.push_back(id);
}

// Takes a constraint out of its stage, and with one that settles a variable what builds on that.
void LayoutSolver::release(LayoutConstraintId id) {
  const auto& constraint = constraints_[id];
  const bool settles = constraint.state == State::definition || constraint.state == State::fixing;
  const LayoutVariable settled{constraint.root};
  leave(id);
  if (settles) liftUsesOfSettled(settled);
}

void LayoutSolver::leave(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  const State state = std::exchange(constraint.state, State::removed);
  if (state == State::removed || state == State::dropped || state == State::waiting) return;
  if (state != State::definition) --uses_;
  if (state == State::single) leaveSingles(id);
  if (state == State::tableau) simplex_.removeEquation(constraint.marker, constraint.error);
  definitions_.release(id);
}

// Single roots, each of which is placed by itself

void LayoutSolver::addSingle(LayoutConstraintId id, LayoutTerm root) {
  auto& constraint = constraints_[id];
  auto& first = variables_[root.variable.index].firstSingle;
  constraint.state = State::single;
  constraint.root = root.variable.index;
  constraint.factor = root.coefficient;
  constraint.before = none;
  constraint.after = first;
  if (first != none) constraints_[first].before = id;
  first = id;
  markUnplaced(constraint.root);
}

void LayoutSolver::leaveSingles(LayoutConstraintId id) {
  const auto& constraint = constraints_[id];
  auto& toThis = constraint.before == none ? variables_[constraint.root].firstSingle
                                           : constraints_[constraint.before].after;
  toThis = constraint.after;
  if (constraint.after != none) constraints_[constraint.after].before = constraint.before;
  markUnplaced(constraint.root);
}

void LayoutSolver::markUnplaced(std::uint32_t root) {
  if (!std::exchange(variables_[root].isUnplaced, true)) unplaced_.push_back(root);
}

void LayoutSolver::makeGeneral(std::uint32_t root) {
  auto id = std::exchange(variables_[root].firstSingle, none);
  while (id != none) {
    const auto& constraint = constraints_[id];
    LayoutExpression roots;
    roots.add({root}, constraint.factor).addConstant(constraint.known);
    enterTableau(std::exchange(id, constraint.after), roots);
  }
}

// Answers a constraint to drop, or none.
LayoutConstraintId LayoutSolver::placeSingles() {
  while (!unplaced_.empty()) {
    const std::uint32_t root = unplaced_.back();
    const LayoutConstraintId conflicting = place(root);
    if (conflicting != none) return conflicting;
    variables_[root].isUnplaced = false;
    unplaced_.pop_back();
  }
  return none;
}

LayoutConstraintId LayoutSolver::place(std::uint32_t root) {
  if (definitions_.isSettled({root}) || variables_[root].symbol != noLayoutSymbol) return none;
  singles_.clear();
  for (auto id = variables_[root].firstSingle; id != none; id = constraints_[id].after)
    singles_.push_back(id);
  std::ranges::sort(singles_, {},
                    [this](auto id) { return std::pair(-constraints_[id].priority, constraints_[id].age); });
  LayoutInterval interval;
  if (const auto conflicting = narrowByRequired(interval); conflicting != none) return conflicting;
  narrowByWishes(interval);
  // Where more than one value is best the tableau has its own mind.
  const bool isBetween = std::isfinite(interval.least()) && std::isfinite(interval.greatest());
  if (isBetween && !interval.isPoint()) {
    makeGeneral(root);
  } else {
    definitions_.setRootValue({root}, singles_.empty()                  ? 0
                                      : std::isfinite(interval.least()) ? interval.least()
                                                                        : interval.greatest());
  }
  return none;
}

// In the order in which they were added, so that the later of two that contradict each other is found.
LayoutConstraintId LayoutSolver::narrowByRequired(LayoutInterval& interval) {
  std::array<LayoutConstraintId, 2> bounds{none, none};
  for (const auto id : singles_) {
    const auto& constraint = constraints_[id];
    if (!constraint.isRequired()) break;
    const bool isLeast = constraint.factor > 0;
    const double at = -constraint.known / constraint.factor;
    const double before = isLeast ? interval.least() : interval.greatest();
    if (!(isLeast ? interval.demandAtLeast(at) : interval.demandAtMost(at))) {
      return lastAddedBehind(std::array{id, bounds[isLeast ? 1 : 0]});
    }
    if ((isLeast ? interval.least() : interval.greatest()) != before) bounds[isLeast ? 0 : 1] = id;
  }
  return none;
}

void LayoutSolver::narrowByWishes(LayoutInterval& interval) {
  for (auto id = singles_.begin(); id != singles_.end() && !interval.isPoint();) {
    const double priority = constraints_[*id].priority;
    wishes_.clear();
    for (; id != singles_.end() && constraints_[*id].priority == priority; ++id) {
      const auto& constraint = constraints_[*id];
      if (constraint.isRequired()) continue;
      wishes_.push_back({-constraint.known / constraint.factor, std::abs(constraint.factor),
                         constraint.isEquality || constraint.factor > 0,
                         constraint.isEquality || constraint.factor < 0});
    }
    interval.prefer(wishes_);
  }
}

// The tableau

// The constraint is a use already.
void LayoutSolver::enterTableau(LayoutConstraintId id, const LayoutExpression& roots) {
  for (const auto& term : roots.terms) makeGeneral(term.variable.index);
  constraints_[id].state = State::tableau;
  makeSymbols(id);
  double constant = roots.constant;
  auto cells = inParameters(roots, constant);
  addEquation(constraints_[id], constant, std::move(cells));
}

// expression - marker + error = 0. The marker alone tells what a change of the constant does.
void LayoutSolver::makeSymbols(LayoutConstraintId id) {
  using Kind = LayoutSymbolKind;
  auto& constraint = constraints_[id];
  const bool isRequired = constraint.isRequired();
  const Kind kind = constraint.isEquality && isRequired ? Kind::zero : Kind::nonnegative;
  const double markerPriority = constraint.isEquality && !isRequired ? constraint.priority : 0;
  constraint.marker = tableau_.makeSymbol(kind, markerPriority, id);
  constraint.error = noLayoutSymbol;
  if (!isRequired) constraint.error = tableau_.makeSymbol(Kind::nonnegative, constraint.priority, id);
}

// The roots with the basic ones replaced by their rows.
std::vector<LayoutCell> LayoutSolver::inParameters(const LayoutExpression& roots, double& constant) {
  std::vector<LayoutCell> cells;
  for (const auto& [variable, coefficient] : roots.terms) {
    auto& symbol = variables_[variable.index].symbol;
    if (symbol == noLayoutSymbol) symbol = tableau_.makeSymbol(LayoutSymbolKind::free, 0, variable.index);
    if (!tableau_.isBasic(symbol)) {
      cells.push_back({symbol, coefficient});
      continue;
    }
    const auto& row = tableau_.row(symbol);
    constant += coefficient * row.constant;
    for (const auto& cell : row.cells) cells.push_back({cell.symbol, coefficient * cell.coefficient});
  }
  combine(cells);
  return cells;
}

// A free symbol in the equation becomes its basic one. Without, marker or error do, whichever is not negative
// then; of a required constraint the marker, whose range the next steps restore.
void LayoutSolver::addEquation(const Constraint& constraint, double constant, std::vector<LayoutCell> cells) {
  const bool hasError = constraint.error != noLayoutSymbol;
  const auto free = std::ranges::find_if(
      cells, [this](const LayoutCell& cell) { return tableau_.kind(cell.symbol) == LayoutSymbolKind::free; });
  const bool errorIsBasic = hasError && constant < 0;
  LayoutCell basic{errorIsBasic ? constraint.error : constraint.marker, errorIsBasic ? 1.0 : -1.0};
  if (free != cells.end()) {
    basic = *free;
    cells.erase(free);
  }
  if (basic.symbol != constraint.marker) cells.push_back({constraint.marker, -1});
  if (hasError && basic.symbol != constraint.error) cells.push_back({constraint.error, 1});
  for (auto& cell : cells) cell.coefficient /= -basic.coefficient;
  combine(cells);
  tableau_.addRow(basic.symbol, constant / -basic.coefficient, std::move(cells));
  if (tableau_.priority(basic.symbol) > 0) tableau_.suspectCells(basic.symbol);
}

// What changed

// Changed constants and definitions reach the equations that build on them by way of their markers.
void LayoutSolver::updateConstants() {
  definitions_.update(reached_);
  for (const auto id : reached_) updateConstant(id);
  reached_.clear();
}

void LayoutSolver::updateConstant(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  const bool isChecked = constraint.state == State::constant && constraint.isRequired();
  if (isChecked) unchecked_.push_back(id);
  if (constraint.state != State::single && constraint.state != State::tableau) return;
  const double constant = definitions_.constantInRoots(id);
  const double change = constant - std::exchange(constraint.known, constant);
  if (constraint.state == State::single) {
    markUnplaced(constraint.root);
  } else {
    tableau_.shiftBySymbol(constraint.marker, change);
  }
}

void LayoutSolver::updateValues() {
  for (const auto symbol : tableau_.takeChangedFree()) {
    if (tableau_.kind(symbol) != LayoutSymbolKind::free) continue;  // gone, and its number given to another
    const LayoutVariable variable{tableau_.owner(symbol)};
    if (variables_[variable.index].symbol == symbol) {
      definitions_.setRootValue(variable, tableau_.value(symbol));
    }
  }
  definitions_.update(reached_);
  reached_.clear();
}

// Conflicts

// Answers a required constraint to drop, or none when all hold.
LayoutConstraintId LayoutSolver::findConflict() {
  updateConstants();
  if (const auto id = brokenConstant(); id != none) return id;
  if (const auto id = placeSingles(); id != none) return id;
  const LayoutSymbol failing = simplex_.restoreRanges();
  if (failing == noLayoutSymbol) return none;
  const LayoutConstraintId id = lastAddedIn(failing);
  const auto& constraint = constraints_[id];
  if (constraint.state == State::tableau && constraint.marker != failing) {
    tableau_.pivot(failing, constraint.marker);
  }
  return id;
}

LayoutConstraintId LayoutSolver::brokenConstant() {
  for (; !unchecked_.empty(); unchecked_.pop_back()) {
    const LayoutConstraintId id = unchecked_.back();
    const auto& constraint = constraints_[id];
    if (constraint.state != State::constant || !constraint.isRequired()) continue;
    const double value = definitions_.constantInRoots(id);
    const bool isBroken = value < -negligibleValue || (constraint.isEquality && value > negligibleValue);
    if (isBroken) return lastAddedBehind(std::array{id});
  }
  return none;
}

// The row says that its constraints cannot hold together; without any one of them it says nothing.
LayoutConstraintId LayoutSolver::lastAddedIn(LayoutSymbol basic) {
  std::vector<LayoutConstraintId> conflict{tableau_.owner(basic)};
  for (const auto& cell : tableau_.row(basic).cells) {
    const auto id = tableau_.owner(cell.symbol);
    if (constraints_[id].isRequired()) conflict.push_back(id);
  }
  return lastAddedBehind(conflict);
}

// Of constraints in conflict and those that fix what they build on.
LayoutConstraintId LayoutSolver::lastAddedBehind(std::span<const LayoutConstraintId> conflict) {
  LayoutConstraintId last = conflict.front();
  const auto consider = [&](LayoutConstraintId id) {
    if (constraints_[id].age > constraints_[last].age) last = id;
  };
  for (const auto id : conflict) {
    if (id == none) continue;
    consider(id);
    for (const auto fixing : definitions_.fixingsBehind(id)) consider(fixing);
  }
  return last;
}

void LayoutSolver::drop(LayoutConstraintId id) {
  release(id);
  constraints_[id].state = State::dropped;
  dropped_.push_back(id);
}

}  // namespace bkuk
