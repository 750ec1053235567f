#pragma once

#include <array>
#include <vector>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/constraints/LayoutEngine.h"

namespace bkuk {

/// What a view or guide that has to do with constraints keeps for it. Others have none.
struct LayoutPart {
  /// The active constraints that name the item. Each takes itself out when it is gone.
  std::vector<NSLayoutConstraint*> naming;
  /// The active constraints whose items' nearest common view this is.
  std::vector<Ref<NSLayoutConstraint>> held;
  std::vector<Ref<NSLayoutGuide>> guides;
  /// Along x and along y.
  std::array<NSLayoutPriority, 2> hugging{NSLayoutPriorityDefaultLow, NSLayoutPriorityDefaultLow};
  std::array<NSLayoutPriority, 2> compressionResistance{NSLayoutPriorityDefaultHigh,
                                                        NSLayoutPriorityDefaultHigh};
  /// Of a view without superview, once constraints are active below it.
  Ref<LayoutEngine> engine;
  /// The tree went whose engine knew the constraints that are held here and below.
  bool hasLostEngine = false;
  bool translatesAutoresizingMask = true;
};

}  // namespace bkuk
