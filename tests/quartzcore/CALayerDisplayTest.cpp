#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST_F(CALayerDisplay, AnEnormousLayerIsDrawnAtALowerScale) {
  delegate->handlesDisplay = false;
  delegate->onDraw = [](CGContext& context) {
    context.setFillColor(red());
    context.fill({-1e9, -1e9, 2e9, 2e9});
  };
  inner->setBounds({0, 0, 1e6, 10});
  inner->setNeedsDisplay();
  window.update();
  ASSERT_NE(inner->contents(), nullptr);
  EXPECT_LE(inner->contents()->bitmap().size().width, host::Bitmap::maxSide);
  EXPECT_EQ(window.pixel(20, 30), redPixel);
}

}  // namespace
}  // namespace bkuk
