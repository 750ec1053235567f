#include <gtest/gtest.h>
#include <memory>

#include "platform/coregraphics/CGPath.h"
#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

struct Shadow : testing::Test {
  Shadow() {
    box->setShadowOpacity(1);
    box->setShadowRadius(4);
    box->setShadowOffset({0, -10});
  }

  // 0 for white, 255 for a full black shadow.
  int darkness(int x, int y) {
    window.update();
    return 255 - window.green(x, y);
  }

  LayerWindow window{100, 100};
  Ref<CALayer> box = window.add({30, 30, 40, 40}, red());
};

TEST_F(Shadow, FallsBelowTheLayerAndFadesOut) {
  EXPECT_EQ((window.update(), window.pixel(50, 50)), redPixel);
  EXPECT_GT(darkness(50, 72), 200);
  EXPECT_NEAR(darkness(50, 79), 128, 14) << "half where the moved box ends";
  EXPECT_LT(darkness(50, 90), 10);
  EXPECT_EQ(darkness(50, 20), 0);
}

TEST_F(Shadow, TheOffsetPointsUpOnTheScreenAlsoInFlippedTrees) {
  window.root->setGeometryFlipped(true);
  EXPECT_GT(darkness(50, 72), 200);
  EXPECT_EQ(darkness(50, 20), 0);
}

TEST_F(Shadow, IsScaledInDevicePixels) {
  window.renderer.setSize({200, 200}, 2);
  EXPECT_GT(darkness(100, 144), 200);
  EXPECT_NEAR(darkness(100, 159), 128, 10);
  EXPECT_LT(darkness(100, 182), 6);
}

TEST_F(Shadow, OfATransparentLayerIsTheOneOfWhatItShows) {
  box->setBackgroundColor(nullptr);
  window.add({0, 20, 40, 20}, red(), box);
  EXPECT_LT(darkness(50, 75), 10) << "nothing casts down there";
  EXPECT_GT(darkness(50, 55), 200);
  box->sublayers()[0]->setPosition({20, 10});
  EXPECT_GT(darkness(50, 73), 200) << "it follows a sublayer that moves";
  EXPECT_EQ((window.update(), window.pixel(50, 35)), whitePixel);
}

TEST_F(Shadow, OfSublayersStaysWhereSomethingBesideThemIsRepainted) {
  box->setBackgroundColor(nullptr);
  window.add({0, 0, 40, 20}, red(), box);
  const auto beside = window.add({45, 15, 2, 2}, red());
  const auto before = darkness(50, 80);
  EXPECT_GT(before, 100);
  beside->setFrame({48, 18, 6, 4});
  window.update();
  beside->setHidden(true);
  EXPECT_EQ(darkness(50, 80), before);
}

TEST_F(Shadow, OfWhatASuperlayerCutsOffFallsIntoWhatItLeaves) {
  const auto frame = window.add({0, 0, 100, 24}, CGColor::white());
  frame->setMasksToBounds(true);
  frame->addSublayer(box);
  box->setBackgroundColor(nullptr);
  window.add({0, 0, 40, 20}, red(), box);
  EXPECT_GT(darkness(50, 78), 120) << "of a layer that begins above the frame";
  EXPECT_EQ(darkness(50, 73), 0);
}

TEST_F(Shadow, OfAPathDoesNotDependOnTheContents) {
  box->setBackgroundColor(nullptr);
  box->setShadowPath(CGPath::rect({0, 0, 10, 10}));
  EXPECT_GT(darkness(35, 75), 150);
  EXPECT_EQ(darkness(60, 75), 0);
}

TEST_F(Shadow, IsSuppressedByMaskingToBounds) {
  box->setMasksToBounds(true);
  EXPECT_EQ(darkness(50, 75), 0);
}

TEST_F(Shadow, FadesWithItsLayerAsAGroup) {
  box->setOpacity(0.5);
  EXPECT_EQ((window.update(), window.red(50, 50)), 255) << "the shadow does not show through the layer";
  EXPECT_NEAR(darkness(50, 73), 120, 15);
}

TEST_F(Shadow, ABoxLongerThanItsBlurLooksLikeAnyOther) {
  box->setFrame({10, 30, 80, 40});
  box->setCornerRadius(6);
  window.update();
  std::vector<std::uint32_t> direct(window.renderer.image().pixels(),
                                    window.renderer.image().pixels() + 100 * 100);
  // The same through the composed layer: a transparent one with the box inside.
  box->setBackgroundColor(nullptr);
  box->setCornerRadius(0);
  window.add({0, 0, 80, 40}, red(), box)->setCornerRadius(6);
  window.update();
  for (int i = 0; i < 100 * 100; ++i) {
    const auto a = static_cast<int>(direct[static_cast<std::size_t>(i)] & 0xff);
    const auto b = static_cast<int>(window.renderer.image().pixels()[i] & 0xff);
    ASSERT_NEAR(a, b, 2) << i % 100 << ", " << i / 100;
  }
}

TEST(ShadowOfCards, IsLeftOutWhereTheNextOnesCoverIt) {
  const auto paint = [](bool isCovered) {
    auto window = std::make_unique<LayerWindow>(200, 120);
    for (int i = 0; i < 12; ++i) {
      const auto card = window->add({i % 4 * 45.0 + 10, i / 4 * 35.0 + 5, 40, 30}, red());
      card->setCornerRadius(i % 3 * 4);
      card->setShadowOpacity(0.7);
      card->setShadowRadius(i);
      // Not quite opaque, it casts the shadow of the composed layer, of which all is painted.
      if (!isCovered) card->setBackgroundColor(CGColor::srgb(1, 0, 0, 0.999999));
    }
    window->update();
    return window;
  };
  const auto culled = paint(true);
  const auto whole = paint(false);
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 200; ++x) {
      ASSERT_NEAR(culled->green(x, y), whole->green(x, y), 2) << x << ", " << y;
    }
  }
}

TEST_F(Shadow, DamageCoversItWhenTheLayerMoves) {
  window.update();
  box->setPosition({70, 70});
  window.update();
  box->removeFromSuperlayer();
  window.update();
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) ASSERT_EQ(window.pixel(x, y), whitePixel) << x << ", " << y;
  }
}

}  // namespace
}  // namespace bkuk
