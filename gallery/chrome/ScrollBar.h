#pragma once

#include <functional>

#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// The bar beside something that scrolls up and down: its thumb shows which part is seen and is dragged to
/// see another; a press beside the thumb goes one part on. It hides where all is seen.
class ScrollBar : public NSView {
 public:
  static constexpr CGFloat width = 14;  ///< points

  /// Points.
  struct Extent {
    CGFloat content = 0;  ///< of all that there is
    CGFloat seen = 0;     ///< of the part that is seen
    CGFloat offset = 0;   ///< where that part begins
    [[nodiscard]] bool operator==(const Extent&) const = default;
  };
  /// Told where the user wants the part to begin, which may be outside of what there is.
  using Handler = std::function<void(CGFloat offset)>;

  explicit ScrollBar(Handler moved) : moved_(std::move(moved)) {}

  void show(const Extent& extent);

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool acceptsFirstMouse(NSEvent&) const override { return true; }
  /// The thumb is a part of this view, not one to be pressed itself.
  [[nodiscard]] Ref<NSView> hitTest(NSPoint point) override;
  void mouseEntered(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void mouseDown(NSEvent& event) override;
  void mouseDragged(NSEvent& event) override;
  void mouseUp(NSEvent& event) override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  void showActivity();
  /// Points of the track that the thumb can move by.
  [[nodiscard]] CGFloat travel() const;
  [[nodiscard]] CGFloat thumbLength() const;
  [[nodiscard]] CGFloat furthest() const { return extent_.content - extent_.seen; }
  [[nodiscard]] bool isActive() const { return isPointedAt_ || isDragged_; }

  Handler moved_;
  Extent extent_;
  Ref<Box> thumb_;
  bool isPointedAt_ = false;
  bool isDragged_ = false;
  CGFloat grip_ = 0;  // from the thumb's upper end to the pointer that holds it
};

}  // namespace bkuk::gallery
