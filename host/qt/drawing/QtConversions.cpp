#include "host/qt/drawing/QtConversions.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace bkuk::host {

namespace {

float component(double value) {
  return std::isnan(value) ? 0 : static_cast<float>(std::clamp(value, 0.0, 1.0));
}

std::size_t pointCount(PathElement::Kind kind) {
  switch (kind) {
    case PathElement::Kind::move:
    case PathElement::Kind::line:
      return 1;
    case PathElement::Kind::quadCurve:
      return 2;
    case PathElement::Kind::curve:
      return 3;
    case PathElement::Kind::close:
      return 0;
  }
  return 0;
}

bool isFinite(const PathElement& element) {
  const std::span points(element.points, pointCount(element.kind));
  return std::ranges::all_of(points, [](Point point) { return host::isFinite(point); });
}

void append(QPainterPath& path, const PathElement& element) {
  const auto point = [&](std::size_t index) { return toQt(element.points[index]); };
  switch (element.kind) {
    case PathElement::Kind::move:
      return path.moveTo(point(0));
    case PathElement::Kind::line:
      return path.lineTo(point(0));
    case PathElement::Kind::quadCurve:
      return path.quadTo(point(0), point(1));
    case PathElement::Kind::curve:
      return path.cubicTo(point(0), point(1), point(2));
    case PathElement::Kind::close:
      return path.closeSubpath();
  }
}

constexpr int bytesPerPixel = 4;

}  // namespace

bool isFinite(Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isFinite(const Rect& rect) {
  return isFinite(Point{rect.x, rect.y}) && isFinite(Point{rect.width, rect.height});
}

bool isFinite(const Transform& t) {
  return isFinite(Point{t.a, t.b}) && isFinite(Point{t.c, t.d}) && isFinite(Point{t.tx, t.ty});
}

QTransform toQt(const Transform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

QColor toQt(const Rgba& color) {
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                          component(color.alpha));
}

std::optional<QPainterPath> toQt(Path path) {
  QPainterPath result;
  result.reserve(static_cast<int>(path.size()));
  for (const auto& element : path) {
    if (!isFinite(element)) return std::nullopt;
    append(result, element);
  }
  return result;
}

std::optional<QRectF> rectangleOf(Path path) {
  using Kind = PathElement::Kind;
  if (path.size() < 4 || path.size() > 5 || path[0].kind != Kind::move) return std::nullopt;
  if (path.size() == 5 && path[4].kind != Kind::close) return std::nullopt;
  const auto sides = path.subspan(1, 3);
  if (std::ranges::any_of(sides, [](const auto& side) { return side.kind != Kind::line; }))
    return std::nullopt;
  const Point a = path[0].points[0], b = path[1].points[0], c = path[2].points[0], d = path[3].points[0];
  const bool startsAcross = a.y == b.y && b.x == c.x && c.y == d.y && d.x == a.x;
  const bool startsDown = a.x == b.x && b.y == c.y && c.x == d.x && d.y == a.y;
  if (!startsAcross && !startsDown) return std::nullopt;
  return QRectF(toQt(a), toQt(c)).normalized();
}

std::vector<PathElement> fromQt(const QPainterPath& path) {
  std::vector<PathElement> result;
  for (int i = 0; i < path.elementCount(); ++i) {
    const auto at = [&](int index) { return Point{path.elementAt(index).x, path.elementAt(index).y}; };
    switch (path.elementAt(i).type) {
      case QPainterPath::MoveToElement:
        result.push_back({PathElement::Kind::move, {at(i)}});
        break;
      case QPainterPath::LineToElement:
        result.push_back({PathElement::Kind::line, {at(i)}});
        break;
      case QPainterPath::CurveToElement:
        result.push_back({PathElement::Kind::curve, {at(i), at(i + 1), at(i + 2)}});
        i += 2;
        break;
      case QPainterPath::CurveToDataElement:
        break;
    }
  }
  return result;
}

QImage sharedImage(Bitmap& bitmap) {
  const auto [width, height] = bitmap.size();
  return QImage(reinterpret_cast<uchar*>(bitmap.pixels()), width, height, qsizetype{width} * bytesPerPixel,
                QImage::Format_ARGB32_Premultiplied);
}

QImage sharedImage(const Bitmap& bitmap) {
  const auto [width, height] = bitmap.size();
  return QImage(reinterpret_cast<const uchar*>(bitmap.pixels()), width, height,
                qsizetype{width} * bytesPerPixel, QImage::Format_ARGB32_Premultiplied);
}

}  // namespace bkuk::host
