#pragma once

#include <cstdint>
#include <vector>

#include "platform/layout/LayoutSolver.h"

namespace bkuk {

class NSLayoutItem;
class NSView;

/// What an engine knows of a view or guide. Lies in the engine's pool and is used again for another.
struct EngineItem {
  /// A constraint that the item brings along, its frame or its intrinsic size:
  /// `variable - share * of + constant <relation> 0`.
  struct Own {
    LayoutVariable variable;
    LayoutVariable of;
    double share = 0;
    double constant = 0;
    double priority = requiredLayoutPriority;
    LayoutRelation relation = LayoutRelation::equal;
    LayoutConstraintId id = 0;

    /// But for the constant, by more than rounding.
    [[nodiscard]] bool isAlike(const Own& other) const;
  };

  NSLayoutItem* item = nullptr;  // none once it has left
  NSView* view = nullptr;        // the item, if it is one
  EngineItem* container = nullptr;
  LayoutVariable x, y, width, height;
  std::vector<Own> own;
  std::uint32_t depth = 0;
  std::uint32_t constraintCount = 0;
  bool isPlaced = false;  // by constraints, and not by its frame
  bool isStale = false;
  bool needsFrame = false;
};

}  // namespace bkuk
