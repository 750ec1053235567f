#include "BrenvikUIKit/colour/BKUKThemedColor.h"
#include "BrenvikUIKit/drawing/BKUKFillView.h"
#include "BrenvikUIKit/drawing/BKUKShapeView.h"
#include "tests/drawing/WindowFixture.h"

namespace bkuk {
namespace {

Ref<NSColor> redThenGreen() { return make<BKUKThemedColor>(NSColor::red(), NSColor::srgbRed(0, 1, 0, 1)); }

/// A view that owns a shape, as components do: it applies its style again in `updateLayer`.
class StrokingView : public NSView {
 public:
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override { shapeLayer_->shape()->apply({.color = color_, .width = 10}); }

 protected:
  void didInit() override {
    NSView::didInit();
    setWantsLayer(true);
    layer()->addSublayer(shapeLayer_);
    shapeLayer_->shape()->setPath([](BKUKShape& shape) { return CGPath::rect(shape.bounds()); });
    shapeLayer_->setFrame(bounds());
  }

 private:
  Ref<NSColor> color_ = redThenGreen();
  Ref<BKUKShapeLayer> shapeLayer_ = make<BKUKShapeLayer>();
};

using BKUKShapeViewTest = WindowFixture;

TEST_F(BKUKShapeViewTest, ReachesTheStrokeThatAViewOwns) {
  show(make<StrokingView>());
  EXPECT_EQ(pixel(2, 50), redPixel);
  use(NSAppearanceNameDarkAqua);
  EXPECT_EQ(pixel(2, 50), greenPixel);
  EXPECT_EQ(pixel(100, 50), blackPixel) << "nothing fills the shape";
}

TEST_F(BKUKShapeViewTest, ReachesShapeViews) {
  show(make<BKUKShapeView>(redThenGreen()));
  EXPECT_EQ(pixel(100, 50), redPixel);
  use(NSAppearanceNameDarkAqua);
  EXPECT_EQ(pixel(100, 50), greenPixel);
}

TEST_F(BKUKShapeViewTest, ReachesBordersFillsAndGradients) {
  const auto view = make<BKUKFillView>(BKUKFillView::Look{.borderColor = redThenGreen(), .borderWidth = 5});
  view->setFills({BKUKFill::linearGradient({.gradient = {{redThenGreen(), redThenGreen()}, {}}})});
  show(view);
  for (const CGFloat x : {2, 100}) EXPECT_EQ(pixel(x, 50), redPixel);
  use(NSAppearanceNameDarkAqua);
  for (const CGFloat x : {2, 100}) EXPECT_EQ(pixel(x, 50), greenPixel);
}

// Shape views

TEST_F(BKUKShapeViewTest, AShapeViewComputesItsCornersFromItsSize) {
  const auto view =
      make<BKUKShapeView>(NSColor::white(), [](BKUKShape& shape) { return shape.bounds().height() / 2; });
  show(view);
  EXPECT_FALSE(view->layer()->masksToBounds());
  EXPECT_EQ(view->shapeLayer(), view->layer());
  EXPECT_EQ(pixel(1, 1), blackPixel);
  EXPECT_EQ(pixel(100, 1), whitePixel);
  window->setContentSize({100, 60});
  host->settle();
  EXPECT_EQ(view->layer()->cornerRadius(), 30);
}

TEST_F(BKUKShapeViewTest, AShapeViewKeepsItsPlaceWhenItsSuperviewGrows) {
  const auto view = make<BKUKShapeView>(NSColor::white());
  view->setFrame({0, 0, 50, 50});
  window->contentView()->addSubview(view);
  window->setContentSize({300, 200});
  host->settle();
  EXPECT_EQ(view->layer()->frame(), CGRect(0, 0, 50, 50));
}

TEST_F(BKUKShapeViewTest, AShapeLayerMayMoveIntoAnotherLayer) {
  const auto view = make<BKUKShapeView>(NSColor::white());
  const auto container = make<CALayer>();
  container->setBounds({0, 0, 40, 20});
  container->addSublayer(make<CALayer>());
  view->addShapeLayerInto(*container);
  EXPECT_EQ(container->sublayers().back(), view->shapeLayer());
  EXPECT_EQ(view->shapeLayer()->frame(), CGRect(0, 0, 40, 20));
  container->setBounds({0, 0, 80, 20});
  EXPECT_EQ(view->shapeLayer()->frame().width(), 80);
}

}  // namespace
}  // namespace bkuk
