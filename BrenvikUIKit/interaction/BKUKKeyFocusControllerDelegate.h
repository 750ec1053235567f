#pragma once

namespace bkuk {

class NSView;

/// Hears that a view got or lost the keyboard. Held weakly: an object derived from `NSObject` implements it.
class BKUKKeyFocusControllerDelegate {
 public:
  virtual ~BKUKKeyFocusControllerDelegate() = default;
  virtual void keyFocusChanged(NSView& view, bool isFocused) = 0;
};

}  // namespace bkuk
