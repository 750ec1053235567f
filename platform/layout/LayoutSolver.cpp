#include "platform/layout/LayoutSolver.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

namespace bkuk {

namespace {

constexpr double negligibleCoefficient = 1e-10;

// Sorted by symbol, each once.
void combine(std::vector<LayoutCell>& cells) {
  std::ranges::sort(cells, {}, &LayoutCell::symbol);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < cells.size();) {
    LayoutCell sum = cells[i];
    for (++i; i < cells.size() && cells[i].symbol == sum.symbol; ++i) sum.coefficient += cells[i].coefficient;
    if (std::abs(sum.coefficient) > negligibleCoefficient) cells[kept++] = sum;
  }
  cells.resize(kept);
}

}  // namespace

LayoutVariable LayoutSolver::makeVariable() {
  const LayoutVariable made = definitions_.makeVariable();
  symbols_.resize(std::max<std::size_t>(symbols_.size(), made.index + 1), noLayoutSymbol);
  return made;
}

void LayoutSolver::removeVariable(LayoutVariable variable) {
  forgetSymbol(variable);
  definitions_.removeVariable(variable);
}

// Of a variable that no equation of the tableau names.
void LayoutSolver::forgetSymbol(LayoutVariable variable) {
  const LayoutSymbol symbol = std::exchange(symbols_[variable.index], noLayoutSymbol);
  if (symbol == noLayoutSymbol) return;
  if (tableau_.isBasic(symbol)) tableau_.removeRow(symbol);
  tableau_.discardSymbol(symbol);
}

// Constraints

LayoutConstraintId LayoutSolver::add(LayoutExpression expression, LayoutRelation relation, double priority) {
  if (free_.empty()) {
    free_.push_back(static_cast<LayoutConstraintId>(constraints_.size()));
    constraints_.emplace_back();
  }
  const LayoutConstraintId id = free_.back();
  free_.pop_back();
  auto& constraint = constraints_[id];
  constraint.isTurned = relation == LayoutRelation::lessThanOrEqual;
  if (constraint.isTurned) {
    constraint.expression = LayoutExpression().add(expression, -1);
  } else {
    constraint.expression = std::move(expression);
  }
  constraint.priority = priority;
  constraint.isEquality = relation == LayoutRelation::equal;
  constraint.age = ++age_;
  queue(id);
  return id;
}

void LayoutSolver::queue(LayoutConstraintId id) {
  constraints_[id].state = State::waiting;
  waiting_.push_back(id);
  hasChanges_ = true;
}

void LayoutSolver::remove(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  const State state = std::exchange(constraint.state, State::removed);
  if (state == State::waiting) std::erase(waiting_, id);
  if (state == State::dropped) std::erase(dropped_, id);
  if (state == State::tableau) leaveTableau(id);
  if (state == State::definition) {
    liftUsesOf(constraint.defined);
    definitions_.undefine(constraint.defined);
  }
  constraint.expression = {};
  free_.push_back(id);
  hasChanges_ = true;
}

void LayoutSolver::setConstant(LayoutConstraintId id, double constant) {
  auto& constraint = constraints_[id];
  constraint.expression.constant = constraint.isTurned ? -constant : constant;
  if (constraint.state == State::definition) {
    definitions_.setConstant(constraint.defined, constraint.expression);
  } else if (constraint.state == State::tableau) {
    reached_.push_back(id);
  }
  hasChanges_ = true;
}

void LayoutSolver::setPriority(LayoutConstraintId id, double priority) {
  auto& constraint = constraints_[id];
  constraint.priority = priority;
  if (constraint.state != State::tableau) return;
  if (constraint.isEquality) tableau_.setPriority(constraint.marker, priority);
  tableau_.setPriority(constraint.error, priority);
  hasChanges_ = true;
}

// Solving

void LayoutSolver::solve() {
  definitions_.forgetChanges();
  if (!std::exchange(hasChanges_, false)) return;
  for (const auto id : std::exchange(dropped_, {})) {
    constraints_[id].age = ++age_;  // it is not to push out what holds
    queue(id);
  }
  enterWaiting();
  settle();
  updateValues();
  hasChanges_ = false;
}

// Definitions first, for then they find their variables unused. What waits after them waits for what they
// lifted out of the tableau too, and goes in by weight, so that little is moved twice.
void LayoutSolver::enterWaiting() {
  std::vector<LayoutConstraintId> rest;
  for (std::size_t i = 0; i < waiting_.size(); ++i) {
    if (!define(waiting_[i])) rest.push_back(waiting_[i]);
  }
  waiting_.clear();
  updateOffsets();
  std::ranges::sort(rest, {}, [this](auto id) {
    const auto& constraint = constraints_[id];
    return std::tuple(-constraint.priority, !constraint.isEquality, constraint.age);
  });
  for (const auto id : rest) enter(id);
}

// A required equality that names a variable which nothing settles so far settles that one. Best is one on
// which nothing depends; else what the tableau knows of it is lifted out, to come back later.
bool LayoutSolver::define(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  if (!constraint.isEquality || !constraint.isRequired()) return false;
  std::optional<LayoutVariable> chosen;
  for (const auto& term : constraint.expression.terms) {
    if (definitions_.isDefined(term.variable) || std::abs(term.coefficient) < 1e-6) continue;
    const bool isUnused = !definitions_.isDependedOn(term.variable);
    if (chosen && !isUnused) continue;
    if (!definitions_.canDefine(term.variable, constraint.expression)) continue;
    chosen = term.variable;
    if (isUnused) break;
  }
  if (!chosen) return false;
  if (symbols_[chosen->index] != noLayoutSymbol) {
    liftUsesOf(*chosen);
    forgetSymbol(*chosen);
  }
  definitions_.define(*chosen, constraint.expression);
  constraint.defined = *chosen;
  constraint.state = State::definition;
  return true;
}

void LayoutSolver::liftUsesOf(LayoutVariable variable) {
  if (equations_ == 0) return;
  for (const auto use : definitions_.usesOf(variable)) {
    if (constraints_[use].state != State::tableau) continue;
    leaveTableau(use);
    queue(use);
  }
}

// The tableau

void LayoutSolver::enter(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  constraint.state = State::tableau;
  ++equations_;
  for (const auto& term : constraint.expression.terms) definitions_.addUse(term.variable, id);
  const LayoutExpression roots = definitions_.inRoots(constraint.expression);
  constraint.tableauConstant = roots.constant;
  makeSymbols(id);
  double constant = roots.constant;
  auto cells = inParameters(roots, constant);
  addEquation(constraint, constant, std::move(cells));
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
    auto& symbol = symbols_[variable.index];
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

void LayoutSolver::leaveTableau(LayoutConstraintId id) {
  auto& constraint = constraints_[id];
  --equations_;
  for (const auto& term : constraint.expression.terms) definitions_.removeUse(term.variable, id);
  simplex_.removeEquation(constraint.marker, constraint.error);
}

// Changed constants and definitions reach the equations that build on them by way of their markers.
void LayoutSolver::updateOffsets() {
  definitions_.update(reached_);
  for (const auto id : std::exchange(reached_, {})) {
    auto& constraint = constraints_[id];
    if (constraint.state != State::tableau) continue;
    double constant = constraint.expression.constant;
    for (const auto& term : constraint.expression.terms) {
      constant += term.coefficient * definitions_.offset(term.variable);
    }
    const double change = constant - std::exchange(constraint.tableauConstant, constant);
    tableau_.shiftBySymbol(constraint.marker, change);
  }
}

void LayoutSolver::settle() {
  for (;;) {
    const LayoutSymbol failing = simplex_.restoreRanges();
    if (failing == noLayoutSymbol) break;
    dropFrom(failing);
  }
  simplex_.lowerCost();
}

void LayoutSolver::updateValues() {
  for (const auto symbol : tableau_.takeChangedFree()) {
    if (tableau_.kind(symbol) != LayoutSymbolKind::free) continue;  // gone, and its number given to another
    const LayoutVariable variable{tableau_.owner(symbol)};
    if (symbols_[variable.index] == symbol) definitions_.setRootValue(variable, tableau_.value(symbol));
  }
  definitions_.update(reached_);
  reached_.clear();
}

// Conflicts

LayoutConstraintId LayoutSolver::lastAddedIn(LayoutSymbol basic) const {
  LayoutConstraintId last = tableau_.owner(basic);
  for (const auto& cell : tableau_.row(basic).cells) {
    const auto id = tableau_.owner(cell.symbol);
    if (constraints_[id].isRequired() && constraints_[id].age > constraints_[last].age) last = id;
  }
  return last;
}

// The row says that its constraints cannot hold together; without any one of them it says nothing.
void LayoutSolver::dropFrom(LayoutSymbol basic) {
  const LayoutConstraintId id = lastAddedIn(basic);
  const LayoutSymbol marker = constraints_[id].marker;
  if (marker != basic) tableau_.pivot(basic, marker);
  leaveTableau(id);
  constraints_[id].state = State::dropped;
  dropped_.push_back(id);
}

}  // namespace bkuk
