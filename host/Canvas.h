#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "host/Bitmap.h"
#include "host/Geometry.h"
#include "host/Rgba.h"

namespace bkuk::host {

class TextLine;

enum class FillRule { winding, evenOdd };
enum class LineCap { butt, round, square };
enum class LineJoin { miter, round, bevel };

enum class BlendMode {
  normal,
  clear,
  copy,
  sourceIn,
  sourceOut,
  sourceAtop,
  destinationOver,
  destinationIn,
  destinationOut,
  destinationAtop,
  exclusiveOr,
};

/// One step of a path. `points` holds as many as the kind asks for, the end point last.
struct PathElement {
  enum class Kind : std::uint8_t { move, line, quadCurve, curve, close };
  Kind kind = Kind::move;
  Point points[3];
};

/// A path as the canvas takes it: elements in order, coordinates in the canvas's current user space.
using Path = std::span<const PathElement>;

struct Stroke {
  double width = 1;
  LineCap cap = LineCap::butt;
  LineJoin join = LineJoin::miter;
  double miterLimit = 10;
  double dashPhase = 0;
  std::span<const double> dashes{};  ///< in user space, dash first; empty means a solid line
};

struct GradientStop {
  double location = 0;  ///< 0 to 1, rising
  Rgba color{};
};

/// A gradient in user space. Colours are interpolated without premultiplication.
struct Gradient {
  enum class Kind { linear, radial };
  Kind kind = Kind::linear;
  Point start{};
  Point end{};
  double startRadius = 0;  ///< radial only
  double endRadius = 0;    ///< radial only
  bool extendsBefore = false;
  bool extendsAfter = false;
  std::span<const GradientStop> stops{};
};

/// Paints into one bitmap. The base space counts device pixels with y down; `concatenate` maps user
/// space onto it. Made by `Drawing::makeCanvas`; must not outlive its bitmap.
///
/// Coordinates that are not finite make the call that has them paint nothing.
class Canvas {
 public:
  virtual ~Canvas() = default;

  /// Transform, clip, alpha, blend mode and antialiasing are pushed and popped together.
  virtual void save() = 0;
  virtual void restore() = 0;

  /// User points go through `transform` first, then through what was there before.
  virtual void concatenate(const Transform& transform) = 0;
  virtual void setAlpha(double alpha) = 0;
  virtual void setBlendMode(BlendMode mode) = 0;
  virtual void setAntialias(bool on) = 0;

  virtual void fill(Path path, FillRule rule, const Rgba& color) = 0;
  virtual void fill(Path path, FillRule rule, const Gradient& gradient) = 0;
  /// Paints the gradient over the whole clip.
  virtual void paint(const Gradient& gradient) = 0;
  virtual void stroke(Path path, const Stroke& stroke, const Rgba& color) = 0;
  /// Intersects the clip, antialiased also for rectangles that end between pixels.
  virtual void clip(Path path, FillRule rule) = 0;

  /// Scales the whole of `image` into `target`. Pixels are copied unsmoothed when they fall on pixels.
  virtual void drawBitmap(const Bitmap& image, const Rect& target) = 0;

  /// Paints a line that this host shaped, its baseline starting at `origin`. Text stands upright
  /// where the user space's y axis runs down.
  virtual void drawText(const TextLine& line, Point origin, const Rgba& color) = 0;

  /// What is painted until the matching end is composed as one image, with the alpha and blend mode
  /// in force at the beginning.
  virtual void beginGroup() = 0;
  virtual void endGroup() = 0;

  /// The outline that a non-zero fill turns into the stroked path.
  [[nodiscard]] virtual std::vector<PathElement> outline(Path path, const Stroke& stroke) const = 0;
};

}  // namespace bkuk::host
