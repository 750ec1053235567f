#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/layout/LayoutDefinitions.h"
#include "platform/layout/LayoutExpression.h"
#include "platform/layout/LayoutSimplex.h"
#include "platform/layout/LayoutTableau.h"

namespace bkuk {

enum class LayoutRelation { lessThanOrEqual = -1, equal = 0, greaterThanOrEqual = 1 };

/// The priority of what must hold. Lower ones may be broken, down to above 0.
inline constexpr double requiredLayoutPriority = 1000;

/// A constraint, known by its place in its solver. A place is used again after `remove`.
using LayoutConstraintId = std::uint32_t;

/// Finds values for variables such that linear constraints hold: all of the required ones, then as few and
/// as little broken as possible of the others, where none of a lower priority counts against one of a higher.
/// Within a priority the sum of the distances by which constraints are broken is least.
///
/// Everything is incremental: changes are only noted, and `solve` works from the solution before and touches
/// what the changes reach. Required constraints that cannot hold together lose one of them, the last added of
/// those in conflict; it is tried again with each later change until it holds or is removed.
///
/// Numbers must be finite. docs/layout-solver.md describes the method.
class LayoutSolver {
 public:
  LayoutSolver() : simplex_(tableau_) {}
  LayoutSolver(const LayoutSolver&) = delete;
  LayoutSolver& operator=(const LayoutSolver&) = delete;

  [[nodiscard]] LayoutVariable makeVariable();
  /// Of a variable that no constraint names any more.
  void removeVariable(LayoutVariable variable);

  /// Demands `expression <relation> 0` at a priority above 0.
  [[nodiscard]] LayoutConstraintId add(LayoutExpression expression, LayoutRelation relation,
                                       double priority = requiredLayoutPriority);
  void remove(LayoutConstraintId constraint);
  /// The constant of the expression that the constraint was added with.
  void setConstant(LayoutConstraintId constraint, double constant);
  /// Of a constraint that is not required, and does not become it.
  void setPriority(LayoutConstraintId constraint, double priority);

  void solve();

  /// As last solved.
  [[nodiscard]] double value(LayoutVariable variable) const { return definitions_.value(variable); }
  /// The variables whose values the last `solve` changed, in no order.
  [[nodiscard]] std::span<const LayoutVariable> changes() const { return definitions_.changes(); }
  /// The required constraints that the last `solve` had to leave out.
  [[nodiscard]] std::span<const LayoutConstraintId> dropped() const { return dropped_; }

 private:
  enum class State : std::uint8_t { removed, waiting, definition, tableau, dropped };

  struct Constraint {
    LayoutExpression expression;  // to be 0, or at least 0
    double priority = 0;
    double tableauConstant = 0;  // what the tableau takes for the constant and the offsets of the variables
    std::uint64_t age = 0;
    LayoutVariable defined;
    LayoutSymbol marker = noLayoutSymbol;
    LayoutSymbol error = noLayoutSymbol;
    bool isEquality = false;
    bool isTurned = false;  // the expression has the other sign than it was added with
    State state = State::removed;

    [[nodiscard]] bool isRequired() const { return priority >= requiredLayoutPriority; }
  };

  void forgetSymbol(LayoutVariable variable);
  void queue(LayoutConstraintId id);
  void enterWaiting();
  [[nodiscard]] bool define(LayoutConstraintId id);
  void liftUsesOf(LayoutVariable variable);
  void enter(LayoutConstraintId id);
  void makeSymbols(LayoutConstraintId id);
  [[nodiscard]] std::vector<LayoutCell> inParameters(const LayoutExpression& roots, double& constant);
  void addEquation(const Constraint& constraint, double constant, std::vector<LayoutCell> cells);
  void leaveTableau(LayoutConstraintId id);
  void updateOffsets();
  void updateValues();
  void settle();
  void dropFrom(LayoutSymbol basic);
  [[nodiscard]] LayoutConstraintId lastAddedIn(LayoutSymbol basic) const;

  LayoutDefinitions definitions_;
  LayoutTableau tableau_;
  LayoutSimplex simplex_;
  std::vector<Constraint> constraints_;
  std::vector<LayoutConstraintId> free_;
  std::vector<LayoutConstraintId> waiting_;
  std::vector<LayoutConstraintId> dropped_;
  std::vector<LayoutDefinitions::Use> reached_;
  std::vector<LayoutSymbol> symbols_;  // of the variables that the tableau knows
  std::uint64_t age_ = 0;
  std::size_t equations_ = 0;  // constraints that are in the tableau
  bool hasChanges_ = false;
};

}  // namespace bkuk
