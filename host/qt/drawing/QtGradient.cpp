#include "host/qt/drawing/QtGradient.h"

#include <QtGui/QGradient>
#include <QtGui/QPolygonF>
#include <algorithm>
#include <cmath>

#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

namespace {

bool isUsable(const Gradient& gradient) {
  return !gradient.stops.empty() && isFinite(gradient.start) && isFinite(gradient.end) &&
         std::isfinite(gradient.startRadius) && std::isfinite(gradient.endRadius) &&
         gradient.startRadius >= 0 && gradient.endRadius >= 0;
}

bool isLinear(const Gradient& gradient) { return gradient.kind == Gradient::Kind::linear; }

bool hasNoLength(const Gradient& gradient) {
  return gradient.start == gradient.end && (isLinear(gradient) || gradient.startRadius == gradient.endRadius);
}

// Qt keeps one colour for each location, so those of a hard edge are set apart by a hair.
QGradientStops stopsOf(const Gradient& gradient) {
  constexpr double hair = 1e-9;
  const auto count = static_cast<double>(gradient.stops.size());
  QGradientStops stops;
  double last = 0;
  for (const auto& stop : gradient.stops) {
    if (!std::isnan(stop.location)) last = std::clamp(stop.location, last, 1.0);
    stops.emplace_back(last * (1 - count * hair) + static_cast<double>(stops.size()) * hair,
                       toQt(stop.color));
  }
  return stops;
}

// With both ends in one place nothing lies between them, and of two extensions the one after is on top.
std::optional<QBrush> endColor(const Gradient& gradient) {
  if (gradient.extendsAfter) return QBrush(toQt(gradient.stops.back().color));
  if (gradient.extendsBefore) return QBrush(toQt(gradient.stops.front().color));
  return std::nullopt;
}

QPainterPath circle(Point center, double radius) {
  QPainterPath path;
  path.addEllipse(toQt(center), radius, radius);
  return path;
}

// The slab between the lines through both ends, drawn out as far as the area reaches where it extends.
QPainterPath slab(const Gradient& gradient, const QRectF& area) {
  const QPointF start = toQt(gradient.start);
  const QPointF axis = toQt(gradient.end) - start;
  const double length = std::hypot(axis.x(), axis.y());
  const QPointF along = axis / length;
  const QPointF across(-along.y(), along.x());
  const QPointF away = area.center() - start;
  const double reach = std::hypot(away.x(), away.y()) + std::hypot(area.width(), area.height()) + length;
  const QPointF first = gradient.extendsBefore ? start - along * reach : start;
  const QPointF last = gradient.extendsAfter ? start + along * reach : start + axis;
  QPainterPath path;
  path.addPolygon(QPolygonF(
      {first - across * reach, first + across * reach, last + across * reach, last - across * reach}));
  path.closeSubpath();
  return path;
}

// Between the two circles, without the one that the gradient does not extend into or beyond.
QPainterPath ring(const Gradient& gradient, const QRectF& area) {
  const bool grows = gradient.endRadius >= gradient.startRadius;
  const bool fillsInside = grows ? gradient.extendsBefore : gradient.extendsAfter;
  const bool fillsOutside = grows ? gradient.extendsAfter : gradient.extendsBefore;
  const auto start = circle(gradient.start, gradient.startRadius);
  const auto end = circle(gradient.end, gradient.endRadius);
  QPainterPath path;
  if (fillsOutside) {
    path.addRect(area);
  } else {
    path.addPath(grows ? end : start);
  }
  if (!fillsInside) path.addPath(grows ? start : end);
  path.setFillRule(Qt::OddEvenFill);
  return path;
}

}  // namespace

std::optional<QBrush> gradientBrush(const Gradient& gradient) {
  if (!isUsable(gradient)) return std::nullopt;
  if (hasNoLength(gradient)) return endColor(gradient);
  const auto finish = [&](QGradient&& result) {
    result.setInterpolationMode(QGradient::ComponentInterpolation);
    result.setStops(stopsOf(gradient));
    return QBrush(result);
  };
  if (isLinear(gradient)) return finish(QLinearGradient(toQt(gradient.start), toQt(gradient.end)));
  return finish(
      QRadialGradient(toQt(gradient.end), gradient.endRadius, toQt(gradient.start), gradient.startRadius));
}

std::optional<QPainterPath> gradientExtent(const Gradient& gradient, const QRectF& area) {
  if ((gradient.extendsBefore && gradient.extendsAfter) || hasNoLength(gradient)) return std::nullopt;
  return isLinear(gradient) ? slab(gradient, area) : ring(gradient, area);
}

}  // namespace bkuk::host
