#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "host/Drawing.h"
#include "host/Host.h"
#include "host/Text.h"
#include "platform/coregraphics/CGContext.h"
#include "tests/quartzcore/LayerWindow.h"
#include "tests/support/RandomRun.h"

namespace bkuk {
namespace {

constexpr int width = 120;
constexpr int height = 90;

// Draws texts and images as it was told, into a bitmap when it must.
class Drawing : public CALayer {
 public:
  struct Text {
    std::shared_ptr<const host::TextLine> line;
    CGPoint baseline;
    Ref<CGColor> color;
  };

  void draw(CGContext& context) override {
    context.setAlpha(alpha);
    if (!drawsTextLast) drawTexts(context);
    for (const auto& icon : icons) context.drawBitmap(icon, {iconAt, iconSize});
    if (drawsTextLast) drawTexts(context);
    if (!isPainted) return;
    // Nothing that shows, but no piece either.
    context.setFillColor(CGColor::srgb(0, 0, 0, 1e-4));
    context.fill({bounds().origin, {1, 1}});
  }

  void drawTexts(CGContext& context) const {
    for (const auto& text : texts) {
      context.drawText(text.line, {-99, -99, 999, 198}, text.baseline, *text.color);
    }
  }

  std::vector<Text> texts;
  std::vector<std::shared_ptr<const host::Bitmap>> icons;
  CGPoint iconAt;
  CGSize iconSize;
  CGFloat alpha = 1;
  bool drawsTextLast = false;
  bool isPainted = false;
};

std::vector<std::uint32_t> pixelsOf(const CARenderer& renderer) {
  const auto& image = renderer.image();
  return {image.pixels(), image.pixels() + image.size().width * image.size().height};
}

int differenceOf(const std::vector<std::uint32_t>& some, const std::vector<std::uint32_t>& others) {
  int greatest = 0;
  for (std::size_t i = 0; i < some.size(); ++i) {
    for (int shift = 0; shift < 32; shift += 8) {
      const auto component = [shift](std::uint32_t pixel) { return static_cast<int>(pixel >> shift & 0xff); };
      greatest = std::max(greatest, std::abs(component(some[i]) - component(others[i])));
    }
  }
  return greatest;
}

// A window with one layer that draws, and what can be done to it.
class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed)
      : random_(seed), scale_(random_.from<double>({1, 1.25, 1.5, 2})), window_(width, height, scale_) {
    window_.root->setBackgroundColor(color());
    window_.root->addSublayer(layer_);
    layer_->setContentsScale(scale_);
    layer_->setGeometryFlipped(random_.once(2));
    layer_->setFrame({coordinate(-20, 60), coordinate(-20, 60), coordinate(5, 120), coordinate(5, 80)});
    // In one colour, because Qt blends some faces otherwise over what is opaque.
    const auto ink = color();
    for (int i = random_.below(4); i >= 0; --i) layer_->texts.push_back(text(ink));
    if (random_.once(3)) addIcon();
    layer_->alpha = random_.from<double>({1, 1, 0.6});
    layer_->setOpacity(random_.from<double>({1, 1, 0.3}));
    layer_->setMasksToBounds(random_.once(3));
    layer_->setCornerRadius(random_.from<double>({0, 9}));
    if (random_.once(5)) layer_->setShadowOpacity(0.5);
    if (random_.once(5)) turn();
  }

  std::vector<std::uint32_t> picture(bool isPainted) {
    layer_->isPainted = isPainted;
    layer_->setNeedsDisplay();
    window_.renderer.setNeedsRenderAll();
    window_.update();
    return pixelsOf(window_.renderer);
  }
  // In bands, as if each had been damaged alone.
  std::vector<std::uint32_t> pictureByParts() {
    const auto band = window_.add({0, 0, width, 17}, CGColor::srgb(0, 1, 0));
    for (int y = 0; y < height; y += 11) {
      band->setFrame({y * 0.7, double(y), width, 17});
      window_.update();
    }
    band->removeFromSuperlayer();
    window_.update();
    return pixelsOf(window_.renderer);
  }

  [[nodiscard]] bool hasBitmap() const { return layer_->contents() && layer_->contents()->hasBitmap(); }

 private:
  CGFloat coordinate(double low, double high) {
    const auto value = random_.between(low, high);
    return random_.once(2) ? value : std::floor(value);
  }
  Ref<CGColor> color() {
    const auto alpha = random_.from<double>({0.4, 1, 1});
    if (random_.once(3)) return CGColor::srgb(0, 0, 0, alpha);
    return CGColor::srgb(random_.between(0, 1), random_.between(0, 1), random_.between(0, 1), alpha);
  }
  Drawing::Text text(const Ref<CGColor>& ink) {
    static const std::vector<std::u16string> texts{u"AVAWA To fi",
                                                   u"gjpqy ()",
                                                   u"\u05E9\u05DC\u05D5\u05DD abc",
                                                   u"a\u0301o\u0302 \u0645\u0631\u062D\u0628\u0627",
                                                   u"",
                                                   u"  . i"};
    static const std::vector<const char*> faces{"Inter-Regular", "DejaVuSans-Bold", "DejaVuSerif-Italic"};
    const auto size = random_.from<double>({7, 11, 13, 13, 14.5, 17, 24, 31});
    auto font = host::current().drawing().fonts().font(random_.from(faces), size);
    if (!font) font = host::current().drawing().fonts().systemFont(size, 400);
    return {font->shape(random_.from(texts), host::TextDirection::leftToRight),
            {coordinate(-12, 60), coordinate(-5, 70)},
            ink};
  }
  void addIcon() {
    host::Bitmap icon({8 + random_.below(30), 8 + random_.below(30)});
    for (int i = 0; i < 6; ++i) {
      icon.fill({random_.below(30), random_.below(30), 9, 9}, random_.once(2) ? 0x80204060 : redPixel);
    }
    const auto [x, y] = icon.size();
    layer_->iconSize = {x / scale_, y / scale_};
    layer_->iconAt = {coordinate(-9, 40), coordinate(-9, 40)};
    layer_->icons.push_back(std::make_shared<const host::Bitmap>(std::move(icon)));
  }
  void turn() {
    layer_->setAffineTransform(random_.once(2) ? CGAffineTransform::rotation(random_.between(0, 6))
                                               : CGAffineTransform::scale(-1.3, random_.between(0.5, 2)));
  }

  RandomRun random_;
  double scale_;
  LayerWindow window_;
  Ref<Drawing> layer_ = make<Drawing>();
};

TEST(Pieces, LookAsTheHostPaintsThem) {
  int withoutBitmap = 0;
  const auto runs = static_cast<unsigned>(RandomRun::steps(200));
  for (unsigned seed = 1; seed <= runs; ++seed) {
    RandomDrawing drawing(seed);
    const auto expected = drawing.picture(true);
    const auto pieces = drawing.picture(false);
    ASSERT_LE(differenceOf(pieces, expected), 2) << "seed " << seed;
    ASSERT_LE(differenceOf(drawing.pictureByParts(), pieces), 1) << "seed " << seed;
    if (!drawing.hasBitmap()) ++withoutBitmap;
  }
  EXPECT_GT(withoutBitmap, static_cast<int>(runs) / 4);
}

TEST(Pieces, EndWhereSomethingElseIsPainted) {
  LayerWindow window(40, 40);
  const auto layer = make<Drawing>();
  layer->setFrame({0, 0, 40, 40});
  window.root->addSublayer(layer);
  const auto draw = [&] {
    layer->setNeedsDisplay();
    window.update();
    return layer->contents();
  };
  const auto font = host::current().drawing().fonts().systemFont(13, 400);
  layer->texts.push_back({font->shape(u"Wide", host::TextDirection::leftToRight), {2, 10}, black()});
  const auto text = draw();
  ASSERT_NE(text, nullptr);
  EXPECT_FALSE(text->hasBitmap());
  EXPECT_EQ(text->pieces().size(), 1U);
  EXPECT_EQ(text->bitmapSize(), (host::PixelSize{40, 40}));
  // More than the bitmap would cost.
  const auto icon = std::make_shared<host::Bitmap>(host::PixelSize{30, 30});
  icon->fill({0, 0, 30, 30}, greenPixel);
  layer->iconSize = {30, 30};
  layer->icons.assign(4, icon);
  EXPECT_TRUE(draw()->hasBitmap());
  layer->icons.resize(2);
  EXPECT_EQ(draw()->pieces().size(), 3U);
  layer->iconAt = {0.5, 0};
  EXPECT_TRUE(draw()->hasBitmap()) << "between pixels";
  EXPECT_EQ(window.pixel(20, 20), greenPixel);
  layer->icons.clear();
  layer->texts[0].line =
      host::current().drawing().fonts().systemFont(80, 400)->shape(u"W", host::TextDirection::leftToRight);
  EXPECT_TRUE(draw()->hasBitmap()) << "larger than masks are";
  layer->texts[0].line = font->shape(u"Wide", host::TextDirection::leftToRight);
  layer->icons.push_back(icon);
  layer->iconAt = {};
  layer->drawsTextLast = true;
  EXPECT_TRUE(draw()->hasBitmap()) << "over what is opaque";
}

}  // namespace
}  // namespace bkuk
