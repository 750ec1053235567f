#include <benchmark/benchmark.h>
#include <vector>

#include "platform/layout/LayoutSolver.h"

namespace bkuk {
namespace {

/// Rows below each other, each with a top and a height of its own: from above, the next begins where the one
/// before ends.
struct Column {
  LayoutSolver solver;
  std::vector<LayoutVariable> tops;
  std::vector<LayoutVariable> heights;
  LayoutConstraintId top = 0;
  LayoutConstraintId firstHeight = 0;

  explicit Column(std::size_t rows) {
    for (std::size_t i = 0; i < rows; ++i) {
      tops.push_back(solver.makeVariable());
      heights.push_back(solver.makeVariable());
    }
    top = solver.add(LayoutExpression().add(tops[0]).addConstant(-20), LayoutRelation::equal);
    for (std::size_t i = 1; i < rows; ++i) {
      const auto step = LayoutExpression().add(tops[i]).add(tops[i - 1], -1).add(heights[i - 1], -1);
      (void)solver.add(LayoutExpression(step).addConstant(-8), LayoutRelation::equal);
    }
  }

  /// Heights that must be so.
  void fixHeights() {
    for (std::size_t i = 0; i < heights.size(); ++i) {
      const auto id = solver.add(LayoutExpression().add(heights[i]).addConstant(-24), LayoutRelation::equal);
      if (i == 0) firstHeight = id;
    }
  }
  /// Heights that neither grow nor shrink willingly.
  void preferHeights() {
    for (std::size_t i = 0; i < heights.size(); ++i) {
      const auto height = LayoutExpression().add(heights[i]).addConstant(-24);
      (void)solver.add(height, LayoutRelation::lessThanOrEqual, 250);
      const auto id = solver.add(height, LayoutRelation::greaterThanOrEqual, 750);
      if (i == 0) firstHeight = id;
    }
  }
  /// The last row ends at a given bottom.
  LayoutConstraintId fill(double bottom) {
    return solver.add(LayoutExpression().add(tops.back()).add(heights.back()).addConstant(-bottom),
                      LayoutRelation::equal);
  }
};

/// Sets one constant to and fro, with a solution each time.
void changeConstant(benchmark::State& state, Column& column, LayoutConstraintId id, double constant,
                    std::size_t expectedChanges) {
  column.solver.solve();
  bool isMoved = false;
  for (auto _ : state) {
    isMoved = !isMoved;
    column.solver.setConstant(id, constant + (isMoved ? 1 : 0));
    column.solver.solve();
    if (column.solver.changes().size() < expectedChanges) state.SkipWithError("too little moved");
  }
}

void moveFixedColumn(benchmark::State& state) {
  Column column(static_cast<std::size_t>(state.range(0)));
  column.fixHeights();
  changeConstant(state, column, column.top, -20, column.tops.size());
}
BENCHMARK(moveFixedColumn)->Arg(10)->Arg(1'000)->Arg(10'000);

/// The first row grows where every height is a wish.
void growRowOfPreferredColumn(benchmark::State& state) {
  Column column(static_cast<std::size_t>(state.range(0)));
  column.preferHeights();
  changeConstant(state, column, column.firstHeight, -30, column.tops.size());
}
BENCHMARK(growRowOfPreferredColumn)->Arg(10)->Arg(1'000);

/// All rows have wishes, and one has to take up what is left of a given height.
void resizeFilledColumn(benchmark::State& state) {
  Column column(static_cast<std::size_t>(state.range(0)));
  column.preferHeights();
  const double bottom = 40.0 * static_cast<double>(state.range(0));
  const auto end = column.fill(bottom);
  changeConstant(state, column, end, -bottom, 1);
}
BENCHMARK(resizeFilledColumn)->Arg(10)->Arg(1'000);

void moveFilledColumn(benchmark::State& state) {
  Column column(static_cast<std::size_t>(state.range(0)));
  column.preferHeights();
  (void)column.fill(40.0 * static_cast<double>(state.range(0)));
  changeConstant(state, column, column.top, -20, 1);
}
BENCHMARK(moveFilledColumn)->Arg(10)->Arg(1'000);

void buildFixedColumn(benchmark::State& state) {
  for (auto _ : state) {
    Column column(static_cast<std::size_t>(state.range(0)));
    column.fixHeights();
    column.solver.solve();
    benchmark::DoNotOptimize(column.solver.value(column.tops.back()));
  }
}
BENCHMARK(buildFixedColumn)->Arg(1'000)->Unit(benchmark::kMicrosecond);

void buildFilledColumn(benchmark::State& state) {
  for (auto _ : state) {
    Column column(static_cast<std::size_t>(state.range(0)));
    column.preferHeights();
    (void)column.fill(40.0 * static_cast<double>(state.range(0)));
    column.solver.solve();
    benchmark::DoNotOptimize(column.solver.value(column.tops.back()));
  }
}
BENCHMARK(buildFilledColumn)->Arg(1'000)->Unit(benchmark::kMicrosecond);

/// Takes the link in the middle out and puts it in again.
void replaceLink(benchmark::State& state) {
  Column column(static_cast<std::size_t>(state.range(0)));
  column.fixHeights();
  column.solver.solve();
  const std::size_t middle = column.tops.size() / 2;
  const auto loose = LayoutExpression().add(column.tops[middle]).addConstant(-5000);
  for (auto _ : state) {
    const auto id = column.solver.add(loose, LayoutRelation::equal, 500);
    column.solver.solve();
    column.solver.remove(id);
    column.solver.solve();
  }
}
BENCHMARK(replaceLink)->Arg(1'000);

}  // namespace
}  // namespace bkuk
