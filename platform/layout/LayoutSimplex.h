#pragma once

#include "platform/layout/LayoutCost.h"
#include "platform/layout/LayoutTableau.h"

namespace bkuk {

/// Moves a tableau to where all symbols are in their ranges at the least cost. Works only from what the
/// tableau noted as changed; all choices between equals go to the lowest symbol, so that it always ends.
class LayoutSimplex {
 public:
  explicit LayoutSimplex(LayoutTableau& tableau) : tableau_(tableau) {}

  /// Brings all basic symbols into their ranges and answers none, or the basic symbol of a row that shows
  /// that no values fit. Where the cost was least before it still is; where it was not, any way will do.
  [[nodiscard]] LayoutSymbol restoreRanges();
  /// Lowers the cost as far as it goes. All symbols must be in their ranges, and stay there.
  void lowerCost();
  /// Takes the equation out in which `marker`, and `error` when there is one, stand and nothing else ties
  /// them.
  void removeEquation(LayoutSymbol marker, LayoutSymbol error);

 private:
  void costOfEntering(LayoutSymbol symbol, LayoutCost& cost) const;
  [[nodiscard]] LayoutSymbol cheapestEntering(LayoutSymbol leaving, bool byCost);
  [[nodiscard]] LayoutSymbol firstLeaving(LayoutSymbol entering) const;
  [[nodiscard]] LayoutSymbol harmlessLeaving(LayoutSymbol entering) const;
  void dropRow(LayoutSymbol basic);

  LayoutTableau& tableau_;
  LayoutCost cost_;
  LayoutCost leastCost_;
};

}  // namespace bkuk
