#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "platform/layout/LayoutSolver.h"

namespace bkuk {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr auto equal = LayoutRelation::equal;
constexpr auto atLeast = LayoutRelation::greaterThanOrEqual;
constexpr auto atMost = LayoutRelation::lessThanOrEqual;

LayoutExpression sum(std::vector<LayoutTerm> terms, double constant) {
  LayoutExpression expression;
  for (const auto& term : terms) expression.add(term.variable, term.coefficient);
  return expression.addConstant(constant);
}

/// `count` edges, each 30 below the one before.
struct Column {
  LayoutSolver solver;
  std::vector<LayoutVariable> edges;
  std::vector<LayoutConstraintId> steps;
  LayoutConstraintId top = 0;

  explicit Column(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) edges.push_back(solver.makeVariable());
    for (std::size_t i = 1; i < count; ++i) {
      steps.push_back(solver.add(sum({{edges[i], 1}, {edges[i - 1], -1}}, -30), equal));
    }
    top = solver.add(sum({{edges[0], 1}}, 0), equal);
    solver.solve();
  }
  double last() const { return solver.value(edges.back()); }
};

TEST(LayoutSolver, AChainMovesFromWhereItChanged) {
  Column column(20'000);
  EXPECT_EQ(column.last(), 30.0 * 19'999);
  column.solver.setConstant(column.steps[19'996], -35);
  column.solver.solve();
  EXPECT_EQ(column.last(), 30.0 * 19'999 + 5);
  EXPECT_THAT(column.solver.changes(),
              UnorderedElementsAre(column.edges[19'997], column.edges[19'998], column.edges[19'999]));
  column.solver.solve();
  EXPECT_THAT(column.solver.changes(), IsEmpty());
}

TEST(LayoutSolver, ALinkOfAChainIsReplacedWhileOthersBuildOnIt) {
  Column column(100);
  auto& solver = column.solver;
  const auto edge = solver.makeVariable();
  const auto floor = solver.add(sum({{edge, 1}, {column.edges.back(), -1}}, 0), atLeast);
  const auto wish = solver.add(sum({{edge, 1}}, 0), equal, 250);
  solver.solve();
  EXPECT_NEAR(solver.value(edge), 2970, 1e-6);
  solver.remove(column.steps[50]);
  const auto link = solver.add(sum({{column.edges[51], 1}, {column.edges[49], -1}}, -30), equal);
  solver.solve();
  EXPECT_NEAR(column.last(), 2940, 1e-6);
  EXPECT_NEAR(solver.value(edge), 2940, 1e-6);
  solver.setConstant(link, -130);
  solver.setConstant(column.top, -1000);
  solver.solve();
  EXPECT_NEAR(solver.value(edge), 4040, 1e-6);
  solver.remove(floor);
  solver.solve();
  EXPECT_NEAR(solver.value(edge), 0, 1e-6);
  solver.remove(wish);
  solver.removeVariable(edge);
}

TEST(LayoutSolver, SpaceGoesToTheConstraintsThatMindLeast) {
  LayoutSolver solver;
  const auto a = solver.makeVariable();
  const auto b = solver.makeVariable();
  const auto whole = solver.add(sum({{a, 1}, {b, 1}}, -100), equal);
  (void)solver.add(sum({{a, 1}}, -30), equal, 750);
  const auto second = solver.add(sum({{b, 1}}, -30), equal, 250);
  const auto widths = [&] {
    solver.solve();
    return std::vector{solver.value(a), solver.value(b)};
  };
  EXPECT_THAT(widths(), ElementsAre(DoubleNear(30, 1e-9), DoubleNear(70, 1e-9)));
  solver.setPriority(second, 800);
  EXPECT_THAT(widths(), ElementsAre(DoubleNear(70, 1e-9), DoubleNear(30, 1e-9)));
  (void)solver.add(sum({{a, 1}}, -50), atMost, 900);
  EXPECT_THAT(widths(), ElementsAre(DoubleNear(50, 1e-9), DoubleNear(50, 1e-9)));
  solver.setConstant(whole, -60);
  EXPECT_THAT(widths(), ElementsAre(DoubleNear(30, 1e-9), DoubleNear(30, 1e-9)));
}

TEST(LayoutSolver, OfConflictingOnesTheLastAddedWaitsUntilItFits) {
  LayoutSolver solver;
  const auto width = solver.makeVariable();
  const auto least = solver.add(sum({{width, 1}}, -50), atLeast);
  const auto most = solver.add(sum({{width, 1}}, -40), atMost);
  solver.solve();
  EXPECT_THAT(solver.dropped(), ElementsAre(most));
  EXPECT_NEAR(solver.value(width), 50, 1e-9);
  solver.setConstant(most, -80);
  const auto exact = solver.add(sum({{width, 1}}, -60), equal);
  solver.solve();
  EXPECT_THAT(solver.dropped(), IsEmpty());
  const auto other = solver.add(sum({{width, 1}}, -61), equal);
  solver.solve();
  EXPECT_THAT(solver.dropped(), ElementsAre(other)) << "two equalities";
  EXPECT_NEAR(solver.value(width), 60, 1e-9);
  solver.setConstant(exact, -100);
  solver.solve();
  EXPECT_THAT(solver.dropped(), UnorderedElementsAre(other, most)) << "a change brings conflicts about too";
  solver.remove(exact);
  solver.solve();
  EXPECT_THAT(solver.dropped(), IsEmpty());
  EXPECT_NEAR(solver.value(width), 61, 1e-9);
  solver.remove(least);
}

TEST(LayoutSolver, EqualitiesThatSayTheSameAreNoConflict) {
  LayoutSolver solver;
  const auto a = solver.makeVariable();
  const auto b = solver.makeVariable();
  (void)solver.add(sum({{a, 1}, {b, -1}}, 0), equal);
  const auto again = solver.add(sum({{a, 2}, {b, -2}}, 0), equal);
  const auto fixed = solver.add(sum({{b, 1}}, -7), equal);
  solver.solve();
  EXPECT_THAT(solver.dropped(), IsEmpty());
  solver.remove(fixed);
  solver.remove(again);
  (void)solver.add(sum({{a, 1}}, -9), equal);
  solver.solve();
  EXPECT_NEAR(solver.value(b), 9, 1e-9);
}

}  // namespace
}  // namespace bkuk
