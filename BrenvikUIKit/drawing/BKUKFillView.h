#pragma once

#include <concepts>
#include <optional>
#include <vector>

#include "BrenvikUIKit/drawing/BKUKCornerSettings.h"
#include "BrenvikUIKit/drawing/BKUKFill.h"
#include "BrenvikUIKit/drawing/BKUKShadowSettings.h"
#include "platform/appkit/NSView.h"

namespace bkuk {

class NSCoder;

/// A background: a stack of fills under one corner radius, border and shadow. Subviews lie above the fills.
///
/// The view masks to its bounds, and so cuts off its own shadow unless its owner changes that on the layer.
/// Colours are resolved whenever the layer updates, which a change of the appearance causes.
class BKUKFillView : public NSView {
 public:
  class Style;
  /// What `Style::apply` replaces; what is absent stays as it is.
  struct Look {
    Ref<NSColor> background{};
    std::optional<BKUKCornerSettings> corner{};
    std::optional<unsigned> cornerMask{};  ///< a sum of `CACornerMask` bits
    Ref<NSColor> borderColor{};
    std::optional<CGFloat> borderWidth{};  ///< points
    std::optional<BKUKShadowSettings> shadow{};
  };

  explicit BKUKFillView(NSRect frame = {});
  /// Without a frame, with that look.
  explicit BKUKFillView(Look look);
  /// Not supported: it stops the process.
  [[noreturn]] static Ref<BKUKFillView> decoded(NSCoder& coder);

  /// Made on first use; lives as long as the view.
  [[nodiscard]] const Ref<Style>& privateStyle();

  /// Bottom to top.
  [[nodiscard]] const std::vector<BKUKFill>& fills() const { return fills_; }
  /// Makes a layer for each fill in place of those before.
  void setFills(std::vector<BKUKFill> fills);
  /// Holds one layer per fill, behind all subviews. A layer that is not of its fill's kind stops the process.
  [[nodiscard]] const Ref<CALayer>& fillsLayer() const { return fillsLayer_; }

  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;
  [[nodiscard]] std::string className() const override { return "BKUKFillView"; }

 protected:
  void didInit() override;

  /// Called once, by `privateStyle`. A subclass with a style of its own makes that.
  [[nodiscard]] virtual Ref<Style> makePrivateStyle();

 private:
  void refreshShadow();
  void configureFillLayers();
  void configure(CALayer& layer, const BKUKFill& fill);

  Ref<Style> style_;
  Ref<CALayer> fillsLayer_;
  std::vector<BKUKFill> fills_;
  std::optional<Look> initialLook_;  // between the constructor and `didInit`
};

/// How a fill view looks beside its fills. Each change shows in the view that it belongs to.
class BKUKFillView::Style : public NSObject {
 public:
  explicit Style(BKUKFillView& component);

  /// Empty once the view is gone.
  [[nodiscard]] Ref<BKUKFillView> component() const { return component_.lock(); }

  /// Clear at first, and without a colour.
  [[nodiscard]] const Ref<NSColor>& background() const { return background_; }
  void setBackground(Ref<NSColor> color) { apply({.background = orClear(std::move(color))}); }
  [[nodiscard]] const BKUKCornerSettings& corner() const { return corner_; }
  void setCorner(const BKUKCornerSettings& corner) { apply({.corner = corner}); }
  /// The corners of the view itself that are rounded, all at first; its fills round all of theirs.
  [[nodiscard]] unsigned cornerMask() const { return cornerMask_; }
  void setCornerMask(unsigned mask) { apply({.cornerMask = mask}); }
  /// Clear at first, and without a colour.
  [[nodiscard]] const Ref<NSColor>& borderColor() const { return borderColor_; }
  void setBorderColor(Ref<NSColor> color) { apply({.borderColor = orClear(std::move(color))}); }
  /// Points; 0 at first.
  [[nodiscard]] CGFloat borderWidth() const { return borderWidth_; }
  void setBorderWidth(CGFloat width) { apply({.borderWidth = width}); }
  [[nodiscard]] const BKUKShadowSettings& shadow() const { return shadow_; }
  void setShadow(BKUKShadowSettings shadow) { apply({.shadow = std::move(shadow)}); }

  void apply(const Look& look);

  [[nodiscard]] std::string className() const override { return "BKUKFillView.Style"; }

 private:
  [[nodiscard]] static Ref<NSColor> orClear(Ref<NSColor> color) {
    return color ? std::move(color) : NSColor::clear();
  }

  const Weak<BKUKFillView> component_;
  Ref<NSColor> background_ = NSColor::clear();
  BKUKCornerSettings corner_;
  unsigned cornerMask_ = CALayerAllCorners;
  Ref<NSColor> borderColor_ = NSColor::clear();
  CGFloat borderWidth_ = 0;
  BKUKShadowSettings shadow_;
};

/// Also takes the look in braces: `make<BKUKFillView>({.background = color})`.
template <std::derived_from<BKUKFillView> View>
requires std::constructible_from<View, const BKUKFillView::Look&>
[[nodiscard]] Ref<View> make(const BKUKFillView::Look& look) {
  return make<View, const BKUKFillView::Look&>(look);
}

}  // namespace bkuk
