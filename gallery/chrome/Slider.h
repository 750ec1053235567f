#pragma once

#include <functional>

#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// A number in a range, set by dragging the knob or, with the keyboard on it, by the arrow, home and end
/// keys. The range begins at the leading edge.
class Slider : public NSView {
 public:
  static constexpr CGFloat height = 28;  ///< points

  struct Range {
    CGFloat least = 0;
    CGFloat greatest = 1;
    CGFloat step = 0.01;  ///< of one press of an arrow key
  };
  using Handler = std::function<void(CGFloat value)>;

  Slider(Range range, CGFloat value, Handler changed);

  [[nodiscard]] CGFloat value() const { return value_; }

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool acceptsFirstResponder() const override { return true; }
  [[nodiscard]] bool acceptsFirstMouse(NSEvent&) const override { return true; }
  /// Track and knob are parts of this view, not views to be pressed themselves.
  [[nodiscard]] Ref<NSView> hitTest(NSPoint point) override;
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  void mouseDown(NSEvent& event) override;
  void mouseDragged(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  void layout() override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override { return NSAccessibilitySliderRole; }
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override { return value_; }
  [[nodiscard]] NSAccessibilityValue accessibilityMinValue() const override { return range_.least; }
  [[nodiscard]] NSAccessibilityValue accessibilityMaxValue() const override { return range_.greatest; }
  bool accessibilityPerformIncrement() override { return change(value_ + range_.step); }
  bool accessibilityPerformDecrement() override { return change(value_ - range_.step); }
  bool accessibilityPerformSetValue(double value) override { return change(value); }

 protected:
  void didInit() override;

 private:
  /// True always; the value may be at its end already.
  bool change(CGFloat value);
  [[nodiscard]] CGFloat valueAt(NSPoint point) const;
  [[nodiscard]] CGFloat travel() const;

  Range range_;
  CGFloat value_;
  Handler changed_;
  CGFloat grip_ = 0;  // from the pointer to the middle of the knob that it holds
  Ref<Box> track_;
  Ref<Box> filled_;
  Ref<Box> focusRing_;
  Ref<Box> knob_;
};

}  // namespace bkuk::gallery
