#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace bkuk {

/// An unknown of the tableau: one of the caller's variables, or one that the solver put into a constraint.
using LayoutSymbol = std::uint32_t;
inline constexpr LayoutSymbol noLayoutSymbol = std::numeric_limits<LayoutSymbol>::max();

/// The values that a symbol may have.
enum class LayoutSymbolKind : std::uint8_t { free, nonnegative, zero };

/// A symbol with its factor in a row.
struct LayoutCell {
  LayoutCell(LayoutSymbol cellSymbol, double cellCoefficient)
      : symbol(cellSymbol), coefficient(cellCoefficient) {}

  LayoutSymbol symbol;
  std::uint32_t place = 0;  // of the row in the symbol's column, for the tableau
  double coefficient;
};

/// The equations of a linear program, each solved for one symbol of its own, the basic one:
/// `basic = constant + coefficient * symbol + ...`. Symbols that are not basic are 0, so the constants are
/// the values of the basic ones.
///
/// Rows keep only what is not 0, in order of the symbols; a column is the list of the rows that a symbol
/// stands in, and each cell knows its place there. So an operation touches the rows in which something
/// changes and no others. Rows of basic symbols that may not be negative never name a free symbol.
///
/// The tableau notes for its users which free symbols changed, which basic symbols left their range, and
/// which columns may now lower the cost.
class LayoutTableau {
 public:
  struct Row {
    LayoutSymbol basic = noLayoutSymbol;
    double constant = 0;
    std::vector<LayoutCell> cells;
  };

  // Symbols

  /// `priority` is what a unit of the symbol costs, 0 for nothing; `owner` is the caller's own number.
  LayoutSymbol makeSymbol(LayoutSymbolKind kind, double priority, std::uint32_t owner);
  /// Forgets a symbol that is not basic, with its column.
  void discardSymbol(LayoutSymbol symbol);
  [[nodiscard]] LayoutSymbolKind kind(LayoutSymbol symbol) const { return symbols_[symbol].kind; }
  [[nodiscard]] std::uint32_t owner(LayoutSymbol symbol) const { return symbols_[symbol].owner; }
  [[nodiscard]] double priority(LayoutSymbol symbol) const { return symbols_[symbol].priority; }
  void setPriority(LayoutSymbol symbol, double priority);

  [[nodiscard]] bool isBasic(LayoutSymbol symbol) const { return symbols_[symbol].row != noRow; }
  [[nodiscard]] const Row& row(LayoutSymbol basic) const { return rows_[symbols_[basic].row]; }
  /// The basic symbols of the rows that name `symbol`, which is not basic itself.
  template <typename Visit>
  void forColumn(LayoutSymbol symbol, Visit&& visit) const {
    for (const auto index : symbols_[symbol].column) visit(rows_[index], coefficient(rows_[index], symbol));
  }
  [[nodiscard]] double value(LayoutSymbol symbol) const { return isBasic(symbol) ? row(symbol).constant : 0; }
  /// Whether a basic symbol is outside of its range by more than rounding.
  [[nodiscard]] bool isOutOfRange(LayoutSymbol basic) const;

  // Rows

  /// Adds the equation `basic = constant + cells`. `cells` are sorted and name symbols that are not basic;
  /// `basic`, not basic so far, is replaced in all other rows.
  void addRow(LayoutSymbol basic, double constant, std::vector<LayoutCell> cells);
  void removeRow(LayoutSymbol basic);
  /// Lets `amount` more stand where a symbol stands that counts the distance of an equation from 0.
  void shiftBySymbol(LayoutSymbol marker, double amount);
  /// Solves the row of `leaving` for `entering`, which it names, and replaces that everywhere else.
  void pivot(LayoutSymbol leaving, LayoutSymbol entering);

  // What changed

  [[nodiscard]] std::vector<LayoutSymbol> takeChangedFree();
  /// The lowest basic symbol that is out of its range, none when all are in.
  [[nodiscard]] LayoutSymbol lowestOutOfRange();
  [[nodiscard]] bool hasSuspects() const { return !suspects_.empty(); }
  /// The lowest of the columns that may lower the cost; takes it off.
  [[nodiscard]] LayoutSymbol takeLowestSuspect();
  void suspect(LayoutSymbol symbol);
  void suspectCells(LayoutSymbol basic);

 private:
  using RowIndex = std::uint32_t;
  static constexpr RowIndex noRow = std::numeric_limits<RowIndex>::max();

  struct Symbol {
    std::vector<RowIndex> column;
    double priority = 0;
    RowIndex row = noRow;
    std::uint32_t owner = 0;
    LayoutSymbolKind kind = LayoutSymbolKind::free;
    bool isSuspect = false;
    bool isChanged = false;
  };

  [[nodiscard]] static double coefficient(const Row& row, LayoutSymbol symbol);
  void enterColumn(LayoutCell& cell, RowIndex row);
  void leaveColumn(const LayoutCell& cell);
  void replaceInColumn(LayoutSymbol symbol, RowIndex by);
  void addMultiple(RowIndex target, double factor, const Row& source, LayoutSymbol replaced);
  void shift(Row& row, double amount);
  void noteValue(LayoutSymbol symbol);

  std::vector<Symbol> symbols_;
  std::vector<LayoutSymbol> freeSymbols_;
  std::vector<Row> rows_;
  std::vector<RowIndex> freeRows_;
  std::vector<LayoutSymbol> changedFree_;
  std::vector<LayoutSymbol> outOfRange_;  // heaps, lowest first
  std::vector<LayoutSymbol> suspects_;
  std::vector<LayoutCell> merged_;
};

}  // namespace bkuk
