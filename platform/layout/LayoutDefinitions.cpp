#include "platform/layout/LayoutDefinitions.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace bkuk {

namespace {

constexpr std::uint32_t nowhere = std::numeric_limits<std::uint32_t>::max();

template <typename T>
void eraseOne(std::vector<T>& list, T value) {
  const auto found = std::ranges::find(list, value);
  if (found == list.end()) return;
  *found = list.back();
  list.pop_back();
}

}  // namespace

LayoutVariable LayoutDefinitions::makeVariable() {
  if (free_.empty()) {
    free_.push_back(static_cast<std::uint32_t>(variables_.size()));
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

bool LayoutDefinitions::isDependedOn(LayoutVariable variable) const {
  const auto& asked = variables_[variable.index];
  return !asked.dependents.empty() || !asked.uses.empty();
}

// Definitions

bool LayoutDefinitions::canDefine(LayoutVariable root, const LayoutExpression& expression) {
  if (variables_[root.index].isDefined) return false;
  if (variables_[root.index].dependents.empty()) return true;
  ++visit_;
  order_.clear();
  for (const auto& term : expression.terms) {
    if (term.variable != root) walkInputs(term.variable.index);
  }
  return variables_[root.index].visit != visit_;
}

// What the other terms are multiplied with to give the variable.
double LayoutDefinitions::scaleFor(LayoutVariable root, const LayoutExpression& expression) const {
  return -1 / std::ranges::find(expression.terms, root, &LayoutTerm::variable)->coefficient;
}

void LayoutDefinitions::define(LayoutVariable root, const LayoutExpression& expression) {
  auto& defined = variables_[root.index];
  const double scale = scaleFor(root, expression);
  defined.isDefined = true;
  for (const auto& [variable, coefficient] : expression.terms) {
    if (variable == root) continue;
    defined.inputs.push_back({variable, coefficient * scale});
    variables_[variable.index].dependents.push_back(root.index);
  }
  setConstant(root, expression);
}

void LayoutDefinitions::setConstant(LayoutVariable variable, const LayoutExpression& expression) {
  variables_[variable.index].constant = expression.constant * scaleFor(variable, expression);
  markDirty(variable.index);
}

void LayoutDefinitions::undefine(LayoutVariable variable) {
  auto& defined = variables_[variable.index];
  for (const auto& input : defined.inputs) {
    eraseOne(variables_[input.variable.index].dependents, variable.index);
  }
  defined.inputs.clear();
  defined.rootValue = 0;
  defined.isDefined = false;
  markDirty(variable.index);
}

void LayoutDefinitions::setRootValue(LayoutVariable root, double value) {
  variables_[root.index].rootValue = value;
  markDirty(root.index);
}

void LayoutDefinitions::removeUse(LayoutVariable variable, Use use) {
  eraseOne(variables_[variable.index].uses, use);
}

std::vector<LayoutDefinitions::Use> LayoutDefinitions::usesOf(LayoutVariable variable) {
  ++visit_;
  order_.clear();
  walkDependents(variable.index);
  std::vector<Use> uses;
  for (const auto index : order_) {
    uses.insert(uses.end(), variables_[index].uses.begin(), variables_[index].uses.end());
  }
  return uses;
}

// Walks. They keep their own stack, for a chain may be long.

template <typename Neighbour>
void LayoutDefinitions::walk(std::uint32_t from, Neighbour&& neighbour) {
  if (std::exchange(variables_[from].visit, visit_) == visit_) return;
  steps_.push_back({from, 0});
  while (!steps_.empty()) {
    auto& step = steps_.back();
    const std::uint32_t next = neighbour(variables_[step.index], step.next++);
    if (next == nowhere) {
      order_.push_back(step.index);
      steps_.pop_back();
    } else if (std::exchange(variables_[next].visit, visit_) != visit_) {
      steps_.push_back({next, 0});
    }
  }
}

void LayoutDefinitions::walkDependents(std::uint32_t from) {
  walk(from, [](const Variable& variable, std::uint32_t i) {
    return i < variable.dependents.size() ? variable.dependents[i] : nowhere;
  });
}

void LayoutDefinitions::walkInputs(std::uint32_t from) {
  walk(from, [](const Variable& variable, std::uint32_t i) {
    return i < variable.inputs.size() ? variable.inputs[i].variable.index : nowhere;
  });
}

LayoutExpression LayoutDefinitions::inRoots(const LayoutExpression& expression) {
  ++visit_;
  order_.clear();
  for (const auto& term : expression.terms) walkInputs(term.variable.index);
  for (const auto index : order_) variables_[index].factor = 0;
  LayoutExpression result;
  result.constant = expression.constant;
  for (const auto& [variable, coefficient] : expression.terms) {
    variables_[variable.index].factor += coefficient;
    result.constant += coefficient * variables_[variable.index].offset;
  }
  // Backwards, so that all that a variable is multiplied with has arrived when its inputs take it over.
  for (auto index = order_.rbegin(); index != order_.rend(); ++index) {
    const auto& variable = variables_[*index];
    if (!variable.isDefined && variable.factor != 0) result.terms.push_back({{*index}, variable.factor});
    for (const auto& input : variable.inputs) {
      variables_[input.variable.index].factor += variable.factor * input.coefficient;
    }
  }
  return result;
}

// Values

void LayoutDefinitions::markDirty(std::uint32_t index) {
  if (!std::exchange(variables_[index].isDirty, true)) dirty_.push_back(index);
}

void LayoutDefinitions::update(std::vector<Use>& reached) {
  if (dirty_.empty()) return;
  ++visit_;
  order_.clear();
  for (const auto index : std::exchange(dirty_, {})) walkDependents(index);
  for (auto index = order_.rbegin(); index != order_.rend(); ++index) {
    if (std::exchange(variables_[*index].isDirty, false)) evaluate(*index, reached);
  }
}

void LayoutDefinitions::evaluate(std::uint32_t index, std::vector<Use>& reached) {
  auto& variable = variables_[index];
  double value = variable.isDefined ? variable.constant : variable.rootValue;
  double offset = variable.isDefined ? variable.constant : 0;
  for (const auto& input : variable.inputs) {
    value += input.coefficient * variables_[input.variable.index].value;
    offset += input.coefficient * variables_[input.variable.index].offset;
  }
  const bool offsetChanged = std::exchange(variable.offset, offset) != offset;
  const bool valueChanged = std::exchange(variable.value, value) != value;
  if (offsetChanged) reached.insert(reached.end(), variable.uses.begin(), variable.uses.end());
  if (valueChanged && !std::exchange(variable.isChanged, true)) changed_.push_back({index});
  if (!valueChanged && !offsetChanged) return;
  for (const auto dependent : variable.dependents) variables_[dependent].isDirty = true;
}

void LayoutDefinitions::forgetChanges() {
  for (const auto variable : changed_) variables_[variable.index].isChanged = false;
  changed_.clear();
}

}  // namespace bkuk
