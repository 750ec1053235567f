#include "platform/quartzcore/raster/BoxCoverage.h"

#include <algorithm>
#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/raster/BoxPath.h"
#include "platform/quartzcore/raster/PixelMath.h"
#include "platform/quartzcore/raster/RecentlyUsed.h"

namespace bkuk {

namespace {

// The shortest box with these corners and this ring that has a middle to repeat; shorter ones stand for
// themselves.
RoundedBox shortest(const RoundedBox& box, int ringWidth) {
  const auto most = 2 * std::max(static_cast<int>(std::ceil(box.radius)), ringWidth) + 1;
  return {{0, 0, std::min(box.rect.width, most), std::min(box.rect.height, most)}, box.radius, box.corners};
}

// The box filled as a path, or the ring.
host::Bitmap picture(const RoundedBox& box, int ringWidth) {
  host::Bitmap image({box.rect.width, box.rect.height});
  const auto context = make<CGContext>(image, CGAffineTransform());
  context->setFillColor(CGColor::black());
  context->addPath(*(ringWidth > 0 ? ringPath(box, ringWidth) : boxPath(box)));
  context->fillPath();
  return image;
}

struct Key {
  RoundedBox box;
  int ringWidth;
  bool operator==(const Key&) const = default;
};

}  // namespace

std::shared_ptr<const BoxCoverage> BoxCoverage::of(const RoundedBox& box, int ringWidth) {
  // An interface has a handful of radii; an animated radius must not fill the memory.
  constexpr std::size_t mostBytes = 4 << 20;
  static auto& kept = *new RecentlyUsed<Key, std::shared_ptr<const BoxCoverage>>(mostBytes);
  const Key key{shortest(box, ringWidth), ringWidth};
  if (const auto* found = kept.find(key)) return *found;
  auto coverage = std::make_shared<const BoxCoverage>(key.box, ringWidth);
  kept.add(key, coverage, coverage->cells_.size() + coverage->rows_.size() * sizeof(Row));
  return coverage;
}

BoxCoverage::BoxCoverage(const RoundedBox& shortBox, int ringWidth)
    : size_{shortBox.rect.width, shortBox.rect.height} {
  const auto image = picture(shortBox, ringWidth);
  for (int y = 0; y < size_.height; ++y) {
    for (const auto pixel : image.row(y)) cells_.push_back(static_cast<std::uint8_t>(alphaOf(pixel)));
  }
  for (int y = 0; y < size_.height; ++y) rows_.push_back(measuredRow(y));
}

BoxCoverage::Row BoxCoverage::measuredRow(int y) const {
  const auto* cells = cells_.data() + static_cast<std::ptrdiff_t>(y) * size_.width;
  const auto* end = cells + size_.width;
  const auto middle = size_.width / 2;
  return {.left = cells,
          .rightEnd = end,
          .leftLength = middle,
          .rightLength = size_.width - 1 - middle,
          .middle = cells[middle],
          .isWhole = std::all_of(cells, end, [](auto cell) { return cell == 255; })};
}

const BoxCoverage::Row& BoxCoverage::row(int fromTop, int fromBottom) const {
  const auto middle = size_.height / 2;
  const auto y = fromTop < middle ? fromTop : std::max(middle, size_.height - 1 - fromBottom);
  return rows_[static_cast<std::size_t>(y)];
}

}  // namespace bkuk
