#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "BrenvikUIKit/drawing/BKUKFillRule.h"
#include "BrenvikUIKit/drawing/BKUKLineStyle.h"
#include "platform/quartzcore/CAShapeLayer.h"

namespace bkuk {

class BKUKShapeLayer;

/// The geometry of a shape layer, computed from its bounds each time it displays.
///
/// The layer owns the shape, which does nothing without it: every member that needs a layer that is gone
/// traps. Computables are callbacks that get the shape, read its `bounds` and may change anything but the
/// shape's marks: what they mark is taken as dealt with when the update ends. Colours become what they are at
/// the moment of the call, so whoever owns a shape applies its style again when the appearance changes.
///
/// Lengths are in points. Main thread only.
class BKUKShape final : public NSObject {
 public:
  using ComputablePath = std::function<Ref<CGPath>(BKUKShape& shape)>;  ///< may answer no path
  using ComputableLength = std::function<CGFloat(BKUKShape& shape)>;
  using ComputableFrame = std::function<CGRect(BKUKShape& shape)>;

  explicit BKUKShape(BKUKShapeLayer& layer);

  /// Empty once the layer is gone.
  [[nodiscard]] Ref<BKUKShapeLayer> layer() const;

  // Dashes. Setters mark the shape and ask the layer to display.

  /// As given, dash first; what is drawn is fitted to the path's length.
  [[nodiscard]] const std::optional<std::vector<CGFloat>>& linePattern() const { return linePattern_; }
  void setLinePattern(std::optional<std::vector<CGFloat>> pattern);
  /// `resizeSpaceBetweenPatterns` at first.
  [[nodiscard]] BKUKLinePatternModification linePatternModification() const { return modification_; }
  void setLinePatternModification(BKUKLinePatternModification modification);
  /// Whether the path is closed, so that the pattern goes around without a break; false at first.
  [[nodiscard]] bool pathLoops() const { return pathLoops_; }
  void setPathLoops(bool loops);
  /// At most so many patterns on the path; absent at first, for as many as fit.
  [[nodiscard]] std::optional<std::int64_t> linePatternCount() const { return linePatternCount_; }
  void setLinePatternCount(std::optional<std::int64_t> count);

  // Computables, absent at first. Setters mark the shape and ask the layer to display.

  /// Without a path from here, the layer's path and dashes are left alone.
  [[nodiscard]] const ComputablePath& path() const { return path_; }
  void setPath(ComputablePath path);
  /// How long the path is; without it the line pattern is used as given.
  [[nodiscard]] const ComputableLength& pathLength() const { return pathLength_; }
  void setPathLength(ComputableLength length);
  [[nodiscard]] const ComputableLength& cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(ComputableLength radius);
  /// The layer's frame; called before everything else, while `bounds` are still those of the update before.
  [[nodiscard]] const ComputableFrame& frame() const { return frame_; }
  void setFrame(ComputableFrame frame);

  /// The shape whose layer masks this one's, or none.
  [[nodiscard]] const Ref<BKUKShape>& mask() const { return mask_; }
  void setMask(Ref<BKUKShape> mask);
  /// At which scale the layer is kept as a bitmap; absent for not at all.
  [[nodiscard]] std::optional<CGFloat> rasterizationScale() const { return rasterizationScale_; }
  void setRasterizationScale(std::optional<CGFloat> scale);

  // The layer's own properties. They mark nothing.

  [[nodiscard]] Ref<NSColor> strokeColor() const;
  void setStrokeColor(const Ref<NSColor>& color);
  [[nodiscard]] CGFloat lineWidth() const;
  void setLineWidth(CGFloat width);
  [[nodiscard]] CGLineCap lineCap() const;
  /// A cap or join that does not exist is a fatal error, here and below.
  void setLineCap(CGLineCap cap);
  [[nodiscard]] CGLineJoin lineJoin() const;
  void setLineJoin(CGLineJoin join);
  [[nodiscard]] BKUKFillRule fillRule() const;
  void setFillRule(BKUKFillRule rule);
  [[nodiscard]] CATransform3D transform() const;
  void setTransform(const CATransform3D& transform);
  [[nodiscard]] CGFloat shadowRadius() const;
  void setShadowRadius(CGFloat radius);
  [[nodiscard]] CGSize shadowOffset() const;
  void setShadowOffset(CGSize offset);
  [[nodiscard]] CGFloat opacity() const;
  void setOpacity(CGFloat opacity);

  // Several at once. An absent colour takes away what it would paint.

  /// The pattern marks the shape.
  void setStroke(const Ref<NSColor>& color, CGFloat width, CGLineCap cap, CGLineJoin join,
                 std::optional<std::vector<CGFloat>> pattern, CGFloat phase);
  void setShadow(const Ref<NSColor>& color, CGFloat radius, CGSize offset, CGFloat opacity);
  void setBorder(const Ref<NSColor>& color, CGFloat width);
  /// The style's stroke with mitred joins, and how its pattern is fitted.
  void applyStroke(const BKUKLineStyle& fromStyle);
  /// The style's stroke and shadow.
  void apply(const BKUKLineStyle& style);

  // What the layer shows at this moment of its animations.

  [[nodiscard]] CGRect presentedBounds() const;
  [[nodiscard]] Ref<CGPath> presentedPath() const;
  [[nodiscard]] CGFloat presentedWidth() const;
  [[nodiscard]] std::optional<std::vector<CGFloat>> presentedPattern() const;
  [[nodiscard]] CGFloat presentedPhase() const;
  [[nodiscard]] CGFloat presentedStrokeStart() const;
  [[nodiscard]] CGFloat presentedStrokeEnd() const;
  /// The bounds of the superlayer; zero without one.
  [[nodiscard]] CGRect containerBounds() const;

  // Updating

  /// The layer's bounds for which the computables were evaluated last; zero at first.
  [[nodiscard]] const CGRect& bounds() const { return bounds_; }
  /// Whether the next update evaluates the computables although the bounds are the same; true at first.
  [[nodiscard]] bool needsUpdateComputable() const { return needsUpdateComputable_; }
  void setNeedsUpdateComputables() { needsUpdateComputable_ = true; }
  /// Gives the layer its frame and, where the shape is marked or the bounds are other ones, its corner
  /// radius, path and dashes, all without animation. Called by the layer when it displays.
  void updateComputables();

  [[nodiscard]] std::string className() const override { return "BKUKShape"; }

 private:
  friend class BKUKShapeLayer;

  [[nodiscard]] Ref<BKUKShapeLayer> presentLayer() const;
  [[nodiscard]] CAValue presentedValue(std::string_view key) const;
  [[nodiscard]] CGFloat presentedNumber(std::string_view key) const;
  [[nodiscard]] std::optional<std::vector<CGFloat>> fittedPattern();
  void updateGeometry(BKUKShapeLayer& layer);
  void geometryDidChange();

  Weak<BKUKShapeLayer> layer_;
  std::optional<std::vector<CGFloat>> linePattern_;
  BKUKLinePatternModification modification_ = BKUKLinePatternModification::resizeSpaceBetweenPatterns;
  bool pathLoops_ = false;
  bool needsUpdateComputable_ = true;
  std::optional<std::int64_t> linePatternCount_;
  std::optional<CGFloat> rasterizationScale_;
  ComputablePath path_;
  ComputableLength pathLength_;
  ComputableLength cornerRadius_;
  ComputableFrame frame_;
  Ref<BKUKShape> mask_;
  CGRect bounds_;
};

}  // namespace bkuk
