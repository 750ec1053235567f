#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "platform/layout/LayoutInterval.h"
#include "platform/layout/LayoutSolver.h"

namespace bkuk {
namespace {

/// The same constraints in two solvers, of which one may do without the tableau. Every unknown is wished to
/// be somewhere at a priority of its own, so that one solution alone is best.
class Twins {
 public:
  Twins(unsigned seed, int unknowns) : unknowns_(unknowns), random_(seed) {
    for (int i = 0; i < unknowns; ++i) {
      variables_.push_back(quick_.makeVariable());
      EXPECT_EQ(general_.makeVariable(), variables_.back());
      hidden_.push_back(pick(-20, 20));
      add({.terms = {{variables_.back(), 1}}, .constant = 1.0 * pick(-20, 20)}, LayoutRelation::equal, 1 + i);
    }
  }

  void change() {
    const int action = pick(0, 9);
    const int count = static_cast<int>(demands_.size());
    if (count == unknowns_ || action < 4) return addRandom();
    const auto index = static_cast<std::size_t>(pick(unknowns_, count - 1));
    auto& demand = demands_[index];
    const bool isRequired = demand.priority == requiredLayoutPriority;
    if (action < 6 || count > 3 * unknowns_) {
      quick_.remove(demand.quick);
      general_.remove(demand.general);
      demands_.erase(demands_.begin() + static_cast<std::ptrdiff_t>(index));
    } else if (action < 9 || isRequired) {
      demand.expression.constant +=
          isRequired ? slack(demand.relation) - sum(demand.expression) : pick(-9, 9);
      quick_.setConstant(demand.quick, demand.expression.constant);
      general_.setConstant(demand.general, demand.expression.constant);
    } else {
      demand.priority = pick(200, 900);
      quick_.setPriority(demand.quick, demand.priority);
      general_.setPriority(demand.general, demand.priority);
    }
  }

  void compare() {
    quick_.solve();
    general_.solve();
    ASSERT_TRUE(quick_.dropped().empty());
    for (const auto variable : variables_) {
      ASSERT_NEAR(quick_.value(variable), general_.value(variable), 1e-6) << variable.index;
    }
  }

 private:
  struct Demand {
    LayoutExpression expression;
    LayoutRelation relation;
    double priority;
    LayoutConstraintId quick = 0;
    LayoutConstraintId general = 0;
  };

  int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(random_); }
  // By how much a required one holds at the hidden point.
  double slack(LayoutRelation relation) { return static_cast<int>(relation) * pick(0, 10); }
  double sum(const LayoutExpression& expression) const {
    double total = expression.constant;
    for (const auto& term : expression.terms) total += term.coefficient * hidden_[term.variable.index];
    return total;
  }

  void add(LayoutExpression expression, LayoutRelation relation, double priority) {
    const auto quick = quick_.add(expression, relation, priority);
    const auto general = general_.add(expression, relation, priority);
    demands_.push_back({std::move(expression), relation, priority, quick, general});
  }

  // Most name few unknowns and have factors as layouts do.
  void addRandom() {
    constexpr double factors[] = {1, 1, 1, -1, -1, -1, 0.5, -0.5, 2};
    constexpr double priorities[] = {requiredLayoutPriority, requiredLayoutPriority, 250, 750, 999};
    LayoutExpression expression;
    for (int i = pick(1, 3); i > 0; --i) {
      expression.add(variables_[static_cast<std::size_t>(pick(0, unknowns_ - 1))], factors[pick(0, 8)]);
    }
    if (expression.terms.empty()) return;
    const auto relation = static_cast<LayoutRelation>(pick(-1, 1));
    const double priority = priorities[pick(0, 4)];
    expression.addConstant(priority == requiredLayoutPriority ? slack(relation) - sum(expression)
                                                              : pick(-20, 20));
    add(std::move(expression), relation, priority);
  }

  const int unknowns_;
  std::mt19937 random_;
  LayoutSolver quick_;
  LayoutSolver general_{LayoutSolver::Method::general};
  std::vector<LayoutVariable> variables_;
  std::vector<double> hidden_;
  std::vector<Demand> demands_;
};

TEST(LayoutStages, ArithmeticComesToWhatTheTableauComesTo) {
  for (unsigned seed = 0; seed < 150; ++seed) {
    SCOPED_TRACE(seed);
    Twins twins(seed, seed % 2 == 0 ? 4 : 10);  // crowded, and loose
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(step);
      twins.change();
      if (step % 2 == 0) twins.compare();
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

TEST(LayoutStages, AnIntervalKeepsWhatIsLeastFarFromAllWishes) {
  LayoutInterval interval;
  LayoutInterval::Wish wishes[] = {{30, 1, true, true}, {10, 1, true, true}, {20, 1, false, true}};
  interval.prefer(wishes);
  EXPECT_EQ(interval.least(), 10);
  EXPECT_EQ(interval.greatest(), 20);
  LayoutInterval::Wish heavy[] = {{-5, 1, false, true}, {14, 3, true, false}};
  interval.prefer(heavy);
  EXPECT_TRUE(interval.isPoint());
  EXPECT_EQ(interval.least(), 14);
  EXPECT_FALSE(interval.demandAtMost(13));
  EXPECT_TRUE(interval.demandAtLeast(14));
}

}  // namespace
}  // namespace bkuk
