#include "platform/layout/LayoutSimplex.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace bkuk {

namespace {

// Ways shorter or longer by less than this are taken for equal, which lets the lowest symbol decide.
constexpr double negligibleStep = 1e-9;
// A factor smaller than this is no ground to stand an equation on.
constexpr double negligibleGain = 1e-8;
// Far beyond what any layout needs. Only rounding that turns in a circle could get here.
constexpr int mostPivots = 100'000;

}  // namespace

void LayoutSimplex::costOfEntering(LayoutSymbol symbol, LayoutCost& cost) const {
  cost.clear();
  if (tableau_.priority(symbol) > 0) cost.add(tableau_.priority(symbol), 1);
  tableau_.forColumn(symbol, [&](const LayoutTableau::Row& row, double coefficient) {
    if (const double priority = tableau_.priority(row.basic); priority > 0) cost.add(priority, coefficient);
  });
}

// The dual step

LayoutSymbol LayoutSimplex::restoreRanges() {
  const bool byCost = !tableau_.hasSuspects();
  for (int pivots = 0; pivots < mostPivots; ++pivots) {
    const LayoutSymbol leaving = tableau_.lowestOutOfRange();
    if (leaving == noLayoutSymbol) return noLayoutSymbol;
    const LayoutSymbol entering = cheapestEntering(leaving, byCost);
    if (entering == noLayoutSymbol) return leaving;
    tableau_.pivot(leaving, entering);
    if (!byCost) tableau_.suspectCells(entering);
  }
  return noLayoutSymbol;
}

LayoutSymbol LayoutSimplex::cheapestEntering(LayoutSymbol leaving, bool byCost) {
  const auto& row = tableau_.row(leaving);
  const double direction = row.constant < 0 ? 1 : -1;
  LayoutSymbol cheapest = noLayoutSymbol;
  double leastFactor = 0;
  for (const auto& cell : row.cells) {
    const double gain = cell.coefficient * direction;
    if (gain < negligibleGain || tableau_.kind(cell.symbol) != LayoutSymbolKind::nonnegative) continue;
    if (!byCost) return cell.symbol;
    costOfEntering(cell.symbol, cost_);
    if (cheapest != noLayoutSymbol && !cost_.isLess(1 / gain, leastCost_, leastFactor)) continue;
    cheapest = cell.symbol;
    leastFactor = 1 / gain;
    std::swap(cost_, leastCost_);
  }
  return cheapest;
}

// The primal step

void LayoutSimplex::lowerCost() {
  for (int pivots = 0; tableau_.hasSuspects() && pivots < mostPivots;) {
    const LayoutSymbol entering = tableau_.takeLowestSuspect();
    if (tableau_.isBasic(entering) || tableau_.kind(entering) != LayoutSymbolKind::nonnegative) continue;
    costOfEntering(entering, cost_);
    if (cost_.sign() >= 0) continue;
    const LayoutSymbol leaving = firstLeaving(entering);
    if (leaving == noLayoutSymbol) continue;
    tableau_.pivot(leaving, entering);
    tableau_.suspectCells(entering);
    ++pivots;
  }
}

// The basic symbol that stops `entering` first as it grows from 0.
LayoutSymbol LayoutSimplex::firstLeaving(LayoutSymbol entering) const {
  LayoutSymbol first = noLayoutSymbol;
  double shortest = 0;
  tableau_.forColumn(entering, [&](const LayoutTableau::Row& row, double coefficient) {
    const auto kind = tableau_.kind(row.basic);
    const bool stops =
        kind == LayoutSymbolKind::zero || (kind == LayoutSymbolKind::nonnegative && coefficient < 0);
    if (!stops) return;
    const double step = kind == LayoutSymbolKind::zero ? 0 : std::max(0.0, row.constant / -coefficient);
    const bool isTie = first != noLayoutSymbol && std::abs(step - shortest) <= negligibleStep;
    if (first != noLayoutSymbol && (isTie ? row.basic > first : step > shortest)) return;
    first = row.basic;
    shortest = step;
  });
  return first;
}

// Removal

void LayoutSimplex::removeEquation(LayoutSymbol marker, LayoutSymbol error) {
  if (tableau_.isBasic(marker)) {
    dropRow(marker);
  } else if (error != noLayoutSymbol && tableau_.isBasic(error)) {
    dropRow(error);
  } else if (const LayoutSymbol leaving = harmlessLeaving(marker); leaving != noLayoutSymbol) {
    tableau_.pivot(leaving, marker);
    dropRow(marker);
  }
  tableau_.discardSymbol(marker);
  if (error != noLayoutSymbol) tableau_.discardSymbol(error);
}

void LayoutSimplex::dropRow(LayoutSymbol basic) {
  tableau_.suspectCells(basic);
  tableau_.removeRow(basic);
}

// The basic symbol that `entering`, about to go, can take the place of with no other leaving its range: the
// first to stop it on its way up, else the first on its way down, else a free one.
LayoutSymbol LayoutSimplex::harmlessLeaving(LayoutSymbol entering) const {
  if (const LayoutSymbol first = firstLeaving(entering); first != noLayoutSymbol) return first;
  LayoutSymbol found = noLayoutSymbol;
  double shortest = 0;
  bool isFree = true;
  tableau_.forColumn(entering, [&](const LayoutTableau::Row& row, double coefficient) {
    if (tableau_.kind(row.basic) == LayoutSymbolKind::free) {
      if (found == noLayoutSymbol) found = row.basic;
      return;
    }
    const double step = row.constant / coefficient;
    if (!isFree && step >= shortest) return;
    isFree = false;
    found = row.basic;
    shortest = step;
  });
  return found;
}

}  // namespace bkuk
