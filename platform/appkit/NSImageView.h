#pragma once

#include <cstdint>

#include "platform/appkit/NSControl.h"
#include "platform/appkit/drawing/NSImage.h"

namespace bkuk {

/// How an image that is larger or smaller than its place is fitted in.
enum class NSImageScaling : std::uint8_t {
  proportionallyDown = 0,  ///< made smaller where needed, never larger
  axesIndependently = 1,   ///< fills the place
  none = 2,
  proportionallyUpOrDown = 3,
};

enum class NSImageAlignment : std::uint8_t {
  center = 0,
  top = 1,
  topLeft = 2,
  topRight = 3,
  left = 4,
  bottom = 5,
  bottomLeft = 6,
  bottomRight = 7,
  right = 8,
};

/// Shows one image and takes no part in what its user does: presses go on to the view it lies in.
class NSImageView : public NSControl {
 public:
  using NSControl::NSControl;

  /// None at first. Held strongly and drawn by its own `draw`, so call `setNeedsDisplay` when it changes.
  [[nodiscard]] virtual Ref<NSImage> image() const { return image_; }
  virtual void setImage(Ref<NSImage> image);
  [[nodiscard]] NSImageScaling imageScaling() const { return scaling_; }
  void setImageScaling(NSImageScaling scaling);
  [[nodiscard]] NSImageAlignment imageAlignment() const { return alignment_; }
  void setImageAlignment(NSImageAlignment alignment);

  /// The image's size; none without an image.
  [[nodiscard]] NSSize intrinsicContentSize() const override;
  [[nodiscard]] bool acceptsFirstResponder() const override { return false; }
  void mouseDown(NSEvent& event) override;
  void draw(NSRect dirtyRect) override;

  /// An image with a label says something, one without is decoration.
  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] std::string className() const override { return "NSImageView"; }

 protected:
  void didInit() override;

 private:
  [[nodiscard]] NSRect placeFor(NSSize size) const;

  Ref<NSImage> image_;
  NSImageScaling scaling_ = NSImageScaling::proportionallyDown;
  NSImageAlignment alignment_ = NSImageAlignment::center;
};

}  // namespace bkuk
