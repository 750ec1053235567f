#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/CAShapeLayer.h"
#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

class RecordingAction : public CAAction {
 public:
  void run(std::string_view key, CALayer& layer) override {
    runs.push_back(std::string(key) + " " + std::to_string(static_cast<int>(layer.cornerRadius())));
  }
  std::vector<std::string> runs;
};

class ActionDelegate : public NSObject, public CALayerDelegate {
 public:
  std::optional<Ref<CAAction>> actionForLayer(CALayer& layer, std::string_view key) override {
    asked.push_back(std::string(key) + " " + std::to_string(static_cast<int>(layer.cornerRadius())));
    return answer;
  }
  std::optional<Ref<CAAction>> answer;
  std::vector<std::string> asked;
};

struct CALayerActions : testing::Test {
  LayerWindow window{40, 40, 1, true};
  Ref<CALayer> layer = window.add({0, 0, 20, 20}, red());
  Ref<RecordingAction> action = make<RecordingAction>();
  Ref<ActionDelegate> delegate = make<ActionDelegate>();
};

TEST_F(CALayerActions, AreLookedUpBeforeTheChangeAndRunAfterIt) {
  layer->setDelegate(delegate.get());
  delegate->answer = action;
  layer->setCornerRadius(3);
  layer->setCornerRadius(3);
  EXPECT_THAT(delegate->asked, ElementsAre("cornerRadius 0")) << "an equal value asks nothing";
  EXPECT_THAT(action->runs, ElementsAre("cornerRadius 3"));
  CATransaction::begin();
  CATransaction::setDisableActions(true);
  layer->setCornerRadius(4);
  CATransaction::commit();
  EXPECT_EQ(delegate->asked.size(), 1U);
}

TEST_F(CALayerActions, AreSearchedInOrderUntilAnAnswerOrTheNullObject) {
  const auto inStyle = make<RecordingAction>();
  EXPECT_NE(as<CABasicAnimation>(layer->action("opacity")), nullptr);
  EXPECT_EQ(layer->action("mask"), nullptr);
  EXPECT_EQ(make<CAShapeLayer>()->action("path"), nullptr);
  layer->setStyleActions({{"opacity", inStyle}});
  EXPECT_EQ(layer->action("opacity"), inStyle);
  layer->setActions({{"opacity", action}});
  EXPECT_EQ(layer->action("opacity"), action);
  layer->setDelegate(delegate.get());
  EXPECT_EQ(layer->action("opacity"), action);
  delegate->answer = Ref<CAAction>();
  EXPECT_EQ(layer->action("opacity"), nullptr);
}

// A layer that animates from red to green, linearly over one second.
struct LayerAnimation : testing::Test {
  LayerAnimation() {
    window.update();
    animation->setFromValue(Ref<NSObject>(red()));
    animation->setToValue(Ref<NSObject>(green()));
    animation->setDuration(1);
  }

  void advance(double seconds) {
    window.host->advance(seconds);
    window.update();
  }
  void start(std::string_view key = "colour") {
    layer->add(*animation, key);
    window.update();
  }
  [[nodiscard]] static bool isIdle() { return !NSRunLoop::main().nextFireDate(); }

  LayerWindow window{40, 40, 1, true};
  Ref<CALayer> layer = window.add({0, 0, 20, 20}, red());
  Ref<CABasicAnimation> animation = make<CABasicAnimation>("backgroundColor");
};

TEST_F(LayerAnimation, ShowsTheWayAndLeavesTheModelAlone) {
  start();
  advance(0.5);
  EXPECT_NEAR(window.green(10, 30), 128, 5);
  EXPECT_EQ(*layer->backgroundColor(), *red());
  const auto shown = as<CGColor>(std::get<Ref<NSObject>>(layer->presentation()->value("backgroundColor")));
  EXPECT_NEAR(shown->components()[1], 0.5, 0.02);
  EXPECT_EQ(layer->presentation()->model(), layer);
  advance(0.6);
  EXPECT_EQ(window.pixel(10, 30), redPixel);
  EXPECT_TRUE(layer->animationKeys().empty());
}

TEST_F(LayerAnimation, RepaintsTheAnimatedLayerOnlyAndSleepsAfterwards) {
  window.add({20, 20, 10, 10}, green());
  window.update();
  EXPECT_TRUE(isIdle());
  start();
  EXPECT_FALSE(isIdle());
  window.host->advance(0.1);
  EXPECT_EQ(window.update(), (std::vector<host::PixelRect>{{0, 20, 20, 20}}));
  EXPECT_TRUE(window.update().empty()) << "nothing changes between frames";
  advance(2);
  EXPECT_TRUE(isIdle());
}

TEST_F(LayerAnimation, TheSameKeyReplacesAndNoKeyNever) {
  start("a");
  start("b");
  animation->setDuration(0);
  start("a");
  start("");
  start("");
  EXPECT_THAT(layer->animationKeys(), ElementsAre("b", "a", "", ""));
  EXPECT_EQ(layer->animation("a")->duration(), 0.25) << "the transaction's";
  layer->removeAnimation("b");
  EXPECT_EQ(layer->animation("b"), nullptr);
}

TEST_F(LayerAnimation, FillModesRepeatsAndReversals) {
  animation->setRemovedOnCompletion(false);
  animation->setFillMode(CAMediaTimingFillMode::forwards);
  start();
  advance(3);
  EXPECT_EQ(window.pixel(10, 30), greenPixel);
  EXPECT_TRUE(isIdle()) << "what stands still needs no frames";
  layer->removeAllAnimations();
  window.update();
  EXPECT_EQ(window.pixel(10, 30), redPixel);
  animation->setRemovedOnCompletion(true);
  animation->setAutoreverses(true);
  animation->setRepeatCount(2);
  start();
  advance(2.5);
  EXPECT_NEAR(window.green(10, 30), 128, 5);
  advance(0.5);
  EXPECT_NEAR(window.green(10, 30), 255, 5);
  advance(1.1);
  EXPECT_EQ(window.pixel(10, 30), redPixel);
}

TEST_F(LayerAnimation, OneThatSleptCatchesUpInOneStep) {
  start();
  host::current().loop().wait(host::current().loop().now() + 0.5);
  window.host->settle();
  window.update();
  EXPECT_NEAR(window.green(10, 30), 128, 5);
}

TEST_F(LayerAnimation, AnEndlessOneEndsWithItsWindow) {
  animation->setRepeatCount(std::numeric_limits<double>::infinity());
  start();
  advance(100);
  EXPECT_FALSE(isIdle());
  layer->removeFromSuperlayer();
  advance(0.1);
  EXPECT_TRUE(isIdle());
  EXPECT_TRUE(layer->animationKeys().empty());
}

TEST_F(LayerAnimation, NumbersThatMakeNoSenseEndAtOnce) {
  for (const auto number : {std::numeric_limits<double>::quiet_NaN(), -1.0}) {
    animation->setDuration(number);
    animation->setRepeatCount(number);
    animation->setSpeed(number);
    start();
    advance(0.1);
    layer->removeAllAnimations();
  }
  window.update();
  EXPECT_EQ(window.pixel(10, 30), redPixel);
}

TEST_F(LayerAnimation, ImplicitOnesStartAtWhatIsShown) {
  layer->setBackgroundColor(green());
  window.update();
  EXPECT_EQ(window.pixel(10, 30), redPixel);
  advance(0.25);
  EXPECT_EQ(window.pixel(10, 30), greenPixel);
  CATransaction::setAnimationDuration(1);
  layer->setPosition({20, 10});
  window.update();
  advance(0.5);
  const auto half = layer->presentation()->position().x;
  EXPECT_NEAR(half, 10 + 10 * 0.8024, 0.1) << "the default curve";
  layer->setPosition({0, 10});
  window.update();
  EXPECT_NEAR(layer->presentation()->position().x, half, 1e-6) << "no jump when it turns back";
}

TEST_F(LayerAnimation, LayersThatWereNeverShownDoNotAnimate) {
  const auto fresh = window.add({20, 20, 10, 10}, red());
  fresh->setOpacity(0.5);
  EXPECT_TRUE(fresh->animationKeys().empty());
  EXPECT_EQ(fresh->presentation(), nullptr);
  window.update();
  EXPECT_NE(fresh->presentation(), nullptr);
}

TEST_F(LayerAnimation, PathsOfTheSameElementsMoveAndOthersJump) {
  const auto shape = make<CAShapeLayer>();
  window.root->addSublayer(shape);
  shape->setPath(CGPath::rect({0, 0, 10, 10}));
  window.update();
  const auto path = make<CABasicAnimation>("path");
  path->setDuration(1);
  path->setToValue(Ref<NSObject>(CGPath::rect({0, 0, 30, 10})));
  shape->add(*path, "path");
  window.update();
  advance(0.5);
  const auto shown = as<CAShapeLayer>(shape->presentation());
  EXPECT_NEAR(shown->path()->boundingBox().width(), 20, 0.5);
  path->setToValue(Ref<NSObject>(CGPath::ellipse({0, 0, 30, 10})));
  shape->add(*path, "path");
  window.update();
  advance(0.9);
  EXPECT_NEAR(as<CAShapeLayer>(shape->presentation())->path()->boundingBox().width(), 20, 2);
}

// Draws a bar of the length that is stored under a key of its own.
class Bar : public CALayer {
 public:
  Bar() = default;
  Bar(const Bar& model) : CALayer(model) {}
  bool needsDisplay(std::string_view key) const override { return key == "length"; }
  void draw(CGContext& context) override {
    const auto length = value("length");
    context.setFillColor(green());
    context.fill({0, 0, std::get<double>(length), 10});
  }

 protected:
  Ref<CALayer> makePresentationCopy() const override { return presentationCopyOf(*this); }
};

TEST_F(LayerAnimation, KeysThatNeedDisplayAreDrawnByThePresentationCopy) {
  const auto bar = make<Bar>();
  bar->setFrame({0, 0, 40, 10});
  window.root->addSublayer(bar);
  bar->setValue(10.0, "length");
  EXPECT_TRUE(bar->CALayer::needsDisplay());
  window.update();
  EXPECT_EQ(window.pixel(9, 35), greenPixel);
  const auto length = make<CABasicAnimation>("length");
  length->setToValue(30.0);
  length->setDuration(1);
  bar->add(*length, "length");
  window.update();
  advance(0.51);
  EXPECT_EQ(window.pixel(18, 35), greenPixel);
  EXPECT_NE(window.pixel(25, 35), greenPixel);
  EXPECT_EQ(bar->value("length"), CAValue(10.0));
  advance(1);
  EXPECT_NE(window.pixel(15, 35), greenPixel) << "over: the model's length is drawn again";
}

TEST_F(LayerAnimation, WhatChangesBetweenTwoFramesLeavesNothingBehind) {
  const auto mover = window.add({0, 0, 10, 40}, red());
  const auto inside = window.add({4, 4, 2, 2}, green(), mover);
  const auto move = make<CABasicAnimation>("position");
  move->setByValue(CGPoint{25, 0});
  move->setDuration(0.1);
  mover->add(*move, "move");
  window.update();
  for (int i = 0; i < 30; ++i) {
    advance(0.007);
    CATransaction::setDisableActions(true);
    inside->setBackgroundColor(i % 2 ? red() : green());
    window.update();
  }
  mover->setHidden(true);
  window.update();
  for (int x = 0; x < 40; ++x) ASSERT_EQ(window.pixel(x, 1), whitePixel) << x;
}

}  // namespace
}  // namespace bkuk
