#pragma once

namespace bkuk {

class BKUKLabel;
class NSEvent;

/// Hears of clicks on a label. Held weakly: an object derived from `NSObject` implements it.
class BKUKLabelTextClickDelegate {
 public:
  virtual ~BKUKLabelTextClickDelegate() = default;
  /// The left button went down on the label.
  virtual void labelClicked(BKUKLabel& label, NSEvent& event) = 0;
};

}  // namespace bkuk
