#include "host/qt/drawing/QtCanvas.h"

#include <QtGui/QGlyphRun>
#include <algorithm>
#include <cmath>
#include <utility>

#include "host/qt/drawing/QtConversions.h"
#include "host/qt/drawing/QtGradient.h"
#include "host/qt/drawing/QtStroke.h"
#include "host/qt/text/QtTextLine.h"

namespace bkuk::host {

namespace {

QPainter::CompositionMode compositionMode(BlendMode mode) {
  switch (mode) {
    case BlendMode::normal:
      return QPainter::CompositionMode_SourceOver;
    case BlendMode::clear:
      return QPainter::CompositionMode_Clear;
    case BlendMode::copy:
      return QPainter::CompositionMode_Source;
    case BlendMode::sourceIn:
      return QPainter::CompositionMode_SourceIn;
    case BlendMode::sourceOut:
      return QPainter::CompositionMode_SourceOut;
    case BlendMode::sourceAtop:
      return QPainter::CompositionMode_SourceAtop;
    case BlendMode::destinationOver:
      return QPainter::CompositionMode_DestinationOver;
    case BlendMode::destinationIn:
      return QPainter::CompositionMode_DestinationIn;
    case BlendMode::destinationOut:
      return QPainter::CompositionMode_DestinationOut;
    case BlendMode::destinationAtop:
      return QPainter::CompositionMode_DestinationAtop;
    case BlendMode::exclusiveOr:
      return QPainter::CompositionMode_Xor;
  }
  return QPainter::CompositionMode_SourceOver;
}

Qt::FillRule fillRule(FillRule rule) { return rule == FillRule::winding ? Qt::WindingFill : Qt::OddEvenFill; }

bool isFinite(const QRectF& rect) { return isFinite(Rect{rect.x(), rect.y(), rect.width(), rect.height()}); }

// A bitmap without pixels gets a scratch pixel, so that painting needs no special case.
QImage paintDevice(Bitmap& bitmap) {
  return bitmap.isEmpty() ? QImage(1, 1, QImage::Format_ARGB32_Premultiplied) : sharedImage(bitmap);
}

QImage transparentImage(QSize size) {
  QImage image(size.expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

// The pixels that `rect` covers exactly, absent when its edges run between pixels or out of reach.
std::optional<QRect> wholePixels(const QRectF& rect) {
  constexpr double reach = 1e6;
  for (const double edge : {rect.left(), rect.top(), rect.right(), rect.bottom()}) {
    if (std::abs(edge) > reach || std::abs(edge - std::round(edge)) > 1e-6) return std::nullopt;
  }
  return rect.toRect();
}

// Qt snaps a clip that it knows for a rectangle to whole pixels. A vertex too many hides it.
QPainterPath disguised(const QRectF& rect) {
  QPainterPath path(rect.topLeft());
  path.lineTo(rect.center().x(), rect.top());
  path.lineTo(rect.topRight());
  path.lineTo(rect.bottomRight());
  path.lineTo(rect.bottomLeft());
  path.closeSubpath();
  return path;
}

}  // namespace

QtCanvas::Layer::Layer(QImage pixels, QPoint at) : image(std::move(pixels)), origin(at) {
  painter = std::make_unique<QPainter>(&image);
  painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void QtCanvas::Layer::finish() {
  for (; !savedPaints.empty(); savedPaints.pop_back()) painter->restore();
  painter->end();
}

QtCanvas::QtCanvas(Bitmap& bitmap) {
  layers_.push_back(std::make_unique<Layer>(paintDevice(bitmap), QPoint()));
}

QtCanvas::~QtCanvas() {
  for (const auto& open : layers_) open->finish();
}

void QtCanvas::save() {
  painter().save();
  layer().savedPaints.push_back(paints());
}

void QtCanvas::restore() {
  auto& saved = layer().savedPaints;
  if (saved.empty()) return;
  painter().restore();
  layer().paints = saved.back();
  saved.pop_back();
}

void QtCanvas::concatenate(const Transform& transform) {
  const auto combined = toQt(transform) * painter().worldTransform();
  const Transform result{combined.m11(), combined.m12(), combined.m21(),
                         combined.m22(), combined.dx(),  combined.dy()};
  layer().paints = paints() && isFinite(result) && combined.isInvertible();
  if (paints()) painter().setWorldTransform(combined);
}

void QtCanvas::setAlpha(double alpha) {
  painter().setOpacity(std::isnan(alpha) ? 0 : std::clamp(alpha, 0.0, 1.0));
}

void QtCanvas::setBlendMode(BlendMode mode) { painter().setCompositionMode(compositionMode(mode)); }

void QtCanvas::setAntialias(bool on) { painter().setRenderHint(QPainter::Antialiasing, on); }

std::optional<QPainterPath> QtCanvas::shape(Path path, FillRule rule) const {
  if (!paints()) return std::nullopt;
  auto result = toQt(path);
  if (!result || !isFinite(painter().worldTransform().mapRect(result->controlPointRect())))
    return std::nullopt;
  result->setFillRule(fillRule(rule));
  return result;
}

void QtCanvas::fill(Path path, FillRule rule, const Rgba& color) {
  const auto area = shape(path, rule);
  if (!area) return;
  if (const auto rect = rectangleOf(path)) {
    painter().fillRect(*rect, toQt(color));
  } else {
    painter().fillPath(*area, toQt(color));
  }
}

void QtCanvas::fill(Path path, FillRule rule, const Gradient& gradient) {
  if (const auto area = shape(path, rule)) fill(*area, gradient);
}

void QtCanvas::paint(const Gradient& gradient) {
  if (const auto everything = userBounds()) fill(*everything, gradient);
}

void QtCanvas::fill(const QPainterPath& area, const Gradient& gradient) {
  const auto brush = gradientBrush(gradient);
  if (!brush) return;
  const auto extent = gradientExtent(gradient, area.controlPointRect());
  if (!extent) return painter().fillPath(area, *brush);
  painter().save();
  painter().setClipPath(*extent, Qt::IntersectClip);
  painter().fillPath(area, *brush);
  painter().restore();
}

void QtCanvas::stroke(Path path, const Stroke& stroke, const Rgba& color) {
  const auto line = shape(path, FillRule::winding);
  if (!line) return;
  auto pen = penFor(stroke, *line);
  if (!pen) return;
  pen->setColor(toQt(color));
  painter().strokePath(*line, *pen);
}

void QtCanvas::clip(Path path, FillRule rule) {
  const auto area = shape(path, rule);
  if (!area || area->isEmpty()) return painter().setClipRect(QRect(), Qt::IntersectClip);
  const auto rect = rectangleOf(path);
  const auto transform = painter().worldTransform();
  if (!rect || transform.type() > QTransform::TxScale) return painter().setClipPath(*area, Qt::IntersectClip);
  painter().resetTransform();
  clipToDevice(transform.mapRect(*rect));
  painter().setWorldTransform(transform);
}

void QtCanvas::clipToDevice(const QRectF& rect) {
  const QRectF visible = rect.intersected(QRectF(layer().image.rect()).adjusted(-1, -1, 1, 1));
  if (const auto pixels = wholePixels(visible)) return painter().setClipRect(*pixels, Qt::IntersectClip);
  painter().setClipPath(disguised(visible), Qt::IntersectClip);
}

void QtCanvas::drawBitmap(const Bitmap& image, const Rect& target) {
  if (!paints() || image.isEmpty() || !isFinite(target)) return;
  const QImage source = sharedImage(image);
  const QRectF area = toQt(target);
  const auto transform = painter().worldTransform();
  const QRectF mapped = transform.mapRect(area);
  if (!isFinite(mapped)) return;
  const bool isUpright =
      transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
  const auto pixels = wholePixels(mapped);
  if (!isUpright || !pixels || pixels->size() != source.size()) return painter().drawImage(area, source);
  painter().resetTransform();
  painter().drawImage(pixels->topLeft(), source);
  painter().setWorldTransform(transform);
}

void QtCanvas::drawText(const TextLine& line, Point origin, const Rgba& color) {
  const QPointF mapped = painter().worldTransform().map(toQt(origin));
  if (!paints() || !isFinite(Point{mapped.x(), mapped.y()})) return;
  painter().setPen(toQt(color));
  for (const auto& run : static_cast<const QtTextLine&>(line).runs()) {
    painter().drawGlyphRun(toQt(origin), run);
  }
}

void QtCanvas::beginGroup() {
  const QRect bounds = clipBounds();
  const auto transform = painter().worldTransform();
  const bool antialias = painter().testRenderHint(QPainter::Antialiasing);
  const bool paintsHere = paints();
  layers_.push_back(std::make_unique<Layer>(transparentImage(bounds.size()), bounds.topLeft()));
  layer().paints = paintsHere;
  painter().setWorldTransform(transform * QTransform::fromTranslate(-bounds.x(), -bounds.y()));
  setAntialias(antialias);
}

void QtCanvas::endGroup() {
  if (layers_.size() == 1) return;
  const auto group = std::move(layers_.back());
  layers_.pop_back();
  group->finish();
  const auto transform = painter().worldTransform();
  painter().resetTransform();
  painter().drawImage(group->origin, group->image);
  painter().setWorldTransform(transform);
}

std::vector<PathElement> QtCanvas::outline(Path path, const Stroke& stroke) const {
  const auto line = toQt(path);
  return line ? fromQt(strokeOutline(stroke, *line)) : std::vector<PathElement>();
}

// The whole of the bitmap in user space.
std::optional<QPainterPath> QtCanvas::userBounds() const {
  if (!paints()) return std::nullopt;
  QPainterPath path;
  path.addRect(layer().image.rect());
  return painter().worldTransform().inverted().map(path);
}

// The device pixels that the clip may let through.
QRect QtCanvas::clipBounds() {
  const QRect all = layer().image.rect();
  if (!painter().hasClipping()) return all;
  const auto transform = painter().worldTransform();
  painter().resetTransform();
  const QRectF bounds = painter().clipBoundingRect();
  painter().setWorldTransform(transform);
  return bounds.toAlignedRect().intersected(all);
}

}  // namespace bkuk::host
