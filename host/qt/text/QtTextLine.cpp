#include "host/qt/text/QtTextLine.h"

#include <QtGui/QPainterPath>
#include <algorithm>

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

QList<QGlyphRun> QtTextLine::gathered() const {
  const std::size_t from = content_->start + from_;
  const std::size_t to = content_->start + to_;
  std::vector<FontGlyphs> fonts;
  for (const auto& word : content_->words) {
    if (word.end() <= from || word.start >= to) continue;
    for (const auto& glyph : word.word->glyphs) {
      const std::size_t unit = word.start + glyph.unit;
      if (unit < from || unit >= to) continue;
      auto& glyphs = glyphsOf(fonts, glyph.face, word.size);
      glyphs.indexes.append(glyph.index);
      const double left = content_->units[unit - content_->start].x;
      glyphs.positions.append({left + glyph.dx * word.size, glyph.y * word.size});
    }
  }
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

}  // namespace bkuk::host
