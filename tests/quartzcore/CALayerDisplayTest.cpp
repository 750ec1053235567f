#include <algorithm>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

// Records what is asked of it and does what a test wants meanwhile.
class Delegate : public NSObject, public CALayerDelegate {
 public:
  bool displayLayer(CALayer& layer) override {
    calls.push_back("display " + layer.name());
    if (onDisplay) onDisplay(layer);
    return handlesDisplay;
  }
  void drawLayer(CALayer& layer, CGContext& context) override {
    calls.push_back("draw " + layer.name());
    if (onDraw) onDraw(context);
  }
  void layoutSublayersOfLayer(CALayer& layer) override {
    calls.push_back("layout " + layer.name());
    if (onLayout) onLayout(layer);
  }

  bool handlesDisplay = true;
  std::function<void(CALayer&)> onDisplay;
  std::function<void(CALayer&)> onLayout;
  std::function<void(CGContext&)> onDraw;
  std::vector<std::string> calls;
};

struct CALayerDisplay : testing::Test {
  CALayerDisplay() {
    outer = add("outer", window.root);
    inner = add("inner", outer);
    window.update();
    delegate->calls.clear();
  }

  Ref<CALayer> add(const std::string& name, const Ref<CALayer>& parent) {
    auto layer = window.add({0, 0, 20, 20}, nullptr, parent);
    layer->setName(name);
    layer->setDelegate(delegate.get());
    return layer;
  }

  LayerWindow window{40, 40};
  Ref<Delegate> delegate = make<Delegate>();
  Ref<CALayer> outer;
  Ref<CALayer> inner;
};

TEST_F(CALayerDisplay, LayoutComesBeforeDisplayAndSuperlayersFirst) {
  inner->setNeedsDisplay();
  inner->setNeedsLayout();
  outer->setNeedsDisplay();
  outer->setNeedsDisplay();
  outer->setNeedsLayout();
  EXPECT_TRUE(window.renderer.needsCommit());
  window.update();
  EXPECT_THAT(delegate->calls, ElementsAre("layout outer", "layout inner", "display outer", "display inner"));
  EXPECT_FALSE(window.renderer.needsCommit());
}

TEST_F(CALayerDisplay, AMarkSetWhileDisplayingIsServedInTheNextPass) {
  delegate->onDisplay = [&](CALayer& layer) {
    if (&layer == inner) outer->setNeedsDisplay();
    if (&layer == outer && delegate->calls.size() == 1) inner->setNeedsLayout();
  };
  outer->setNeedsDisplay();
  inner->setNeedsDisplay();
  window.update();
  EXPECT_THAT(delegate->calls, ElementsAre("display outer", "display inner"));
  EXPECT_TRUE(CATransaction::needsFlush());
  window.update();
  EXPECT_THAT(delegate->calls,
              ElementsAre("display outer", "display inner", "layout inner", "display outer"));
}

TEST_F(CALayerDisplay, LayersOutsideAWindowAreDisplayedOnlyOnDemand) {
  outer->removeFromSuperlayer();
  inner->setNeedsDisplay();
  window.update();
  EXPECT_TRUE(delegate->calls.empty());
  inner->displayIfNeeded();
  inner->displayIfNeeded();
  EXPECT_THAT(delegate->calls, ElementsAre("display inner"));
}

TEST_F(CALayerDisplay, WhatIsRemovedMeanwhileIsNotDisplayed) {
  auto third = add("third", window.root);
  delegate->onDisplay = [&](CALayer& layer) {
    if (&layer != outer) return;
    inner->removeFromSuperlayer();
    inner = nullptr;
    third->removeFromSuperlayer();
    outer->removeFromSuperlayer();
    outer = nullptr;
  };
  for (const auto& layer : {outer, inner, third}) layer->setNeedsDisplay();
  third->setNeedsLayout();
  window.update();
  EXPECT_THAT(delegate->calls, ElementsAre("layout third", "display outer"));
  third->displayIfNeeded();
  EXPECT_EQ(delegate->calls.back(), "display third") << "the mark stays";
}

TEST_F(CALayerDisplay, LayoutMayRemoveAndDestroyWhatIsLaidOut) {
  delegate->onLayout = [&](CALayer& layer) {
    layer.removeFromSuperlayer();
    layer.setDelegate(nullptr);
    outer = inner = nullptr;
  };
  outer->setNeedsLayout();
  inner->setNeedsLayout();
  window.update();
  EXPECT_THAT(delegate->calls, ElementsAre("layout outer"));
}

TEST_F(CALayerDisplay, ADeadDelegateIsNotAsked) {
  inner->setNeedsDisplay();
  delegate = nullptr;
  EXPECT_EQ(inner->delegate(), nullptr);
  window.update();
}

TEST_F(CALayerDisplay, DrawingMakesABitmapOnlyWhenSomethingIsPainted) {
  delegate->handlesDisplay = false;
  inner->setNeedsDisplay();
  window.update();
  EXPECT_EQ(inner->contents(), nullptr);
  delegate->onDraw = [](CGContext& context) {
    context.setFillColor(red());
    context.fill({0, 0, 10, 10});
  };
  inner->setNeedsDisplay();
  window.update();
  ASSERT_NE(inner->contents(), nullptr);
  EXPECT_EQ(window.pixel(5, 35), redPixel);
  EXPECT_EQ(window.pixel(15, 25), whitePixel);
  delegate->onDraw = nullptr;
  inner->setNeedsDisplay();
  window.update();
  EXPECT_EQ(inner->contents(), nullptr);
  EXPECT_EQ(window.pixel(5, 35), whitePixel);
}

TEST_F(CALayerDisplay, TheContextIsTheBoundsSpaceInDevicePixels) {
  window.renderer.setSize({60, 60}, 1.5);
  delegate->handlesDisplay = false;
  delegate->onDraw = [](CGContext& context) {
    context.setFillColor(red());
    context.fill({100, 200, 4, 4});
  };
  inner->setBounds({100, 200, 20, 20});
  inner->setContentsScale(1.5);
  inner->setNeedsDisplay();
  window.update();
  EXPECT_EQ(inner->contents()->bitmap().size(), (host::PixelSize{30, 30}));
  EXPECT_EQ(window.pixel(5, 54), redPixel) << "six pixels from the lower left corner, crisp";
  EXPECT_EQ(window.pixel(5, 53), whitePixel);
  EXPECT_EQ(window.pixel(6, 54), whitePixel);
  inner->setGeometryFlipped(true);
  inner->setNeedsDisplay();
  window.update();
  EXPECT_EQ(window.pixel(5, 35), redPixel) << "y points down: the upper left corner";
}

TEST_F(CALayerDisplay, ASizeChangeMarksForLayoutAndOnRequestForDisplay) {
  inner->setPosition({3, 3});
  inner->setBounds({5, 5, 20, 20});
  EXPECT_FALSE(inner->needsLayout());
  inner->setBounds({5, 5, 30, 20});
  EXPECT_TRUE(inner->needsLayout());
  EXPECT_FALSE(inner->needsDisplay());
  inner->setNeedsDisplayOnBoundsChange(true);
  inner->setBounds({5, 5, 30, 40});
  EXPECT_TRUE(inner->needsDisplay());
}

TEST_F(CALayerDisplay, LayoutIfNeededStartsAtTheFarthestMarkedSuperlayer) {
  outer->setNeedsLayout();
  inner->setNeedsLayout();
  inner->layoutIfNeeded();
  EXPECT_THAT(delegate->calls, ElementsAre("layout outer", "layout inner"));
  inner->layoutIfNeeded();
  EXPECT_EQ(delegate->calls.size(), 2U);
}

// Many rows of 10 points in a list that scrolls, in a window that shows four of them.
struct LayersInSight : CALayerDisplay {
  LayersInSight() {
    window.root->setSublayers({});
    list = window.add({0, 0, 40, 1000});
    delegate->handlesDisplay = false;
    delegate->onDraw = [this](CGContext& context) {
      ++draws;
      context.setFillColor(red());
      context.fill(context.boundingBoxOfClipPath());
    };
    for (int i = 0; i < 100; ++i) {
      rows.push_back(window.add({0, i * 10.0, 40, 10}, nullptr, list));
      rows.back()->setDelegate(delegate.get());
      rows.back()->setNeedsDisplay();
    }
    window.update();
  }

  void scrollTo(double y) {
    list->setPosition({20, 500 - y});
    window.update();
  }
  [[nodiscard]] long kept() const {
    return std::ranges::count_if(rows, [](const auto& row) { return row->contents() != nullptr; });
  }

  Ref<CALayer> list;
  std::vector<Ref<CALayer>> rows;
  int draws = 0;
};

TEST_F(LayersInSight, AreDrawnOnceAndLetGoOfTheirBitmapsWhenTheyLeave) {
  EXPECT_EQ(draws, 6) << "four that show, and half of that above";
  for (int y = 0; y <= 960; y += 3) {
    scrollTo(y);
    for (int row = 0; row < 40; ++row) ASSERT_EQ(window.pixel(20, row), redPixel) << y;
    ASSERT_LE(kept(), 13) << y;
  }
  EXPECT_EQ(draws, 100);
  for (int i = 0; i < 20; ++i) scrollTo(960 - i % 3 * 5);
  EXPECT_EQ(draws, 100) << "going to and fro draws nothing again";
  scrollTo(0);
  EXPECT_EQ(draws, 106);
  EXPECT_EQ(kept(), 6);
}

TEST_F(LayersInSight, AreDrawnWhenTheyAreMarkedOutOfSightAndThenComeThere) {
  rows[50]->setNeedsDisplay();
  window.update();
  EXPECT_EQ(draws, 6);
  delegate->onDraw = nullptr;
  scrollTo(500);
  EXPECT_EQ(rows[50]->contents(), nullptr);
  EXPECT_EQ(std::ranges::count(delegate->calls, "draw "), 6 + 8);
}

TEST_F(LayersInSight, AreThoseThatNoSuperlayerCutsOff) {
  const auto view = window.add({0, 0, 40, 10});
  view->setMasksToBounds(true);
  view->addSublayer(list);
  window.root->setGeometryFlipped(true);
  window.update();
  EXPECT_EQ(kept(), 2) << "the view shows one row, and half of one on either side";
  scrollTo(300);
  EXPECT_EQ(window.pixel(20, 5), redPixel);
  EXPECT_EQ(draws, 6 + 3);
}

TEST_F(CALayerDisplay, AnEnormousLayerIsDrawnInFullScaleWhereItIsSeen) {
  int draws = 0;
  delegate->handlesDisplay = false;
  delegate->onDraw = [&](CGContext& context) {
    ++draws;
    const auto area = context.boundingBoxOfClipPath();
    for (auto x = std::floor(area.minX()); x < area.maxX(); ++x) {
      context.setFillColor(static_cast<int>(x) % 2 ? red() : green());
      context.fill({x, -1e9, 1, 2e9});
    }
  };
  outer->setFrame({0, 0, 40, 40});
  inner->setBounds({0, 0, 1e6, 10});
  inner->setNeedsDisplay();
  for (const int x : {11, 500000, 999960}) {
    inner->setPosition({500000. - x, 10});
    window.update();
    for (int i = 0; i < 40; ++i) ASSERT_EQ(window.pixel(i, 30), (x + i) % 2 ? redPixel : greenPixel) << x;
    EXPECT_LE(inner->contents()->bitmap().size().width, 80);
  }
  inner->setPosition({500000. - 999950, 10});
  window.update();
  EXPECT_EQ(draws, 3) << "what was near is there already";
}

}  // namespace
}  // namespace bkuk
