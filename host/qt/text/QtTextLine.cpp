#include "host/qt/text/QtTextLine.h"

#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>

namespace bkuk::host {

namespace {

/// The glyphs that one font draws.
struct FontGlyphs {
  std::uint32_t face;
  double size;
  QList<quint32> indexes;
  QList<QPointF> positions;
};

FontGlyphs& glyphsOf(std::vector<FontGlyphs>& all, std::uint32_t face, double size) {
  const auto isTheirs = [&](const FontGlyphs& each) { return each.face == face && each.size == size; };
  // Mostly it is the last one's.
  const auto found = std::find_if(all.rbegin(), all.rend(), isTheirs);
  return found != all.rend() ? *found : all.emplace_back(FontGlyphs{face, size, {}, {}});
}

}  // namespace

std::shared_ptr<const TextLine> QtTextLine::part(std::size_t from, std::size_t to) const {
  const std::size_t end = std::min(to, content_->units.size());
  return std::make_shared<QtTextLine>(content_, width_, std::min(from, end), end);
}

Rect QtTextLine::inkBounds() const {
  QRectF ink;
  for (const auto& run : runs()) {
    const auto indexes = run.glyphIndexes();
    const auto positions = run.positions();
    const QRawFont font = run.rawFont();
    for (qsizetype i = 0; i < indexes.size(); ++i) {
      const QRectF outline = font.pathForGlyph(indexes[i]).boundingRect();
      if (!outline.isEmpty()) ink |= outline.translated(positions[i]);
    }
  }
  return {ink.x(), -ink.bottom(), ink.width(), ink.height()};
}

const QList<QGlyphRun>& QtTextLine::runs() const {
  if (!runs_) runs_ = std::make_unique<const QList<QGlyphRun>>(gathered());
  return *runs_;
}

// Calls `visit` for each glyph, with the font's face and size and its place in the line, until it answers
// false; whether it never did.
template <typename Visit>
bool QtTextLine::forEachGlyph(Visit visit) const {
  const std::size_t from = content_->start + from_;
  const std::size_t to = content_->start + to_;
  for (const auto& word : content_->words) {
    if (word.end() <= from || word.start >= to) continue;
    for (const auto& glyph : word.word->glyphs) {
      const std::size_t unit = word.start + glyph.unit;
      if (unit < from || unit >= to) continue;
      const double left = content_->units[unit - content_->start].x;
      const QPointF place(left + glyph.dx * word.size, glyph.y * word.size);
      if (!visit(glyph.face, word.size, glyph.index, place)) return false;
    }
  }
  return true;
}

QList<QGlyphRun> QtTextLine::gathered() const {
  std::vector<FontGlyphs> fonts;
  forEachGlyph([&](std::uint32_t face, double size, std::uint32_t index, const QPointF& place) {
    auto& glyphs = glyphsOf(fonts, face, size);
    glyphs.indexes.append(index);
    glyphs.positions.append(place);
    return true;
  });
  QList<QGlyphRun> runs;
  for (const auto& font : fonts) {
    QGlyphRun run;
    run.setRawFont(content_->rawFonts->at(font.face, font.size));
    run.setGlyphIndexes(font.indexes);
    run.setPositions(font.positions);
    runs.append(run);
  }
  return runs;
}

std::shared_ptr<const GlyphMasks> QtTextLine::masks(double scale, double x) const {
  if (masks_.scale != scale || masks_.x != x) masks_ = {scale, x, gatheredMasks(scale, x)};
  return masks_.masks;
}

std::shared_ptr<const GlyphMasks> QtTextLine::gatheredMasks(double scale, double x) const {
  // Nobody sees more of one line; where bitmaps end no place is as far as that.
  constexpr std::size_t mostUnits = 4096;
  constexpr double farthest = 1e6;
  if (to_ - from_ > mostUnits || !(scale > 0) || !(std::abs(x) + width_ * scale < farthest)) return nullptr;
  auto masks = std::make_shared<GlyphMasks>();
  masks->reserve(to_ - from_);
  const bool areAllMasks =
      forEachGlyph([&](std::uint32_t face, double size, std::uint32_t index, const QPointF& place) {
        const PenPlace pen(place.x() * scale + x, place.y() * scale);
        auto mask = content_->rawFonts->mask({face, index, size, scale, pen.quarter});
        if (mask && mask->width > 0) masks->push_back({mask, pen.x, pen.y});
        return mask != nullptr;
      });
  if (!areAllMasks) return nullptr;
  masks->shrink_to_fit();
  return masks;
}

}  // namespace bkuk::host
