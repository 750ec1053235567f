#include "host/qt/text/QtFont.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace bkuk::host {

namespace {

constexpr double maximumSize = 10000;

double usableSize(double size) { return std::isfinite(size) && size > 0 ? std::min(size, maximumSize) : 1; }

}  // namespace

QtFont::QtFont(std::shared_ptr<const QtFace> face, double size, std::shared_ptr<QtTextShaper> shaper)
    : face_(std::move(face)), size_(usableSize(size)), shaper_(std::move(shaper)) {}

std::uint32_t QtFont::glyph(char32_t character) const {
  const auto glyphs = face_->rawFont().glyphIndexesForString(QString::fromUcs4(&character, 1));
  return glyphs.isEmpty() ? 0 : glyphs.first();
}

double QtFont::advance(std::uint32_t glyph) const {
  const auto advances = face_->rawFont().advancesForGlyphIndexes({glyph}, QRawFont::UseDesignMetrics);
  return advances.isEmpty() ? 0 : advances.first().x() * size_ / QtFace::layoutSize;
}

std::shared_ptr<const TextLine> QtFont::shape(std::u16string_view text, TextDirection direction) const {
  const StyledRun run{text.size(), face_.get(), size_};
  return shaper_->paragraph(text, {&run, 1}, direction)->line(0, text.size());
}

}  // namespace bkuk::host
