#pragma once

#include <array>
#include <vector>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/constraints/EngineItem.h"
#include "platform/appkit/constraints/LayoutEngine.h"

namespace bkuk {

/// What a view or guide that has to do with constraints keeps for it. Others have none.
struct LayoutPart {
  /// The active constraints that name the item and are held elsewhere. Each takes itself out when it is gone.
  std::vector<NSLayoutConstraint*> naming;
  /// The active constraints whose items' nearest common view this is.
  std::vector<Ref<NSLayoutConstraint>> held;
  std::vector<Ref<NSLayoutGuide>> guides;
  /// Along x and along y.
  std::array<NSLayoutPriority, 2> hugging{NSLayoutPriorityDefaultLow, NSLayoutPriorityDefaultLow};
  std::array<NSLayoutPriority, 2> compressionResistance{NSLayoutPriorityDefaultHigh,
                                                        NSLayoutPriorityDefaultHigh};
  /// Of a view without superview, once a layout had to solve constraints that are held here and below.
  Ref<LayoutEngine> engine;
  /// What the tree's engine knows of the item, if anything.
  EngineItem* engineItem = nullptr;
  /// Of a view without superview and engine: constraints may be held here and below.
  bool awaitsEngine = false;
  bool translatesAutoresizingMask = true;
};

/// An item as what it is besides, back again; none for none.
[[nodiscard]] NSLayoutItem* layoutItem(NSObject* object, bool isGuide);

}  // namespace bkuk
