#include "platform/quartzcore/raster/PieceRaster.h"

#include "platform/quartzcore/raster/PixelRuns.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"

namespace bkuk {

void PieceRaster::paint(std::span<const PaintedPiece> pieces, int x, int y) const {
  for (const auto& piece : pieces) {
    std::visit([&](const auto& each) { paint(each, x, y); }, piece);
  }
}

void PieceRaster::paint(const PaintedText& text, int x, int y) const {
  const auto color = premultiplied(text.color);
  if (alphaOf(color) == 0) return;
  for (const auto& each : *text.masks) {
    paint(*each.mask, x + each.x + each.mask->left, y + text.baseline + each.y + each.mask->top, color);
  }
}

void PieceRaster::paint(const host::GlyphMask& mask, int x, int y, Pixel color) const {
  const auto area = intersect({x, y, mask.width, mask.height}, clip_);
  if (area.isEmpty()) return;
  const auto* coverage =
      mask.coverage.data() + static_cast<std::ptrdiff_t>(area.y - y) * mask.rowLength + (area.x - x);
  const auto& pixels = target_.area();
  // Whole rows are painted with what fills them up, which must be pixels of the image, be it of the next row.
  const bool isWhole =
      area.width == mask.width && (area.maxY() < pixels.maxY() || x + mask.rowLength <= pixels.maxX());
  const auto width = isWhole ? mask.rowLength : area.width;
  paintMask(target_.at(area.x, area.y), pixels.width, coverage, mask.rowLength, width, area.height, color);
}

void PieceRaster::paint(const PaintedImage& image, int x, int y) const {
  const auto& bitmap = *image.image;
  const PixelRect rect{x + image.x, y + image.y, bitmap.size().width, bitmap.size().height};
  RoundedBoxRaster(target_, clip_).image({rect, 0, 0}, bitmap, rect.x, rect.y, toByte(image.alpha));
}

}  // namespace bkuk
