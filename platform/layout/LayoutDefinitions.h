#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/layout/LayoutExpression.h"

namespace bkuk {

/// Variables that follow from others: each is either a root, whose value somebody sets, or defined as a sum
/// of multiples of other variables, never in a circle. Definitions stay as they were written, so a chain of a
/// thousand costs a thousand terms, and a change walks only what depends on it.
///
/// Whoever builds on variables from outside puts a number of its own on them, a use, and hears which uses a
/// change reaches.
class LayoutDefinitions {
 public:
  using Use = std::uint32_t;

  /// Makes a root of value 0.
  LayoutVariable makeVariable();
  /// Of a root that nothing depends on.
  void removeVariable(LayoutVariable variable);

  [[nodiscard]] double value(LayoutVariable variable) const { return variables_[variable.index].value; }
  /// The part of the value that does not come from roots.
  [[nodiscard]] double offset(LayoutVariable variable) const { return variables_[variable.index].offset; }
  [[nodiscard]] bool isDefined(LayoutVariable variable) const { return variables_[variable.index].isDefined; }
  [[nodiscard]] bool isDependedOn(LayoutVariable variable) const;

  /// Whether making the expression's sum 0 by choosing that root of it would not close a circle.
  [[nodiscard]] bool canDefine(LayoutVariable root, const LayoutExpression& expression);
  /// Makes a root follow from `0 = expression`, which names it.
  void define(LayoutVariable root, const LayoutExpression& expression);
  /// Makes a defined variable a root again.
  void undefine(LayoutVariable variable);
  /// Of the expression that the variable was defined by.
  void setConstant(LayoutVariable variable, const LayoutExpression& expression);
  void setRootValue(LayoutVariable root, double value);

  void addUse(LayoutVariable variable, Use use) { variables_[variable.index].uses.push_back(use); }
  void removeUse(LayoutVariable variable, Use use);
  /// Every use that depends on the variable, some perhaps twice.
  [[nodiscard]] std::vector<Use> usesOf(LayoutVariable variable);

  /// The expression in roots alone.
  [[nodiscard]] LayoutExpression inRoots(const LayoutExpression& expression);

  /// Brings values and offsets up to date. Appends the uses whose offset changed, some perhaps twice.
  void update(std::vector<Use>& reached);
  /// The variables whose values changed since the last `forgetChanges`.
  [[nodiscard]] std::span<const LayoutVariable> changes() const { return changed_; }
  void forgetChanges();

 private:
  struct Variable {
    double value = 0;
    double offset = 0;
    double rootValue = 0;
    double constant = 0;  // of the definition, as are the inputs
    std::vector<LayoutTerm> inputs;
    std::vector<std::uint32_t> dependents;
    std::vector<Use> uses;
    double factor = 0;  // while an expression is brought into roots
    std::uint32_t visit = 0;
    bool isDefined = false;
    bool isDirty = false;
    bool isChanged = false;
  };
  /// A variable on the way of a walk, with the neighbour to go to next.
  struct Step {
    std::uint32_t index;
    std::uint32_t next;
  };

  void markDirty(std::uint32_t index);
  void evaluate(std::uint32_t index, std::vector<Use>& reached);
  [[nodiscard]] double scaleFor(LayoutVariable root, const LayoutExpression& expression) const;
  template <typename Neighbour>
  void walk(std::uint32_t from, Neighbour&& neighbour);
  void walkDependents(std::uint32_t from);
  void walkInputs(std::uint32_t from);

  std::vector<Variable> variables_;
  std::vector<std::uint32_t> free_;
  std::vector<std::uint32_t> dirty_;
  std::vector<LayoutVariable> changed_;
  std::uint32_t visit_ = 0;
  std::vector<Step> steps_;
  std::vector<std::uint32_t> order_;  // of a walk: each after all that it leads to
};

}  // namespace bkuk
