#pragma once

#include <cstdint>

#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

/// The frames of an animation as a bar that fills up, with a mark below for every frame that calls the block
/// and a stronger one for every phase.
class FrameTrack : public NSView {
 public:
  struct Frames {
    std::uint32_t count = 1;     ///< that fill the bar
    std::uint32_t starting = 0;  ///< the first that may call
    std::uint32_t spacing = 1;   ///< those that call are multiples of it
    bool isEndless = false;      ///< has neither middle nor end
  };

  explicit FrameTrack(Frames frames) : frames_(frames) {}

  /// Fills the bar up to that frame.
  void showFrame(std::uint32_t frame);

  [[nodiscard]] bool isFlipped() const override { return true; }
  void draw(NSRect dirtyRect) override;
  void layout() override;
  void viewDidMoveToWindow() override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override { return double(frame_); }
  [[nodiscard]] NSAccessibilityValue accessibilityMinValue() const override { return 0.0; }
  [[nodiscard]] NSAccessibilityValue accessibilityMaxValue() const override { return double(frames_.count); }
  void viewDidChangeEffectiveAppearance() override;

 private:
  [[nodiscard]] CGFloat positionOf(std::uint32_t frame) const;
  [[nodiscard]] bool calls(std::uint32_t frame) const;
  [[nodiscard]] bool hasPhase(std::uint32_t frame) const;
  void drawMark(std::uint32_t frame, CGFloat width) const;
  void placeFill();

  Frames frames_;
  std::uint32_t frame_ = 0;
  Ref<CALayer> fill_ = make<CALayer>();
};

}  // namespace bkuk::gallery
