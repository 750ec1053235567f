#include "platform/quartzcore/raster/ShadowMask.h"

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/GaussianBlur.h"
#include "platform/foundation/Weak.h"
#include "platform/quartzcore/raster/PixelRuns.h"
#include "platform/quartzcore/raster/RecentlyUsed.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"
#include "platform/quartzcore/raster/TiledPainting.h"

namespace bkuk {

namespace {

using SharedMask = std::shared_ptr<const ShadowMask>;

constexpr std::size_t mostBytesOfBoxes = 8 << 20;
constexpr std::size_t mostBytesOfPaths = 8 << 20;
constexpr Pixel opaque = 0xff000000;

PixelRect grown(const PixelRect& rect, int distance) {
  return {rect.x - distance, rect.y - distance, rect.width + 2 * distance, rect.height + 2 * distance};
}

// The smallest box whose mask, with its middle repeated, is the one of `box`.
RoundedBox representative(const RoundedBox& box, int reach) {
  const auto most = 2 * (reach + static_cast<int>(std::ceil(box.radius))) + 1;
  return {{0, 0, std::min(box.rect.width, most), std::min(box.rect.height, most)}, box.radius, box.corners};
}

// Which row or column of a mask of `length` stands for the one at `position` of `fullLength`.
int stretched(int position, int fullLength, int length) {
  const auto fromEnd = fullLength - 1 - position;
  const auto middle = length / 2;
  if (position < middle) return position;
  return std::max(middle, length - 1 - fromEnd);
}

// Asks for a row of pixels that will be needed soon. Short pieces of rows that lie far apart in memory are
// more than the processor foresees by itself.
void fetchAhead(const PixelTarget& target, const PixelRect& area, int y) {
  constexpr int pixelsOfLine = 16;
  if (y >= area.maxY()) return;
  const auto* row = target.at(area.x, y);
  for (int x = 0; x < area.width; x += pixelsOfLine) __builtin_prefetch(row + x, 1);
}

// The parts of a row of pixels that nothing covers.
class OpenParts {
 public:
  explicit OpenParts(std::span<const PixelRect> covers) : covers_(covers.begin(), covers.end()) {
    std::ranges::sort(covers_, {}, &PixelRect::x);
  }

  // Calls `visit` with the start and the end of each between `minX` and `maxX`.
  void forEach(int y, int minX, int maxX, auto&& visit) const {
    for (const auto& cover : covers_) {
      if (y < cover.y || y >= cover.maxY() || cover.maxX() <= minX) continue;
      if (cover.x >= maxX) break;
      if (cover.x > minX) visit(minX, cover.x);
      minX = cover.maxX();
    }
    if (minX < maxX) visit(minX, maxX);
  }

 private:
  std::vector<PixelRect> covers_;
};

struct BoxKey {
  RoundedBox box;
  double sigma;
  bool operator==(const BoxKey&) const = default;
};

struct PathKey {
  Weak<CGPath> path;            // the mask of a path that has gone is never asked for again
  CGAffineTransform toPicture;  // a picture of the whole shape
  double sigma;
  PixelRect part;  // of that picture

  bool operator==(const PathKey& other) const {
    return sigma == other.sigma && part == other.part && toPicture == other.toPicture &&
           path.refersTo(other.path.lock().get());
  }
};

host::Bitmap pictureOf(const RoundedBox& box) {
  host::Bitmap image({box.rect.width, box.rect.height});
  const PixelTarget target(image, 0, 0);
  RoundedBoxRaster(target, box.rect).fill(box, opaque);
  return image;
}

host::Bitmap pictureOf(const CGPath& path, const PathKey& key, const PixelRect& whole) {
  host::Bitmap image({key.part.width, key.part.height});
  paintByTiles(PixelTarget(image, key.part.x, key.part.y), key.part, {whole, 0, 0}, [&](CGContext& context) {
    context.concatenate(key.toPicture);
    context.setFillColor(CGColor::black());
    context.addPath(path);
    context.fillPath();
  });
  return image;
}

}  // namespace

ShadowMask::ShadowMask(const host::Bitmap& image, double sigma) {
  const auto reach = blurReach(sigma);
  size_ = {image.size().width + 2 * reach, image.size().height + 2 * reach};
  plane_.resize(static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height));
  for (int y = 0; y < image.size().height; ++y) {
    const auto row = image.row(y);
    auto* cells = plane_.data() + static_cast<std::ptrdiff_t>(y + reach) * size_.width + reach;
    std::ranges::transform(row, cells, [](Pixel pixel) { return static_cast<std::uint8_t>(alphaOf(pixel)); });
  }
  gaussianBlur(plane_, size_.width, size_.height, sigma);
}

int ShadowMask::reach(double sigma) { return blurReach(sigma); }

ShadowMask::Placed ShadowMask::ofBox(const RoundedBox& box, double sigma) {
  static auto& kept = *new RecentlyUsed<BoxKey, SharedMask>(mostBytesOfBoxes);
  const auto reach = blurReach(sigma);
  const BoxKey key{representative(box, reach), sigma};
  const auto rect = grown(box.rect, reach);
  if (const auto* found = kept.find(key)) return {*found, rect};
  const auto mask = std::make_shared<const ShadowMask>(ShadowMask(pictureOf(key.box), sigma));
  kept.add(key, mask, mask->byteCount());
  return {mask, rect};
}

ShadowMask::Placed ShadowMask::ofPath(const Ref<CGPath>& path, const CGAffineTransform& toDevice,
                                      double sigma, const PixelRect& area) {
  static auto& kept = *new RecentlyUsed<PathKey, SharedMask>(mostBytesOfPaths);
  const auto whole = touchedPixels(toDevice.apply(path->boundingBoxOfPath()));
  const auto shape = intersect(whole, area);
  if (shape.isEmpty()) return {};
  const auto rect = grown(shape, blurReach(sigma));
  const PathKey key{path,
                    toDevice.concatenating(CGAffineTransform::translation(-whole.x, -whole.y)),
                    sigma,
                    {shape.x - whole.x, shape.y - whole.y, shape.width, shape.height}};
  if (const auto* found = kept.find(key)) return {*found, rect};
  const auto mask = std::make_shared<const ShadowMask>(
      ShadowMask(pictureOf(*path, key, {0, 0, whole.width, whole.height}), sigma));
  kept.add(key, mask, mask->byteCount());
  return {mask, rect};
}

ShadowMask::Placed ShadowMask::ofImage(const host::Bitmap& image, int x, int y, double sigma) {
  const PixelRect shape{x, y, image.size().width, image.size().height};
  return {std::make_shared<const ShadowMask>(ShadowMask(image, sigma)), grown(shape, blurReach(sigma))};
}

void ShadowMask::paint(const PixelTarget& target, const PixelRect& clip, const PixelRect& rect,
                       std::span<const PixelRect> covers, Pixel color) const {
  const auto area = intersect(intersect(rect, clip), target.area());
  if (area.isEmpty() || plane_.empty()) return;
  const OpenParts open(covers);
  for (int y = area.y; y < area.maxY(); ++y) {
    fetchAhead(target, area, y + 4);
    const auto row = stretched(y - rect.y, rect.height, size_.height);
    const auto* cells = plane_.data() + static_cast<std::ptrdiff_t>(row) * size_.width;
    auto* pixels = target.at(area.x, y) - area.x;
    open.forEach(y, area.x, area.maxX(),
                 [&](int minX, int maxX) { paintPart(pixels, cells, rect, minX, maxX, color); });
  }
}

// The pixels of a row from `minX` to `maxX`.
void ShadowMask::paintPart(Pixel* row, const std::uint8_t* cells, const PixelRect& rect, int minX, int maxX,
                           Pixel color) const {
  const auto middle = size_.width / 2;
  const auto leftEnd = std::clamp(rect.x + middle, minX, std::max(minX, maxX));
  const auto rightStart =
      std::clamp(rect.maxX() - (size_.width - 1 - middle), leftEnd, std::max(leftEnd, maxX));
  paintCovered(row + minX, cells + (minX - rect.x), leftEnd - minX, color);
  paintOver(row + leftEnd, rightStart - leftEnd, scaled(color, cells[middle]));
  paintCovered(row + rightStart, cells + size_.width - (rect.maxX() - rightStart), maxX - rightStart, color);
}

}  // namespace bkuk
