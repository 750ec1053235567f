#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk {

/// Shows in one window where the keyboard is: a ring around what the first responder of the key window
/// gives as its mask. Owned by its window, which asks for updates in its commit pass.
class FocusRing {
 public:
  /// How far the ring reaches beyond the mask, in points.
  static constexpr CGFloat ringWidth = 3;

  explicit FocusRing(NSWindow& window) : window_(window) {}

  void setNeedsUpdate() { isStale_ = true; }
  void firstResponderDidChange();
  /// The pointer gave the keyboard to the view. Whoever points at a control knows where it is, so nothing is
  /// shown before a key is pressed, unless the view is there to be typed into.
  void pointerDidChoose(NSView& view);
  void keyWasPressed();
  [[nodiscard]] bool needsUpdate() const { return isStale_; }
  void updateIfNeeded();

 private:
  /// The device pixels that the ring's image covers.
  struct Area;

  [[nodiscard]] Ref<NSView> viewToRing() const;
  void hide();
  void conceal();
  [[nodiscard]] bool show(NSView& view, const NSRect& mask);
  [[nodiscard]] host::Bitmap drawRing(NSView& view, const Area& area) const;

  NSWindow& window_;
  Weak<NSView> view_;
  Weak<NSView> chosenByPointer_;
  Ref<CALayer> layer_;
  bool isStale_ = true;
};

}  // namespace bkuk
