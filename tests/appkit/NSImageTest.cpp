#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <unistd.h>

#include "host/PngFile.h"
#include "platform/appkit/NSImageView.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSImage.h"
#include "platform/foundation/NSBundle.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

namespace fs = std::filesystem;
using enum NSCompositingOperation;

constexpr std::uint32_t redPixel = 0xffff0000;
constexpr std::uint32_t bluePixel = 0xff0000ff;

void fillRect(const Ref<NSColor>& color, const CGRect& rect) {
  color->setFill();
  NSRectFill(rect);
}

// Red, but blue in the upper half: which way is up.
bool drawFlag(const CGRect& rect) {
  fillRect(NSColor::red(), rect);
  fillRect(NSColor::blue(), {rect.minX(), rect.midY(), rect.width(), rect.height() / 2});
  return true;
}

struct NSImageTest : testing::Test {
  static constexpr int side = 40;

  ~NSImageTest() override { fs::remove_all(directory); }

  // Draws with a current context over an empty bitmap of 40 × 40 points; its y runs down when `flipped`.
  template <typename Draw>
  void paint(Draw draw, bool flipped = false, double scale = 1) {
    const auto pixels = static_cast<int>(side * scale);
    bitmap = host::Bitmap({pixels, pixels});
    const auto context = make<CGContext>(bitmap, CGAffineTransform{scale, 0, 0, -scale, 0, side * scale});
    if (flipped) {
      context->translateBy(0, side);
      context->scaleBy(1, -1);
    }
    const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, flipped));
    draw();
  }
  // From the upper left.
  [[nodiscard]] std::uint32_t pixel(int x, int y) const { return bitmap.row(y)[static_cast<std::size_t>(x)]; }

  // A PNG file, all of one colour.
  std::string writeFile(const std::string& name, host::PixelSize size, std::uint32_t color) {
    host::Bitmap picture(size);
    picture.fill({0, 0, size.width, size.height}, color);
    const auto path = (directory / name).string();
    EXPECT_TRUE(host::writePng(picture, path));
    return path;
  }
  std::string writeText(const std::string& name, std::string_view text) {
    std::ofstream(directory / name) << text;
    return (directory / name).string();
  }

  VirtualHostScope host;
  host::Bitmap bitmap;
  fs::path directory = [] {
    const auto path = fs::path(testing::TempDir()) / ("images" + std::to_string(getpid()));
    fs::create_directories(path);
    return path;
  }();
};

TEST_F(NSImageTest, IsDrawnIntoAtTheScaleOfTheScreenAndDrawnOver) {
  host->setScale(2);
  auto image = make<NSImage>(NSSize{10, 10});
  EXPECT_TRUE(image->isValid());
  image->unlockFocus();
  image->lockFocus();
  EXPECT_FALSE(NSGraphicsContext::current()->isFlipped());
  drawFlag({0, 0, 10, 10});
  image->unlockFocus();
  EXPECT_EQ(NSGraphicsContext::current(), nullptr);
  EXPECT_EQ(image->representations().front()->pixelsWide(), 20);
  image->lockFocus();
  fillRect(NSColor::red(), {0, 5, 5, 5});
  image->unlockFocus();
  paint([&] { image->draw({10, 10, 10, 10}); }, false, 2);
  EXPECT_EQ(pixel(22, 42), redPixel) << "drawn over";
  EXPECT_EQ(pixel(38, 42), bluePixel) << "still there";
  EXPECT_EQ(pixel(38, 58), redPixel);
  EXPECT_EQ(pixel(41, 42), 0U);
}

TEST_F(NSImageTest, AHandlerRunsEachTimeWithItsRectangleAndCannotLeaveIt) {
  int calls = 0;
  CGRect given;
  auto image = make<NSImage>(NSSize{10, 20}, false, [&](const CGRect& rect) {
    ++calls;
    given = rect;
    EXPECT_FALSE(NSGraphicsContext::current()->isFlipped());
    fillRect(NSColor::red(), {-50, -50, 200, 200});
    return true;
  });
  paint([&] {
    image->draw({10, 10, 20, 20});
    image->draw({10, 10, 20, 20});
  });
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(given, CGRect(0, 0, 10, 20));
  EXPECT_EQ(pixel(10, 10), redPixel);
  EXPECT_EQ(pixel(29, 29), redPixel);
  EXPECT_EQ(pixel(9, 20), 0U);
  EXPECT_EQ(pixel(30, 20), 0U);
  image->setSize({4, 4});
  paint([&] { image->draw({0, 0, 8, 8}); });
  EXPECT_EQ(given, CGRect(0, 0, 4, 4));
}

TEST_F(NSImageTest, StandsUprightUnlessItIsTheOldFormInAFlippedContext) {
  const CGRect place{10, 10, 20, 20};
  const auto image = make<NSImage>(NSSize{20, 20}, false, drawFlag);
  const auto flippedImage = make<NSImage>(NSSize{20, 20}, true, drawFlag);
  const auto upperAndLower = [&] { return std::pair(pixel(20, 12), pixel(20, 28)); };
  for (const bool flipped : {false, true}) {
    paint([&] { image->draw(place); }, flipped);
    EXPECT_EQ(upperAndLower(), std::pair(bluePixel, redPixel));
    paint([&] { flippedImage->draw(place); }, flipped);
    EXPECT_EQ(upperAndLower(), std::pair(redPixel, bluePixel));
    paint([&] { image->draw(place, {}, sourceOver, 1); }, flipped);
    EXPECT_EQ(upperAndLower(), flipped ? std::pair(redPixel, bluePixel) : std::pair(bluePixel, redPixel));
  }
}

TEST_F(NSImageTest, PartsOperationsAndFractions) {
  const auto image = make<NSImage>(NSSize{20, 20}, false, drawFlag);
  paint([&] { image->draw({0, 0, 40, 40}, {0, 15, 5, 5}, sourceOver, 1); });
  EXPECT_EQ(pixel(39, 39), bluePixel) << "the upper left quarter of a quarter fills it all";
  paint([&] { image->drawAtPoint({5, 5}, {0, 0, 10, 10}, sourceOver, 0.5); });
  EXPECT_NEAR(pixel(10, 30) >> 24, 128, 1) << "what lies over itself fades as one";
  EXPECT_EQ(pixel(10, 30) & 0xff, 0U);
  EXPECT_EQ(pixel(16, 30), 0U);
  paint([&] {
    fillRect(NSColor::blue(), {0, 0, 40, 40});
    image->draw({0, 0, 10, 10}, {0, 0, 10, 10}, destinationOver, 1);
    image->draw({20, 0, 10, 10}, {0, 0, 10, 10}, destinationOut, 1);
    fillRect(NSColor::blue(), {0, 20, 10, 10});
  });
  EXPECT_EQ(pixel(5, 35), bluePixel);
  EXPECT_EQ(pixel(25, 35), 0U);
  EXPECT_EQ(pixel(15, 35), bluePixel) << "the operation is the image's alone";
}

TEST_F(NSImageTest, ACopyShowsTheSameAndGoesItsOwnWay) {
  const auto image = make<NSImage>(NSSize{20, 20}, false, drawFlag);
  image->setTemplate(true);
  const auto copy = image->copy();
  EXPECT_TRUE(copy->isTemplate());
  copy->setSize({5, 5});
  copy->lockFocus();
  fillRect(NSColor::red(), {0, 0, 5, 5});
  copy->unlockFocus();
  EXPECT_EQ(image->size(), (NSSize{20, 20}));
  paint([&] { image->draw({0, 0, 40, 40}); });
  EXPECT_EQ(pixel(20, 5), bluePixel);
}

TEST_F(NSImageTest, ReadsFilesByTheirContents) {
  const auto png = NSImage::contentsOf(writeFile("name.jpg", {6, 4}, redPixel));
  ASSERT_TRUE(png);
  EXPECT_EQ(png->size(), (NSSize{6, 4}));
  const auto jpeg = NSImage::contentsOf(BKUK_TEST_IMAGES "/red.jpg");
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(jpeg->size(), (NSSize{8, 4}));
  paint([&] { jpeg->draw({0, 0, 40, 40}); });
  EXPECT_GT(pixel(20, 20) >> 16 & 0xff, 250U);
  EXPECT_FALSE(NSImage::contentsOf((directory / "missing.png").string()));
  EXPECT_FALSE(NSImage::contentsOf(directory.string()));
  EXPECT_FALSE(NSImage::contentsOf(writeText("text.png", "no picture")));
  EXPECT_FALSE(NSImage::contentsOf(writeText("cut.png", "\x89PNG\r\n\x1a\n....")));
}

TEST_F(NSImageTest, DrawingsAreReadWhereTheHostCan) {
  constexpr std::string_view drawing =
      "<svg xmlns='http://www.w3.org/2000/svg' width='10' height='20'><rect width='10' height='20'/></svg>";
  const auto decoded = host->drawing().decodeImage(std::as_bytes(std::span(drawing)));
  const auto image = NSImage::contentsOf(writeText("drawing.svg", drawing));
  if (decoded.fault == host::ImageFault::notSupported) {
    EXPECT_FALSE(image);
    return;
  }
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size(), (NSSize{10, 20}));
  EXPECT_EQ(image->representations().front()->pixelsWide(), 0);
  paint([&] { image->draw({0.5, 0.5, 20, 39}); }, false, 2);
  EXPECT_EQ(pixel(20, 40), 0xff000000U);
  EXPECT_EQ(pixel(50, 40), 0U);
}

TEST_F(NSImageTest, NumbersThatMakeNoSenseDrawNothing) {
  constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  for (const double number : {nan, infinity, -infinity, -5.0, 0.0, 1e300}) {
    auto image = make<NSImage>(NSSize{number, 10});
    image->lockFocus();
    fillRect(NSColor::red(), {0, 0, 10, 10});
    image->unlockFocus();
    const auto drawn = make<NSImage>(NSSize{10, 10}, false, drawFlag);
    paint([&] {
      image->draw({0, 0, 10, 10});
      drawn->draw({number, 0, 10, 10}, {0, 0, number, 5}, sourceOver, number);
      drawn->drawAtPoint({0, number}, {number, 0, 1, 1}, copy, 1);
    });
  }
  EXPECT_FALSE(make<NSImage>(NSSize{0, 10})->isValid());
}

TEST_F(NSImageTest, ABundlesImageIsTheSharpestOfItsName) {
  writeFile("logo.png", {4, 4}, redPixel);
  writeFile("logo@2x.png", {8, 8}, bluePixel);
  writeFile("photo.jpeg", {4, 4}, redPixel);
  writeText("photo.png", "damaged");
  const auto& bundle = NSBundle::bundle(directory.string());
  for (const auto* name : {"logo", "logo.png"}) {
    const auto logo = bundle.image(name);
    ASSERT_TRUE(logo) << name;
    EXPECT_EQ(logo->size(), (NSSize{4, 4}));
    EXPECT_EQ(logo->representations().front()->pixelsWide(), 8);
  }
  EXPECT_NE(bundle.image("logo"), bundle.image("logo"));
  EXPECT_TRUE(bundle.image("photo")) << "what cannot be read does not stand in the way";
  EXPECT_FALSE(bundle.image("photo.png"));
  for (const auto* name : {"", "none", "..", "../logo", "/etc/hostname"}) EXPECT_FALSE(bundle.image(name));
}

struct NSImageViewTest : NSImageTest {
  NSImageViewTest() {
    window->contentView()->addSubview(view);
    window->makeKeyAndOrderFront();
    view->setImage(make<NSImage>(NSSize{20, 10}, false, [](const CGRect& rect) {
      fillRect(NSColor::red(), rect);
      return true;
    }));
  }
  ~NSImageViewTest() override { window->close(); }

  // The device pixels that are red, in a window of 100 × 60 points.
  host::PixelRect shown() {
    host->settle();
    const auto& image = host->windows().front()->image();
    int left = 100, top = 60, right = 0, bottom = 0;
    for (int y = 0; y < image.size().height; ++y) {
      for (int x = 0; x < image.size().width; ++x) {
        if (image.row(y)[static_cast<std::size_t>(x)] != redPixel) continue;
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = std::max(bottom, y + 1);
      }
    }
    return right == 0 ? host::PixelRect() : host::PixelRect{left, top, right - left, bottom - top};
  }

  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 100, 60));
  Ref<NSImageView> view = make<NSImageView>(NSRect(0, 0, 100, 60));
};

TEST_F(NSImageViewTest, ScalesAndAligns) {
  EXPECT_EQ(shown(), (host::PixelRect{40, 25, 20, 10})) << "never larger by itself";
  view->setImageAlignment(NSImageAlignment::topRight);
  EXPECT_EQ(shown(), (host::PixelRect{80, 0, 20, 10}));
  view->setImageScaling(NSImageScaling::proportionallyUpOrDown);
  EXPECT_EQ(shown(), (host::PixelRect{0, 0, 100, 50}));
  view->setImageScaling(NSImageScaling::axesIndependently);
  EXPECT_EQ(shown(), (host::PixelRect{0, 0, 100, 60}));
  view->setImageScaling(NSImageScaling::none);
  view->setImageAlignment(NSImageAlignment::bottom);
  EXPECT_EQ(shown(), (host::PixelRect{40, 50, 20, 10}));
  view->setImageScaling(NSImageScaling::proportionallyDown);
  view->setFrame({0, 0, 10, 60});
  EXPECT_EQ(shown(), (host::PixelRect{0, 55, 10, 5}));
  view->setImage(nullptr);
  EXPECT_TRUE(shown().isEmpty());
}

TEST_F(NSImageViewTest, LeavesItsUsersInputToOthers) {
  EXPECT_FALSE(view->acceptsFirstResponder());
  host->windows().front()->click({50, 30});
  EXPECT_NE(window->firstResponder(), view);
}

TEST_F(NSImageViewTest, IsAsLargeAsItsImageAndSpokenOfOnceItHasALabel) {
  EXPECT_EQ(view->intrinsicContentSize(), (NSSize{20, 10}));
  EXPECT_FALSE(view->isAccessibilityElement());
  view->setAccessibilityLabel("A flag");
  EXPECT_TRUE(view->isAccessibilityElement());
  EXPECT_EQ(view->accessibilityRole(), NSAccessibilityImageRole);
  view->setImage(nullptr);
  EXPECT_EQ(view->intrinsicContentSize(), (NSSize{-1, -1}));
}

}  // namespace
}  // namespace bkuk
