#include <gtest/gtest.h>
#include <random>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/compositor/LayerBox.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr int side = 96;

// Paints the same random boxes directly and through paths.
class RoundedBoxRasterAgainstPaths : public testing::Test {
 protected:
  int any(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
  double any(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }

  host::Bitmap background() {
    host::Bitmap bitmap({side, side});
    bitmap.fill({0, 0, side, side},
                premultiplied({any(0.0, 1.0), any(0.0, 1.0), any(0.0, 1.0), any(0.0, 1.0)}));
    return bitmap;
  }

  // A layer of random size, radius and corners. The smallest boxes cut their radius to exactly one pixel,
  // where painters of paths waver.
  Ref<CALayer> layer() {
    auto layer = make<CALayer>();
    layer->setBounds({0, 0, any(1.0, 60.0), any(1.0, 60.0)});
    layer->setCornerRadius(any(0.0, 30.0));
    layer->setMaskedCorners(static_cast<unsigned>(any(0, 15)));
    return layer;
  }

  static host::Bitmap copyOf(const host::Bitmap& bitmap) {
    host::Bitmap copy({side, side});
    std::copy_n(bitmap.pixels(), side * side, copy.pixels());
    return copy;
  }

  static void paintDirectly(host::Bitmap& bitmap, const PixelRect& clip, const LayerBox& box, int width,
                            const host::Rgba& color) {
    const PixelTarget target(bitmap, 0, 0);
    const RoundedBoxRaster raster(target, clip);
    const auto pixel = premultiplied(color);
    width == 0 ? raster.fill(box.shape, pixel) : raster.ring(box.shape, width, pixel);
  }

  static void paintAsPath(host::Bitmap& bitmap, const PixelRect& clip, const Ref<CGPath>& path,
                          const host::Rgba& color) {
    const auto context = make<CGContext>(bitmap, CGAffineTransform());
    context->clip(CGRect(clip.x, clip.y, clip.width, clip.height));
    context->setFillColor(CGColor::srgb(color.red, color.green, color.blue, color.alpha));
    context->addPath(*path);
    context->fillPath();
  }

  static int greatestDifference(const host::Bitmap& a, const host::Bitmap& b) {
    int greatest = 0;
    for (int i = 0; i < side * side; ++i) {
      if (a.pixels()[i] == b.pixels()[i]) continue;
      for (int shift = 0; shift < 32; shift += 8) {
        const auto x = static_cast<int>(a.pixels()[i] >> shift & 0xff);
        const auto y = static_cast<int>(b.pixels()[i] >> shift & 0xff);
        greatest = std::max(greatest, std::abs(x - y));
      }
    }
    return greatest;
  }

  VirtualHostScope host_;
  std::mt19937 random_{7};
};

TEST_F(RoundedBoxRasterAgainstPaths, FillsAndRingsDifferByAtMostOneStep) {
  for (int round = 0; round < 1000; ++round) {
    const auto shape = layer();
    shape->setBorderWidth(any(0, 3));
    const auto scale = 1 + any(0, 4) * 0.25;
    const LayerBox box(*shape, {scale, 0, 0, -scale, any(-5.0, 40.0), any(40.0, 90.0)});
    const auto width = box.borderPixels(shape->borderWidth());
    const host::Rgba color{any(0.0, 1.0), any(0.0, 1.0), any(0.0, 1.0), any(0, 1) ? 1.0 : any(0.0, 1.0)};
    const PixelRect clip{any(0, 40), any(0, 40), any(1, side), any(1, side)};
    auto direct = background();
    auto general = copyOf(direct);
    paintDirectly(direct, clip, box, width, color);
    paintAsPath(general, clip, width == 0 ? box.path(*shape) : box.ringPath(*shape), color);
    ASSERT_LE(greatestDifference(direct, general), 1)
        << "round " << round << ": " << box.rect.width << " × " << box.rect.height << ", radius "
        << box.shape.radius << ", corners " << box.shape.corners << ", ring " << width;
  }
}

TEST_F(RoundedBoxRasterAgainstPaths, TouchesNothingOutsideTheClip) {
  for (int round = 0; round < 300; ++round) {
    const auto shape = layer();
    const LayerBox box(*shape, {1, 0, 0, -1, any(-30.0, 60.0), any(0.0, 120.0)});
    const PixelRect clip{any(-20, 90), any(-20, 90), any(0, 60), any(0, 60)};
    host::Bitmap bitmap({side, side});
    const PixelTarget target(bitmap, 0, 0);
    const RoundedBoxRaster raster(target, clip);
    round % 2 ? raster.fill(box.shape, 0xffffffff) : raster.ring(box.shape, 1 + round % 9, 0xffffffff);
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) {
        const bool isInside = contains(clip, {x, y, 1, 1}) && contains(box.rect, {x, y, 1, 1});
        ASSERT_TRUE(isInside || bitmap.row(y)[static_cast<std::size_t>(x)] == 0);
      }
    }
  }
}

}  // namespace
}  // namespace bkuk
