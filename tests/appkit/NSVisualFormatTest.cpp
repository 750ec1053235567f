#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/appkit/constraints/VisualFormat.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/LayoutFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::HasSubstr;

struct Drawing {
  const VirtualHostScope host;
  LayoutFixture fixture;
  Ref<LayoutView> a = placedView(*fixture.root, {30, 10});
  Ref<LayoutView> b = placedView(*fixture.root, {30, 20});
  Ref<LayoutView> c = placedView(*fixture.root, {30, 30});

  std::vector<NSRect> laidOut(std::string_view format, NSLayoutFormatOptions options = 0) {
    const auto constraints = NSLayoutConstraint::constraintsWithVisualFormat(
        format, options, {{"gap", 12}, {"high", 700}}, {{"a", a.get()}, {"b", b.get()}, {"c", c.get()}});
    NSLayoutConstraint::activateConstraints(constraints);
    fixture.window->layoutIfNeeded();
    const std::vector<NSRect> frames{a->frame(), b->frame(), c->frame()};
    NSLayoutConstraint::deactivateConstraints(constraints);
    return frames;
  }
};

TEST(VisualFormat, PlacesWhatItDraws) {
  Drawing drawing;
  auto frames = drawing.laidOut("|-[a]-[b(30)]-gap-[c(==a)]-(>=4@high,<=60)-|");
  EXPECT_EQ(frames[0].minX(), 20);
  EXPECT_EQ(frames[1].minX(), 63);
  EXPECT_EQ(frames[2].minX(), 105);
  EXPECT_EQ(frames[2].size.width, 35) << "the space behind may be 60 at most";
  frames = drawing.laidOut("H:[a]-(-5.5)-[b(>=40,<=50@999)][c]|");
  EXPECT_EQ(frames[2].maxX(), 200);
  EXPECT_EQ(frames[1].minX(), 130);
  EXPECT_EQ(frames[0].maxX(), 135.5);
  frames = drawing.laidOut("V:|-2-[a]-3-[c]", NSLayoutFormatAlignAllLeft);
  EXPECT_EQ(frames[0], NSRect(0, 88, 30, 10));
  EXPECT_EQ(frames[2], NSRect(0, 55, 30, 30));
}

TEST(VisualFormat, RunsAsToldOrAsTheTextDoes) {
  Drawing drawing;
  drawing.fixture.root->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_EQ(drawing.laidOut("|-5-[a]-7-[b]")[1].minX(), 128);
  EXPECT_EQ(drawing.laidOut("|-5-[a]-7-[b]", NSLayoutFormatDirectionLeftToRight)[1].minX(), 42);
  drawing.fixture.root->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::leftToRight);
  EXPECT_EQ(drawing.laidOut("|-5-[a]-7-[b]", NSLayoutFormatDirectionRightToLeft)[1].minX(), 128);
}

TEST(VisualFormat, WhatCannotBeReadStopsAtItsPlace) {
  Drawing drawing;
  for (const auto* format :
       {"", "|", "|-|", "[a", "[]", "[a(]", "[a(1)", "[a]-", "[a]-5[b]", "[a]-(1-[b]", "|[a]|[b]", "[a]--[b]",
        "[a(=1)]", "[a(1@)]", "[a]-inf-[b]x", "V;[a]", "[a(-)]"}) {
    EXPECT_TRUE(std::holds_alternative<VisualFormat::Error>(VisualFormat::parse(format))) << format;
  }
  const auto stop = stopLine([&] { drawing.laidOut("[a]-5[b]"); });
  ASSERT_TRUE(stop);
  EXPECT_THAT(*stop, HasSubstr("at 5, a - is expected: [a]-5[b]"));
  EXPECT_TRUE(stopLine([&] { drawing.laidOut("[unknown]"); }));
  EXPECT_TRUE(stopLine([&] { drawing.laidOut("[a(unknown)]"); }));
}

}  // namespace
}  // namespace bkuk
