#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/brand/Brand.h"
#include "gallery/chrome/Slider.h"
#include "testing/VirtualHostScope.h"

namespace bkuk::gallery {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A slider from 0 to 100 whose knob travels two points for each.
class SliderTest : public testing::Test {
 protected:
  SliderTest() {
    installBrand();
    slider->setFrame({10, 10, 226, Slider::height});
    window->contentView()->addSubview(slider);
    window->makeKeyAndOrderFront();
    window->makeFirstResponder(slider.get());
    host->settle();
  }
  ~SliderTest() override { window->close(); }

  VirtualWindow& desktop() { return *host->windows().front(); }
  /// Where the middle of the knob is for a value, seen from the left.
  static host::Point at(double value) { return {10 + 13 + 2 * value, 24}; }
  void type(std::initializer_list<int> keys) {
    for (const auto key : keys) desktop().typeKey(static_cast<std::uint16_t>(key));
  }

  VirtualHostScope host;
  std::vector<CGFloat> heard;
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 246, 48));
  Ref<Slider> slider =
      make<Slider>(Slider::Range{0, 100, 5}, 50, [this](CGFloat value) { heard.push_back(value); });
};

TEST_F(SliderTest, TheKnobFollowsADragFromWhereItIsHeldAndStopsAtTheEnds) {
  const auto held = at(52);
  desktop().movePointer(held);
  desktop().press();
  EXPECT_THAT(heard, IsEmpty()) << "taking hold of the knob does not move it";
  desktop().movePointer(at(72));
  EXPECT_NEAR(slider->value(), 70, 1e-9);
  desktop().movePointer({900, 900});
  desktop().movePointer({-900, 24});
  desktop().movePointer({-950, 24});
  EXPECT_THAT(heard, ElementsAre(70, 100, 0)) << "told once for each value";
  desktop().release();
  desktop().movePointer(at(30));
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(SliderTest, APressBesideTheKnobTakesItThere) {
  desktop().drag(at(20), at(25));
  EXPECT_NEAR(heard.front(), 20, 1e-9);
  EXPECT_NEAR(slider->value(), 25, 1e-9);
}

TEST_F(SliderTest, KeysStepAndGoToTheEnds) {
  type({124, 126, 123, 125, 123});
  EXPECT_THAT(heard, ElementsAre(55, 60, 55, 50, 45));
  type({119, 124, 115, 125});
  EXPECT_EQ(slider->value(), 0);
  EXPECT_EQ(heard.size(), 7U) << "nothing is told at the ends";
}

TEST_F(SliderTest, RightToLeftTurnsTheRangeOver) {
  slider->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  type({124, 126});
  EXPECT_THAT(heard, ElementsAre(45, 50));
  desktop().click(at(20));
  EXPECT_NEAR(slider->value(), 80, 1e-9);
}

}  // namespace
}  // namespace bkuk::gallery
