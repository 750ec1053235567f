#include "host/qt/text/GlyphAtlas.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QRawFont>
#include <algorithm>
#include <cmath>

namespace bkuk::host {

namespace {

// Qt counts places in these parts of a pixel, and cuts off what is less.
constexpr int fixedOne = 64;

// Around the outline's box, for what rounding adds.
constexpr int margin = 2;

struct Picture {
  QImage image;
  int left = 0;
  int top = 0;
};

QRect inkBox(const GlyphKey& key, const QRawFont& font) {
  const QRectF box = font.boundingRect(key.index);
  return QRectF(box.x() * key.scale, box.y() * key.scale, box.width() * key.scale, box.height() * key.scale)
      .toAlignedRect()
      .adjusted(-margin, -margin, margin + 1, margin);
}

Picture painted(const GlyphKey& key, const QRawFont& font) {
  const QRect box = inkBox(key, font);
  QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QGlyphRun run;
  run.setRawFont(font);
  run.setGlyphIndexes({key.index});
  run.setPositions({QPointF()});
  QPainter painter(&image);
  painter.setTransform({key.scale, 0, 0, key.scale, key.quarter / 4.0 - box.x(), -1.0 * box.y()});
  painter.setPen(Qt::black);
  painter.drawGlyphRun({}, run);
  return {image, box.x(), box.y()};
}

const QRgb* row(const QImage& image, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); }

// Around the pixels that are not transparent.
QRect usedPixels(const QImage& image) {
  QRect used;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(row(image, y)[x]) != 0) used |= QRect(x, y, 1, 1);
    }
  }
  return used;
}

GlyphMask maskOf(const Picture& picture) {
  const QRect used = usedPixels(picture.image);
  GlyphMask mask{picture.left + used.x(), picture.top + used.y(), used.width(), used.height(), 0, {}};
  constexpr int unit = GlyphMask::rowAlignment;
  mask.rowLength = (mask.width + unit - 1) / unit * unit;
  mask.coverage.resize(static_cast<std::size_t>(mask.rowLength) * static_cast<std::size_t>(mask.height));
  for (int y = 0; y < mask.height; ++y) {
    const QRgb* pixels = row(picture.image, used.y() + y) + used.x();
    std::transform(pixels, pixels + mask.width, mask.coverage.begin() + std::ptrdiff_t{y} * mask.rowLength,
                   [](QRgb pixel) { return static_cast<std::uint8_t>(qAlpha(pixel)); });
  }
  return mask;
}

}  // namespace

PenPlace::PenPlace(double exactX, double exactY) {
  // One part more, with which Qt makes up for what it cuts off.
  const int fixedX = static_cast<int>(exactX * fixedOne) + 1;
  x = fixedX >> 6;
  quarter = (fixedX >> 4) & 3;
  y = (static_cast<int>(std::floor(exactY * fixedOne)) + fixedOne / 2) >> 6;
}

bool GlyphAtlas::takes(double size, double scale) {
  constexpr double most = 63;
  return size * scale <= most;
}

std::shared_ptr<const GlyphMask> GlyphAtlas::find(const GlyphKey& key) {
  const auto* known = masks_.find(key);
  return known ? *known : nullptr;
}

std::shared_ptr<const GlyphMask> GlyphAtlas::add(const GlyphKey& key, const QRawFont& font) {
  return masks_.insert(key, std::make_shared<const GlyphMask>(maskOf(painted(key, font))));
}

std::size_t GlyphAtlas::Hash::operator()(const GlyphKey& key) const {
  const auto glyph =
      std::size_t{key.face} << 34 | std::size_t{key.index} << 2 | static_cast<unsigned>(key.quarter);
  return (glyph ^ std::hash<double>{}(key.size) ^ std::hash<double>{}(key.scale) * 31) * 0x9E3779B97F4A7C15;
}

}  // namespace bkuk::host
