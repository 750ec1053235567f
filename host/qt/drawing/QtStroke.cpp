#include "host/qt/drawing/QtStroke.h"

#include <QtGui/QPainterPathStroker>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace bkuk::host {

namespace {

Qt::PenCapStyle capStyle(LineCap cap) {
  switch (cap) {
    case LineCap::butt:
      return Qt::FlatCap;
    case LineCap::round:
      return Qt::RoundCap;
    case LineCap::square:
      return Qt::SquareCap;
  }
  return Qt::FlatCap;
}

Qt::PenJoinStyle joinStyle(LineJoin join) {
  switch (join) {
    case LineJoin::miter:
      // The plain miter join cuts long tips short instead of bevelling them.
      return Qt::SvgMiterJoin;
    case LineJoin::round:
      return Qt::RoundJoin;
    case LineJoin::bevel:
      return Qt::BevelJoin;
  }
  return Qt::SvgMiterJoin;
}

// No more than the length of the path, and far cheaper to know.
double extentOf(const QPainterPath& path) {
  double length = 0;
  for (int i = 1; i < path.elementCount(); ++i) {
    const QPointF step = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
    length += std::hypot(step.x(), step.y());
  }
  return length;
}

template <typename Lengths>
double sumOf(const Lengths& lengths) {
  return std::accumulate(lengths.begin(), lengths.end(), 0.0);
}

// The distance of the phase from 0, whichever way it shifts.
double phaseOf(const Stroke& stroke) {
  constexpr double farthest = 1e6;
  return std::isnan(stroke.dashPhase) ? 0 : std::min(std::abs(stroke.dashPhase), farthest);
}

bool isUsable(std::span<const double> dashes) {
  const double sum = sumOf(dashes);
  return !dashes.empty() && !std::isnan(sum) && sum > 0;
}

// The shortest dash of an otherwise usable pattern that keeps its caps.
constexpr double dotLength = 0.001;

// A pattern in units of the pen's width, empty for a solid line. A pattern too fine for the path, which
// nobody could tell from a solid line, would take forever to draw.
QList<qreal> dashPattern(const Stroke& stroke, double extent) {
  constexpr double maximumDashes = 20000;
  if (!isUsable(stroke.dashes)) return {};
  const double longest = extent + stroke.width + phaseOf(stroke);
  QList<qreal> pattern;
  for (const double dash : stroke.dashes) {
    const double length = std::clamp(dash, 0.0, longest);
    const bool isDot = pattern.size() % 2 == 0 && length == 0 && stroke.cap != LineCap::butt;
    pattern.append(isDot ? dotLength : length / stroke.width);
  }
  if (pattern.size() % 2 != 0) pattern.append(QList<qreal>(pattern));
  const double periods = extent / stroke.width / sumOf(pattern);
  return periods * static_cast<double>(pattern.size()) > maximumDashes ? QList<qreal>() : pattern;
}

// From 0 to one period of the pattern, in units of the pen's width.
double dashOffset(const Stroke& stroke, const QList<qreal>& pattern) {
  const double period = sumOf(pattern);
  const double offset = std::fmod(phaseOf(stroke) / stroke.width, period);
  return stroke.dashPhase < 0 ? period - offset : offset;
}

bool isUsable(const Stroke& stroke) { return std::isfinite(stroke.width) && stroke.width > 0; }

double miterLimit(const Stroke& stroke) {
  return std::isnan(stroke.miterLimit) ? 10 : std::clamp(stroke.miterLimit, 1.0, 1e4);
}

}  // namespace

std::optional<QPen> penFor(const Stroke& stroke, const QPainterPath& path) {
  if (!isUsable(stroke)) return std::nullopt;
  QPen pen(Qt::black, stroke.width, Qt::SolidLine, capStyle(stroke.cap), joinStyle(stroke.join));
  pen.setMiterLimit(miterLimit(stroke));
  const auto pattern = dashPattern(stroke, extentOf(path));
  if (pattern.isEmpty()) return pen;
  pen.setDashPattern(pattern);
  pen.setDashOffset(dashOffset(stroke, pattern));
  return pen;
}

QPainterPath strokeOutline(const Stroke& stroke, const QPainterPath& path) {
  const auto pen = penFor(stroke, path);
  if (!pen) return {};
  QPainterPathStroker stroker(*pen);
  stroker.setCurveThreshold(0.05);
  return stroker.createStroke(path);
}

}  // namespace bkuk::host
