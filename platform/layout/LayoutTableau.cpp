#include "platform/layout/LayoutTableau.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace bkuk {

namespace {

constexpr double negligibleCoefficient = 1e-10;
constexpr double negligibleValue = 1e-7;  // points

void pushLowestFirst(std::vector<LayoutSymbol>& heap, LayoutSymbol symbol) {
  heap.push_back(symbol);
  std::ranges::push_heap(heap, std::greater<>());
}

void popLowest(std::vector<LayoutSymbol>& heap) {
  std::ranges::pop_heap(heap, std::greater<>());
  heap.pop_back();
}

}  // namespace

// Symbols

LayoutSymbol LayoutTableau::makeSymbol(LayoutSymbolKind kind, double priority, std::uint32_t owner) {
  if (freeSymbols_.empty()) {
    freeSymbols_.push_back(static_cast<LayoutSymbol>(symbols_.size()));
    symbols_.emplace_back();
  }
  const LayoutSymbol made = freeSymbols_.back();
  freeSymbols_.pop_back();
  auto& symbol = symbols_[made];
  symbol.kind = kind;
  symbol.priority = priority;
  symbol.owner = owner;
  return made;
}

void LayoutTableau::discardSymbol(LayoutSymbol symbol) {
  for (const auto index : symbols_[symbol].column) {
    auto& cells = rows_[index].cells;
    cells.erase(std::ranges::lower_bound(cells, symbol, {}, &LayoutCell::symbol));
  }
  symbols_[symbol].column.clear();
  symbols_[symbol].priority = 0;
  freeSymbols_.push_back(symbol);
}

void LayoutTableau::setPriority(LayoutSymbol symbol, double priority) {
  symbols_[symbol].priority = priority;
  if (isBasic(symbol)) {
    suspectCells(symbol);
  } else {
    suspect(symbol);
  }
}

bool LayoutTableau::isOutOfRange(LayoutSymbol basic) const {
  const auto value = row(basic).constant;
  if (kind(basic) == LayoutSymbolKind::free) return false;
  return value < -negligibleValue || (kind(basic) == LayoutSymbolKind::zero && value > negligibleValue);
}

double LayoutTableau::coefficient(const Row& row, LayoutSymbol symbol) {
  return std::ranges::lower_bound(row.cells, symbol, {}, &LayoutCell::symbol)->coefficient;
}

void LayoutTableau::enterColumn(LayoutCell& cell, RowIndex row) {
  auto& column = symbols_[cell.symbol].column;
  cell.place = static_cast<std::uint32_t>(column.size());
  column.push_back(row);
}

// The last of the column takes the place.
void LayoutTableau::leaveColumn(const LayoutCell& cell) {
  auto& column = symbols_[cell.symbol].column;
  const RowIndex last = column.back();
  column.pop_back();
  if (cell.place == column.size()) return;
  column[cell.place] = last;
  std::ranges::lower_bound(rows_[last].cells, cell.symbol, {}, &LayoutCell::symbol)->place = cell.place;
}

// Rows

void LayoutTableau::addRow(LayoutSymbol basic, double constant, std::vector<LayoutCell> cells) {
  if (freeRows_.empty()) {
    freeRows_.push_back(static_cast<RowIndex>(rows_.size()));
    rows_.emplace_back();
  }
  const RowIndex index = freeRows_.back();
  freeRows_.pop_back();
  rows_[index] = {basic, constant, std::move(cells)};
  for (auto& cell : rows_[index].cells) enterColumn(cell, index);
  symbols_[basic].row = index;
  replaceInColumn(basic, index);
  noteValue(basic);
}

void LayoutTableau::removeRow(LayoutSymbol basic) {
  const RowIndex index = std::exchange(symbols_[basic].row, noRow);
  for (const auto& cell : rows_[index].cells) leaveColumn(cell);
  rows_[index] = {};
  freeRows_.push_back(index);
  noteValue(basic);
}

void LayoutTableau::shift(Row& row, double amount) {
  if (amount == 0) return;
  row.constant += amount;
  noteValue(row.basic);
}

// With `expression + amount - marker = 0` for `expression - marker = 0`, the marker less the amount stands
// where the marker stood.
void LayoutTableau::shiftBySymbol(LayoutSymbol marker, double amount) {
  if (isBasic(marker)) return shift(rows_[symbols_[marker].row], amount);
  for (const auto index : symbols_[marker].column) {
    shift(rows_[index], -amount * coefficient(rows_[index], marker));
  }
}

void LayoutTableau::pivot(LayoutSymbol leaving, LayoutSymbol entering) {
  const RowIndex index = std::exchange(symbols_[leaving].row, noRow);
  Row& row = rows_[index];
  const auto place = std::ranges::lower_bound(row.cells, entering, {}, &LayoutCell::symbol);
  const double factor = place->coefficient;
  leaveColumn(*place);
  row.cells.erase(place);
  for (auto& cell : row.cells) cell.coefficient /= -factor;
  const auto behind = std::ranges::lower_bound(row.cells, leaving, {}, &LayoutCell::symbol);
  enterColumn(*row.cells.insert(behind, {leaving, 1 / factor}), index);
  row.constant /= -factor;
  row.basic = entering;
  symbols_[entering].row = index;
  replaceInColumn(entering, index);
  noteValue(leaving);
  noteValue(entering);
}

void LayoutTableau::replaceInColumn(LayoutSymbol symbol, RowIndex by) {
  const auto column = std::exchange(symbols_[symbol].column, {});
  for (const auto target : column) addMultiple(target, coefficient(rows_[target], symbol), rows_[by], symbol);
}

// Merges `factor` times the source into the target, in which `replaced` goes.
void LayoutTableau::addMultiple(RowIndex target, double factor, const Row& source, LayoutSymbol replaced) {
  Row& row = rows_[target];
  merged_.clear();
  auto mine = row.cells.begin();
  auto theirs = source.cells.begin();
  while (mine != row.cells.end() || theirs != source.cells.end()) {
    if (theirs == source.cells.end() || (mine != row.cells.end() && mine->symbol < theirs->symbol)) {
      if (mine->symbol != replaced) merged_.push_back(*mine);
      ++mine;
    } else if (mine == row.cells.end() || theirs->symbol < mine->symbol) {
      const double added = factor * theirs->coefficient;
      if (std::abs(added) > negligibleCoefficient) {
        enterColumn(merged_.emplace_back(theirs->symbol, added), target);
      }
      ++theirs;
    } else {
      const double sum = mine->coefficient + factor * theirs->coefficient;
      if (std::abs(sum) > negligibleCoefficient) {
        merged_.push_back(*mine);
        merged_.back().coefficient = sum;
      } else {
        leaveColumn(*mine);
      }
      ++mine;
      ++theirs;
    }
  }
  row.cells.assign(merged_.begin(), merged_.end());
  shift(row, factor * source.constant);
}

// What changed

void LayoutTableau::noteValue(LayoutSymbol symbol) {
  auto& noted = symbols_[symbol];
  if (noted.kind == LayoutSymbolKind::free) {
    if (!std::exchange(noted.isChanged, true)) changedFree_.push_back(symbol);
  } else if (noted.row != noRow && isOutOfRange(symbol)) {
    pushLowestFirst(outOfRange_, symbol);
  }
}

std::vector<LayoutSymbol> LayoutTableau::takeChangedFree() {
  for (const auto symbol : changedFree_) symbols_[symbol].isChanged = false;
  return std::exchange(changedFree_, {});
}

LayoutSymbol LayoutTableau::lowestOutOfRange() {
  while (!outOfRange_.empty()) {
    const LayoutSymbol symbol = outOfRange_.front();
    if (isBasic(symbol) && isOutOfRange(symbol)) return symbol;
    popLowest(outOfRange_);
  }
  return noLayoutSymbol;
}

void LayoutTableau::suspect(LayoutSymbol symbol) {
  if (!std::exchange(symbols_[symbol].isSuspect, true)) pushLowestFirst(suspects_, symbol);
}

void LayoutTableau::suspectCells(LayoutSymbol basic) {
  for (const auto& cell : row(basic).cells) suspect(cell.symbol);
}

LayoutSymbol LayoutTableau::takeLowestSuspect() {
  const LayoutSymbol symbol = suspects_.front();
  popLowest(suspects_);
  symbols_[symbol].isSuspect = false;
  return symbol;
}

}  // namespace bkuk
