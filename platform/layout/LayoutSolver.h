#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "platform/layout/LayoutDefinitions.h"
#include "platform/layout/LayoutExpression.h"
#include "platform/layout/LayoutInterval.h"
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
  /// `arithmetic` places what it can without the tableau; `general`, for comparison, leaves out that stage.
  enum class Method { arithmetic, general };

  explicit LayoutSolver(Method method = Method::arithmetic) : method_(method), simplex_(tableau_) {}
  LayoutSolver(const LayoutSolver&) = delete;
  LayoutSolver& operator=(const LayoutSolver&) = delete;

  [[nodiscard]] LayoutVariable makeVariable();
  /// Of a variable that no constraint names any more.
  void removeVariable(LayoutVariable variable);

  /// Demands `expression <relation> 0` at a priority above 0.
  [[nodiscard]] LayoutConstraintId add(const LayoutExpression& expression, LayoutRelation relation,
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
  enum class State : std::uint8_t {
    removed,
    waiting,
    definition,
    fixing,
    constant,
    single,
    tableau,
    dropped
  };

  static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

  struct Constraint {
    double priority = 0;
    double known = 0;   // the constant in roots that its stage works with
    double factor = 0;  // of the root of one that names a single root
    std::uint64_t age = 0;
    std::uint32_t root = none;
    LayoutConstraintId before = none;  // of the same single root
    LayoutConstraintId after = none;
    LayoutSymbol marker = noLayoutSymbol;
    LayoutSymbol error = noLayoutSymbol;
    bool isEquality = false;
    bool isTurned = false;  // the expression has the other sign than it was added with
    State state = State::removed;

    [[nodiscard]] bool isRequired() const { return priority >= requiredLayoutPriority; }
  };
  struct Variable {
    LayoutSymbol symbol = noLayoutSymbol;  // of a root that the tableau knows
    LayoutConstraintId firstSingle = none;
    bool isUnplaced = false;
  };

  void forgetSymbol(LayoutVariable variable);
  void queue(LayoutConstraintId id);
  void release(LayoutConstraintId id);
  void leave(LayoutConstraintId id);
  void enterWaiting();
  [[nodiscard]] bool define(LayoutConstraintId id);
  void settleRoot(LayoutVariable root);
  void liftUsesOfSettled(LayoutVariable variable);
  void enter(LayoutConstraintId id);
  void fixRoot(LayoutConstraintId id);

  void addSingle(LayoutConstraintId id, LayoutTerm root);
  void leaveSingles(LayoutConstraintId id);
  void markUnplaced(std::uint32_t root);
  void makeGeneral(std::uint32_t root);
  [[nodiscard]] LayoutConstraintId placeSingles();
  [[nodiscard]] LayoutConstraintId place(std::uint32_t root);
  [[nodiscard]] LayoutConstraintId narrowByRequired(LayoutInterval& interval);
  void narrowByWishes(LayoutInterval& interval);

  void enterTableau(LayoutConstraintId id, const LayoutExpression& roots);
  void makeSymbols(LayoutConstraintId id);
  [[nodiscard]] std::vector<LayoutCell> inParameters(const LayoutExpression& roots, double& constant);
  void addEquation(const Constraint& constraint, double constant, std::vector<LayoutCell> cells);

  void updateConstants();
  void updateConstant(LayoutConstraintId id);
  void updateValues();
  [[nodiscard]] LayoutConstraintId findConflict();
  [[nodiscard]] LayoutConstraintId brokenConstant();
  [[nodiscard]] LayoutConstraintId lastAddedIn(LayoutSymbol basic);
  [[nodiscard]] LayoutConstraintId lastAddedBehind(std::span<const LayoutConstraintId> conflict);
  void drop(LayoutConstraintId id);

  const Method method_;
  LayoutDefinitions definitions_;
  LayoutTableau tableau_;
  LayoutSimplex simplex_;
  std::vector<Constraint> constraints_;
  std::vector<Variable> variables_;
  std::vector<LayoutConstraintId> free_;
  std::vector<LayoutConstraintId> waiting_;
  std::vector<LayoutConstraintId> dropped_;
  std::vector<LayoutConstraintId> reached_;
  std::vector<LayoutConstraintId> unchecked_;  // required, without roots
  std::vector<std::uint32_t> unplaced_;        // single roots
  std::vector<LayoutConstraintId> singles_;    // of the root at hand, the highest priority first
  std::vector<LayoutInterval::Wish> wishes_;
  std::uint64_t age_ = 0;
  std::size_t uses_ = 0;  // constraints that build on variables without defining one
  bool hasChanges_ = false;
};

}  // namespace bkuk
