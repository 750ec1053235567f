#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "host/Bitmap.h"
#include "platform/coregraphics/CGBlendMode.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/CGGradient.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/coregraphics/PaintedPiece.h"

namespace bkuk {

namespace host {
class TextLine;
}

class CanvasTarget;
class PaintRecord;

enum class CGPathDrawingMode { fill = 0, eoFill = 1, stroke = 2, fillStroke = 3, eoFillStroke = 4 };

/// Paints into a bitmap.
///
/// Three spaces meet here. User space is what the caller draws in. Base space is where user space starts
/// out: points with y up, whose size on the bitmap the owner gives by the base transform. Device space
/// counts the bitmap's pixels with y down. `ctm()` maps user to base space. Shadows live in base space.
///
/// Made and owned by whoever owns the bitmap, which must outlive the context. Drawing with coordinates
/// that are no finite numbers paints nothing. Main thread only.
class CGContext final : public NSObject {
 public:
  /// Called at most once, at the first operation that could reach a pixel. Answers the bitmap, or null when
  /// there is none, which drops everything painted.
  using BitmapProvider = std::function<host::Bitmap*()>;

  /// `base` maps base space to device space: with scale s and height h in points (s, 0, 0, −s, 0, s·h).
  CGContext(host::Bitmap& bitmap, const CGAffineTransform& base);
  /// For an owner who wants no bitmap when nothing is painted. `size` is the one that the provider's bitmap
  /// will have.
  CGContext(host::PixelSize size, BitmapProvider provider, const CGAffineTransform& base);
  ~CGContext() override;

  /// Whether an operation has reached the bitmap.
  [[nodiscard]] bool hasPainted() const;

  /// Asks for no bitmap as long as all that is painted is text and images on whole pixels, without clips,
  /// groups and shadows. To be called before anything is painted, by an owner who calls `finish`.
  void keepPieces();
  /// What was painted in place of a bitmap, from back to front; nothing once there is a bitmap. What is
  /// painted from now on is dropped.
  std::vector<PaintedPiece> finish();

  // State. The current path is not part of it.

  void saveGState();
  /// Ignored when nothing is saved.
  void restoreGState();

  [[nodiscard]] const CGAffineTransform& ctm() const;
  [[nodiscard]] CGAffineTransform userSpaceToDeviceSpaceTransform() const;
  /// User points go through `transform` first, then through the present one.
  void concatenate(const CGAffineTransform& transform);
  void translateBy(CGFloat x, CGFloat y);
  void scaleBy(CGFloat x, CGFloat y);
  void rotate(CGFloat angle);

  /// No colour paints nothing.
  void setFillColor(Ref<CGColor> color);
  void setStrokeColor(Ref<CGColor> color);
  [[nodiscard]] const Ref<CGColor>& fillColor() const;
  [[nodiscard]] const Ref<CGColor>& strokeColor() const;

  void setLineWidth(CGFloat width);
  void setLineCap(CGLineCap cap);
  void setLineJoin(CGLineJoin join);
  void setMiterLimit(CGFloat limit);
  /// As in `CGPath::copyDashingWithPhase`; no lengths make a solid line.
  void setLineDash(CGFloat phase, std::span<const CGFloat> lengths);

  /// Multiplies everything painted; replaces the alpha set before; cut to 0…1.
  void setAlpha(CGFloat alpha);
  [[nodiscard]] CGFloat alpha() const;
  void setBlendMode(CGBlendMode mode);
  /// Puts a shadow under everything painted from now on. `offset` and `blur` are in base space; the blur's
  /// standard deviation is half of `blur`. No colour means no shadow.
  void setShadow(CGSize offset, CGFloat blur, const Ref<CGColor>& color);

  // Path. What paints or clips with the current path leaves it empty.

  void beginPath();
  void closePath();
  void move(CGPoint to);
  void addLine(CGPoint to);
  void addQuadCurve(CGPoint to, CGPoint control);
  void addCurve(CGPoint to, CGPoint control1, CGPoint control2);
  void addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise);
  void addRect(const CGRect& rect);
  void addEllipse(const CGRect& rect);
  void addRoundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight);
  void addPath(const CGPath& path);
  [[nodiscard]] bool isPathEmpty() const;

  void fillPath(CGPathFillRule rule = CGPathFillRule::winding);
  void strokePath();
  void drawPath(CGPathDrawingMode mode);
  void fill(const CGRect& rect);
  /// Intersects the clip with the current path.
  void clip(CGPathFillRule rule = CGPathFillRule::winding);
  /// Intersects the clip with the rectangle.
  void clip(const CGRect& rect);
  /// The box around the clip in user space; null when nothing is left.
  [[nodiscard]] CGRect boundingBoxOfClipPath() const;

  // Gradients, images, text

  /// Paints over the whole clip between the two ends, and beyond them as `options` say.
  void drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end, unsigned options);
  void drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius,
                          CGPoint endCenter, CGFloat endRadius, unsigned options);
  /// The whole image in `rect`, its first row at the rectangle's greatest y.
  void drawBitmap(const host::Bitmap& image, const CGRect& rect);
  /// The same of pixels that do not change any more.
  void drawBitmap(const std::shared_ptr<const host::Bitmap>& image, const CGRect& rect);
  /// A shaped line, upright whichever way user space's y axis runs, with its baseline starting at `baseline`.
  /// The baseline snaps to whole device pixels unless the text is turned or slanted. `ink` holds everything
  /// that the line paints, seen from the start of the baseline with y up; it may be generous.
  void drawText(const std::shared_ptr<const host::TextLine>& line, const CGRect& ink, CGPoint baseline,
                const CGColor& color);

  // Groups

  /// Until the matching end everything is painted as one image, to which shadow, alpha and blend mode of now
  /// apply once. Inside, they start out as none, 1 and normal. Saves the state. From the 33rd level on,
  /// groups paint straight through instead.
  void beginTransparencyLayer();
  /// Restores the state. Ignored without a beginning.
  void endTransparencyLayer();

  // Flags. An effect needs both its "allows", which is not part of the saved state, and its "should".

  void setAllowsAntialiasing(bool allows);
  void setShouldAntialias(bool should);
  void setAllowsFontSmoothing(bool allows);
  void setShouldSmoothFonts(bool should);
  void setAllowsFontSubpixelPositioning(bool allows);
  void setShouldSubpixelPositionFonts(bool should);
  void setAllowsFontSubpixelQuantization(bool allows);
  void setShouldSubpixelQuantizeFonts(bool should);
  [[nodiscard]] bool allowsAntialiasing() const { return allows_.antialias; }
  [[nodiscard]] bool shouldAntialias() const;
  [[nodiscard]] bool allowsFontSmoothing() const { return allows_.smoothFonts; }
  [[nodiscard]] bool shouldSmoothFonts() const;
  [[nodiscard]] bool allowsFontSubpixelPositioning() const { return allows_.positionFonts; }
  [[nodiscard]] bool shouldSubpixelPositionFonts() const;
  [[nodiscard]] bool allowsFontSubpixelQuantization() const { return allows_.quantizeFonts; }
  [[nodiscard]] bool shouldSubpixelQuantizeFonts() const;

  [[nodiscard]] std::string className() const override { return "CGContext"; }

 private:
  struct Flags {
    bool antialias = true;
    bool smoothFonts = true;
    bool positionFonts = true;
    bool quantizeFonts = true;
  };
  struct Shadow {
    CGSize offset;
    CGFloat blur = 0;
    Ref<CGColor> color;
  };
  struct State;
  struct Group;
  struct Pen;

  [[nodiscard]] State& state();
  [[nodiscard]] const State& state() const;
  [[nodiscard]] CanvasTarget& target();

  [[nodiscard]] bool paintsNothing(const CGColor* color) const;
  [[nodiscard]] PaintRecord* recordFor(const CGRect& box);
  template <typename Draw>
  void paint(const CGRect& box, Draw draw);
  template <typename Draw>
  void paintShadow(const CGRect& box, Draw draw);
  [[nodiscard]] double shadowSigma() const;
  [[nodiscard]] CGRect relevantBox() const;

  void fillCurrentPath(CGPathFillRule rule);
  void clipCurrentPath(CGPathFillRule rule);
  void strokeCurrentPath();
  void strokeAlong(const CGPath& line, const Pen& pen);
  [[nodiscard]] host::Stroke strokeFor(const Pen& pen) const;
  [[nodiscard]] const CGPath& withOpenedDots(const CGPath& line, const Pen& pen);
  [[nodiscard]] const CGPath& dashed(const CGPath& line, const Pen& pen, CGFloat reach);
  void paintGradient(host::Gradient gradient, const CGGradient& colors, unsigned options);
  [[nodiscard]] CGAffineTransform imageToDevice(const CGRect& rect) const;
  [[nodiscard]] CGAffineTransform textToDevice(CGPoint baseline) const;
  void beginOwnImage(host::Bitmap& image);

  CGAffineTransform base_;
  std::vector<State> states_;
  std::vector<std::unique_ptr<CanvasTarget>> targets_;
  std::vector<Group> groups_;
  Ref<CGMutablePath> path_;  // in device space
  Flags allows_;
  // Reused from one operation to the next, so that painting need not allocate.
  std::vector<host::PathElement> hostPath_;
  Ref<CGMutablePath> userPath_;
  Ref<CGMutablePath> opened_;
  Ref<CGMutablePath> dashes_;
};

}  // namespace bkuk
