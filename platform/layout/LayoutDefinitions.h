#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/layout/LayoutExpression.h"
#include "platform/layout/LayoutGraph.h"

namespace bkuk {

/// Variables that follow from others. Each is one of three:
/// - defined by an equation, as a sum of multiples of other variables, never in a circle. Definitions stay as
///   they were written, so a chain of a thousand costs a thousand terms;
/// - fixed by an equation that names it alone once definitions are followed down, as the width of equal
///   columns is fixed by that of all together;
/// - a root, whose value somebody sets.
///
/// Whoever builds on variables from outside does so by equations too, the uses, and hears which of them a
/// change reaches. A change walks only what depends on it.
class LayoutDefinitions {
 public:
  using Equation = LayoutGraph::Index;

  /// Makes a root of value 0.
  LayoutVariable makeVariable();
  /// Of a root that nothing depends on.
  void removeVariable(LayoutVariable variable);

  [[nodiscard]] double value(LayoutVariable variable) const { return variables_[variable.index].value; }
  /// Whether it is no root.
  [[nodiscard]] bool isSettled(LayoutVariable variable) const;
  /// Whether any equation but its own names it.
  [[nodiscard]] bool isDependedOn(LayoutVariable variable) const;

  // Equations, `factor * expression = 0`. One that was added has no effect until it is given a part; the
  // numbers are the caller's.

  void add(Equation equation, const LayoutExpression& expression, double factor);
  /// Of an equation without a part.
  void remove(Equation equation);
  void setConstant(Equation equation, double constant);
  /// Calls `visit` with each variable that the equation names and its coefficient.
  template <typename Visit>
  void forTermsOf(Equation equation, Visit&& visit) const {
    graph_.forTermsOf(equation, [&](const LayoutGraph::Term& term) {
      visit(LayoutVariable{term.variable}, term.coefficient);
    });
  }

  /// Whether `define` would not close a circle.
  [[nodiscard]] bool canDefine(LayoutVariable root, Equation equation);
  /// Makes a root, which the equation names, follow from it.
  void define(LayoutVariable root, Equation equation);
  /// Fixes a root that is the only one in the equation, `factor` times.
  void fix(LayoutVariable root, Equation equation, double factor);
  void use(Equation equation);
  /// Takes the equation's part away. A variable that it defined or fixed is a root again.
  void release(Equation equation);

  void setRootValue(LayoutVariable root, double value);

  /// The uses that may have the root among theirs, some perhaps twice: those that change when it is settled.
  [[nodiscard]] std::vector<Equation> usesOfRoot(LayoutVariable root);
  /// The uses and fixing equations that build on the settled variable, also by way of what is fixed, some
  /// perhaps twice: those that change when it becomes a root.
  [[nodiscard]] std::vector<Equation> usesOfSettled(LayoutVariable variable);
  /// The fixing equations that the equation builds on.
  [[nodiscard]] std::vector<Equation> fixingsBehind(Equation equation);

  /// The equation in roots alone; what is fixed counts as a constant. Valid until the next call.
  [[nodiscard]] const LayoutExpression& inRoots(Equation equation);
  /// The constant of that.
  [[nodiscard]] double constantInRoots(Equation equation) const;

  /// Brings values up to date. Appends the uses whose constant in roots changed, some perhaps twice.
  void update(std::vector<Equation>& reached);
  /// The variables whose values changed since the last `forgetChanges`.
  [[nodiscard]] std::span<const LayoutVariable> changes() const { return changed_; }
  void forgetChanges();

 private:
  using Index = LayoutGraph::Index;
  static constexpr Index none = LayoutGraph::none;
  enum class Part : std::uint8_t { none, definition, fixing, use };

  struct EquationState {
    double constant = 0;
    double factor = 0;      // of the variable that it fixes
    Index variable = none;  // that it defines or fixes
    Part part = Part::none;
  };
  struct Variable {
    double value = 0;
    double offset = 0;  // the part of the value that does not come from roots
    double rootValue = 0;
    double factor = 0;      // while an equation is brought into roots
    Index equation = none;  // that defines or fixes it
    std::uint32_t visit = 0;
    bool isFixed = false;
    bool isDirty = false;
    bool isChanged = false;
  };
  /// A variable on the way of a walk, with the term to go along next.
  struct Step {
    Index variable;
    Index term;
  };

  void markDirty(Index variable);
  void updateOnce(std::vector<Equation>& reached);
  void evaluate(Index variable, std::vector<Equation>& reached);
  void reach(Index variable, std::vector<Equation>& reached);
  bool adjustFixed();
  void settle(LayoutVariable root, Equation equation, Part part);
  [[nodiscard]] Index firstInput(Index variable) const;

  template <typename First, typename Next>
  void walk(Index from, First&& first, Next&& next);
  void beginWalk();
  void walkDependents(Index from);
  void walkInputs(Index from);

  LayoutGraph graph_;
  std::vector<EquationState> equations_;
  std::vector<Variable> variables_;
  std::vector<Index> free_;
  std::vector<Index> dirty_;
  std::vector<Index> walked_;  // from `dirty_`, while it is worked off
  std::vector<Equation> reachedFixings_;
  std::vector<LayoutVariable> changed_;
  std::uint32_t visit_ = 0;
  std::vector<Step> steps_;
  std::vector<Index> order_;  // of a walk: each after all that it leads to
  LayoutExpression roots_;
};

}  // namespace bkuk
