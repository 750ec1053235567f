#include "platform/quartzcore/raster/RoundedBoxRaster.h"

#include "platform/quartzcore/raster/BoxCoverage.h"
#include "platform/quartzcore/raster/PixelRuns.h"

namespace bkuk {

namespace {

// Writes parts of one row of pixels, clipped, in one colour.
class ColorWriter {
 public:
  ColorWriter(const PixelTarget& target, const PixelRect& clip, Pixel color)
      : target_(target), clip_(clip), color_(color) {}

  void setRow(int y) { pixels_ = target_.at(clip_.x, y) - clip_.x; }

  void full(int minX, int maxX) const { paintOver(pixels_ + minX, maxX - minX, color_); }

  void partial(int x, std::uint8_t coverage) const {
    pixels_[x] = over(scaled(color_, coverage), pixels_[x]);
  }

 private:
  const PixelTarget& target_;
  const PixelRect& clip_;
  Pixel color_;
  Pixel* pixels_ = nullptr;
};

// As above, from an image.
class ImageWriter {
 public:
  struct Source {
    const host::Bitmap& image;
    int x;
    int y;
    std::uint32_t alpha;
  };

  ImageWriter(const PixelTarget& target, const PixelRect& clip, const Source& source)
      : target_(target), clip_(clip), source_(source) {}

  void setRow(int y) {
    pixels_ = target_.at(clip_.x, y) - clip_.x;
    image_ = source_.image.row(y - source_.y).data() - source_.x;
  }

  void full(int minX, int maxX) const {
    paintImage(pixels_ + minX, image_ + minX, maxX - minX, source_.alpha);
  }

  void partial(int x, std::uint8_t coverage) const {
    pixels_[x] = over(scaled(scaled(image_[x], coverage), source_.alpha), pixels_[x]);
  }

 private:
  const PixelTarget& target_;
  const PixelRect& clip_;
  Source source_;
  Pixel* pixels_ = nullptr;
  const Pixel* image_ = nullptr;
};

// Pixels of a row from `minX` to `maxX`, whose coverages start at `cells`.
void writeCells(const auto& writer, int minX, int maxX, const std::uint8_t* cells) {
  for (int x = minX; x < maxX;) {
    const auto coverage = cells[x - minX];
    if (coverage != 255) {
      if (coverage != 0) writer.partial(x, coverage);
      ++x;
      continue;
    }
    const auto start = x;
    while (x < maxX && cells[x - minX] == 255) ++x;
    writer.full(start, x);
  }
}

void writeCellsWithin(const auto& writer, const PixelRect& clip, int minX, int maxX,
                      const std::uint8_t* cells) {
  const auto start = std::max(minX, clip.x);
  writeCells(writer, start, std::min(maxX, clip.maxX()), cells + (start - minX));
}

void writeMiddle(const auto& writer, const PixelRect& clip, int minX, int maxX, std::uint8_t coverage) {
  minX = std::max(minX, clip.x);
  maxX = std::min(maxX, clip.maxX());
  if (coverage == 255 && minX < maxX) return writer.full(minX, maxX);
  if (coverage == 0) return;
  for (int x = minX; x < maxX; ++x) writer.partial(x, coverage);
}

// A row of the box between `minX` and `maxX`.
void writeRow(const auto& writer, const PixelRect& clip, int minX, int maxX, const BoxCoverage::Row& row) {
  if (row.isWhole) return writeMiddle(writer, clip, minX, maxX, 255);
  const auto leftEnd = minX + row.leftLength;
  const auto rightStart = maxX - row.rightLength;
  writeCellsWithin(writer, clip, minX, leftEnd, row.left);
  writeMiddle(writer, clip, leftEnd, rightStart, row.middle);
  writeCellsWithin(writer, clip, rightStart, maxX, row.rightEnd - row.rightLength);
}

void writeBox(auto& writer, const RoundedBox& box, int ringWidth, const PixelRect& clip) {
  const auto area = intersect(box.rect, clip);
  if (area.isEmpty()) return;
  static constexpr BoxCoverage::Row wholeRow;
  const bool isPlain = box.isPlain() && ringWidth == 0;
  const auto coverage = isPlain ? nullptr : BoxCoverage::of(box, ringWidth);
  for (int y = area.y; y < area.maxY(); ++y) {
    const auto& row = isPlain ? wholeRow : coverage->row(y - box.rect.y, box.rect.maxY() - 1 - y);
    writer.setRow(y);
    writeRow(writer, area, box.rect.x, box.rect.maxX(), row);
  }
}

}  // namespace

bool RoundedBoxRaster::canPaint(const RoundedBox& box, int ringWidth) {
  return box.radius <= BoxCoverage::mostPixels && ringWidth <= BoxCoverage::mostPixels;
}

void RoundedBoxRaster::fill(const RoundedBox& box, Pixel color) const {
  if (alphaOf(color) == 0) return;
  ColorWriter writer(target_, clip_, color);
  writeBox(writer, box, 0, clip_);
}

void RoundedBoxRaster::ring(const RoundedBox& box, int width, Pixel color) const {
  if (insideBorder(box, width).rect.isEmpty()) return fill(box, color);
  if (alphaOf(color) == 0 || width <= 0) return;
  ColorWriter writer(target_, clip_, color);
  writeBox(writer, box, width, clip_);
}

void RoundedBoxRaster::image(const RoundedBox& box, const host::Bitmap& image, int x, int y,
                             std::uint32_t alpha) const {
  const auto clip = intersect(clip_, {x, y, image.size().width, image.size().height});
  ImageWriter writer(target_, clip, {image, x, y, alpha});
  writeBox(writer, box, 0, clip);
}

}  // namespace bkuk
