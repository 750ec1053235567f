#include <gtest/gtest.h>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/drawing/NSShadow.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/ShownView.h"
#include "tests/coregraphics/Picture.h"

namespace bkuk {
namespace {

TEST(NSShadow, FallsUnderWhatIsDrawnAfterIt) {
  const Picture picture(40, 40);
  const auto shadow = make<NSShadow>();
  shadow->set();
  shadow->setShadowOffset({20, 20});
  shadow->setShadowColor(NSColor::black());
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(picture.context, false));
  shadow->set();
  NSColor::white()->setFill();
  NSRectFill({0, 0, 10, 10});
  EXPECT_EQ(picture.pixel(25, 15), 0xFF000000);
  EXPECT_EQ(picture.pixel(5, 35), 0xFFFFFFFF);
}

/// Answers another colour at every question.
class FadingColor final : public NSColor {
 public:
  [[nodiscard]] Ref<CGColor> cgColor() const override { return CGColor::gray(0, alpha); }
  CGFloat alpha = 1;
};

TEST(NSShadow, OfAViewIsItsLayersWithTheColoursAlphaAsOpacity) {
  const VirtualHostScope host;
  const auto shadow = make<NSShadow>();
  const auto color = make<FadingColor>();
  color->alpha = 0.5;
  shadow->setShadowOffset({2, -4});
  shadow->setShadowBlurRadius(6);
  shadow->setShadowColor(color);
  const auto unseen = make<NSView>();
  unseen->setShadow(shadow);
  shadow->setShadowBlurRadius(60);
  EXPECT_EQ(unseen->shadow()->shadowBlurRadius(), 6) << "a copy is kept";

  const ShownView shown;
  shown.view->addSubview(unseen);
  const auto& layer = *unseen->layer();
  EXPECT_EQ(layer.shadowOffset(), (CGSize{2, -4}));
  EXPECT_EQ(layer.shadowRadius(), 6);
  EXPECT_EQ(layer.shadowOpacity(), 0.5);
  EXPECT_EQ(layer.shadowColor()->alpha(), 1);

  color->alpha = 0.25;
  host->setAppearance({.scheme = host::ColorScheme::dark});
  EXPECT_EQ(layer.shadowOpacity(), 0.25) << "the colour is asked again when the appearance changes";
  unseen->setShadow(nullptr);
  EXPECT_EQ(layer.shadowOpacity(), 0);
}

}  // namespace
}  // namespace bkuk
