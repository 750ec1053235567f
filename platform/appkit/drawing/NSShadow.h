#pragma once

#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSColor;

/// How a shadow looks: where it falls, how soft it is and its colour.
class NSShadow final : public NSObject {
 public:
  NSShadow();

  /// Points, y up whichever way the drawing runs; zero at first.
  [[nodiscard]] CGSize shadowOffset() const { return offset_; }
  void setShadowOffset(CGSize offset) { offset_ = offset; }
  /// Points; 0, a hard edge, at first.
  [[nodiscard]] CGFloat shadowBlurRadius() const { return blurRadius_; }
  void setShadowBlurRadius(CGFloat radius) { blurRadius_ = radius; }
  /// Black with a third of alpha at first; none paints no shadow.
  [[nodiscard]] const Ref<NSColor>& shadowColor() const { return color_; }
  void setShadowColor(Ref<NSColor> color);

  /// Puts the shadow under everything that is drawn from now on into the current graphics context; without
  /// one, nothing happens.
  void set() const;

  [[nodiscard]] Ref<NSShadow> copy() const;

  [[nodiscard]] std::string className() const override { return "NSShadow"; }

 private:
  CGSize offset_;
  CGFloat blurRadius_ = 0;
  Ref<NSColor> color_;
};

}  // namespace bkuk
