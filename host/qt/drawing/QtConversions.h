#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>
#include <optional>

#include "host/Bitmap.h"
#include "host/Canvas.h"
#include "host/Geometry.h"
#include "host/Rgba.h"

namespace bkuk::host {

[[nodiscard]] bool isFinite(Point point);
[[nodiscard]] bool isFinite(const Rect& rect);
[[nodiscard]] bool isFinite(const Transform& transform);

[[nodiscard]] inline QPointF toQt(Point point) { return {point.x, point.y}; }
[[nodiscard]] inline QRectF toQt(const Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }
[[nodiscard]] QTransform toQt(const Transform& transform);
/// Components outside 0 to 1 are cut off, those that are no numbers count as 0.
[[nodiscard]] QColor toQt(const Rgba& color);

/// Absent when a coordinate is not finite.
[[nodiscard]] std::optional<QPainterPath> toQt(Path path);
/// The axis-parallel rectangle that `path` outlines, absent for any other shape.
[[nodiscard]] std::optional<QRectF> rectangleOf(Path path);
[[nodiscard]] std::vector<PathElement> fromQt(const QPainterPath& path);

[[nodiscard]] inline Rect fromQt(const QRect& rect) {
  return {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())};
}

/// Images that share the pixels of `bitmap` and must not outlive it. The second must only be read.
[[nodiscard]] QImage sharedImage(Bitmap& bitmap);
[[nodiscard]] QImage sharedImage(const Bitmap& bitmap);

}  // namespace bkuk::host
