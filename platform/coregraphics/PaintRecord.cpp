#include "platform/coregraphics/PaintRecord.h"

#include <cmath>
#include <utility>

#include "platform/coregraphics/HostConversions.h"

namespace bkuk {

namespace {

// What pieces may cover of the bitmap that they are instead of, more where they overlap.
constexpr long mostOfBitmap = 2;

// What a piece costs beside its pixels, in pixels.
constexpr long pieceCost = 16;

constexpr double farthest = 1e6;

bool isPixel(double coordinate) {
  constexpr double slack = 1e-6;
  return std::abs(coordinate) < farthest && std::abs(coordinate - std::round(coordinate)) <= slack;
}

int toPixel(double coordinate) { return static_cast<int>(std::lround(coordinate)); }

bool isUpright(const CGAffineTransform& t) {
  return t.b == 0 && t.c == 0 && t.a > 0 && t.a == t.d && std::abs(t.tx) < farthest && isPixel(t.ty);
}

long pixelsOf(const host::GlyphMasks& masks) {
  long pixels = 0;
  for (const auto& each : masks) pixels += long{each.mask->width} * each.mask->height;
  return pixels;
}

}  // namespace

PaintRecord::PaintRecord(host::PixelSize size) : room_(mostOfBitmap * size.width * size.height) {}

bool PaintRecord::hasRoomFor(long pixels) {
  if (pixels + pieceCost > room_) return false;
  room_ -= pixels + pieceCost;
  return true;
}

bool PaintRecord::addText(const std::shared_ptr<const host::TextLine>& line,
                          const CGAffineTransform& toDevice, const host::Rgba& color) {
  // Over what is opaque, hosts blend the glyphs of some faces in their own way.
  if (hasImages_ || !isUpright(toDevice)) return false;
  auto masks = line->masks(toDevice.a, toDevice.tx);
  if (!masks) return false;
  if (masks->empty()) return true;
  if (!hasRoomFor(pixelsOf(*masks))) return false;
  pieces_.emplace_back(PaintedText{std::move(masks), toPixel(toDevice.ty), color});
  sources_.push_back({line, toDevice});
  return true;
}

bool PaintRecord::addImage(const std::shared_ptr<const host::Bitmap>& image, const host::Rect& rect,
                           double alpha) {
  const auto [width, height] = image->size();
  const bool fits = isPixel(rect.x) && isPixel(rect.y) && isPixel(rect.x + rect.width - width) &&
                    isPixel(rect.y + rect.height - height) && toPixel(rect.width) == width &&
                    toPixel(rect.height) == height;
  if (!fits || !hasRoomFor(long{width} * height)) return false;
  hasImages_ = true;
  pieces_.emplace_back(PaintedImage{image, toPixel(rect.x), toPixel(rect.y), alpha});
  return true;
}

void PaintRecord::replay(host::Canvas& canvas) const {
  auto source = sources_.begin();
  for (const auto& piece : pieces_) {
    if (const auto* text = std::get_if<PaintedText>(&piece)) {
      replay(canvas, *text, *source++);
      continue;
    }
    const auto& image = std::get<PaintedImage>(piece);
    const auto [width, height] = image.image->size();
    canvas.setAlpha(image.alpha);
    canvas.drawBitmap(*image.image, {double(image.x), double(image.y), double(width), double(height)});
    canvas.setAlpha(1);
  }
}

void PaintRecord::replay(host::Canvas& canvas, const PaintedText& text, const Text& source) const {
  canvas.save();
  canvas.concatenate(toHost(source.toDevice));
  canvas.drawText(*source.line, {}, text.color);
  canvas.restore();
}

std::vector<PaintedPiece> PaintRecord::takePieces() {
  sources_.clear();
  pieces_.shrink_to_fit();
  return std::exchange(pieces_, {});
}

}  // namespace bkuk
