#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/coregraphics/CubicCurve.h"

namespace bkuk {

/// A path laid out along its arc length: lines and curves cut into spans short enough to be measured well.
///
/// With a visible rectangle, spans that cannot touch it are marked as hidden and not cut further, and those
/// that touch it are cut until they are not much longer than it, so that work follows what can be seen.
class PathSpans {
 public:
  struct Span {
    std::size_t segment;  ///< index into `segments()`
    CGFloat from, to;     ///< parameters on the segment
    CGFloat length;
    bool isVisible;
  };
  /// One subpath that draws something, with the range of its spans.
  struct Subpath {
    std::size_t firstSpan, lastSpan;        ///< half open
    std::size_t firstElement, lastElement;  ///< half open, in the path that was laid out
    CGFloat length;
    bool isClosed;
  };

  explicit PathSpans(std::span<const CGPathElement> path,
                     const std::optional<CGRect>& visible = std::nullopt);

  [[nodiscard]] std::span<const CubicCurve> segments() const { return segments_; }
  [[nodiscard]] std::span<const Subpath> subpaths() const { return subpaths_; }
  [[nodiscard]] std::span<const Span> spans(const Subpath& subpath) const {
    return std::span(spans_).subspan(subpath.firstSpan, subpath.lastSpan - subpath.firstSpan);
  }
  [[nodiscard]] CGFloat length() const { return length_; }
  [[nodiscard]] CGFloat visibleLength() const { return visibleLength_; }

 private:
  void beginSubpath(std::size_t element);
  void endSubpath(std::size_t element);
  void add(const CubicCurve& segment);
  void addLineSpans(const CubicCurve& line);
  void addCurveSpans(const CubicCurve& curve, CGFloat from, CGFloat to, int depth);
  void addSpan(CGFloat from, CGFloat to, bool isVisible);

  std::optional<CGRect> visible_;
  std::vector<CubicCurve> segments_;
  std::vector<Span> spans_;
  std::vector<Subpath> subpaths_;
  CGFloat length_ = 0;
  CGFloat visibleLength_ = 0;
};

}  // namespace bkuk
