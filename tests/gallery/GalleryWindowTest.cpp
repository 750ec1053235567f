#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/GalleryWindow.h"
#include "gallery/brand/Brand.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk::gallery {
namespace {

using Role = VirtualScreenReader::Role;

constexpr std::uint16_t tabKey = 48;
constexpr std::uint16_t homeKey = 115;
constexpr std::uint16_t endKey = 119;
constexpr std::uint16_t downKey = 125;

/// The gallery on a desktop of its own, as its user has it.
class GalleryWindowTest : public testing::Test {
 protected:
  GalleryWindowTest() { installBrand(); }
  ~GalleryWindowTest() override { gallery.window->close(); }

  void open(std::string page, NSSize size, AppearanceChoice appearance = AppearanceChoice::light) {
    gallery = makeGalleryWindow({.appearance = appearance, .page = std::move(page)});
    gallery.window->setContentSize(size);
    gallery.window->makeKeyAndOrderFront();
    host->settle();
  }

  VirtualWindow& desktop() { return *host->windows().back(); }
  /// In the window, from its upper left corner.
  host::Rect place(Role role, std::string_view name) {
    auto frame = reader.element(reader.find(role, name)).frame;
    frame.x -= desktop().frame().x;
    frame.y -= desktop().frame().y;
    return frame;
  }
  static host::Point middle(const host::Rect& rect) {
    return {rect.x + rect.width / 2, rect.y + rect.height / 2};
  }
  std::string focused() { return reader.name(reader.focused()); }
  /// Sum of red, green and blue.
  int brightness(double x, double y) {
    const auto pixel = desktop().pixel(static_cast<int>(x), static_cast<int>(y));
    return static_cast<int>((pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF));
  }

  VirtualHostScope host;
  VirtualScreenReader reader{*host};
  GalleryWindow gallery;
};

TEST_F(GalleryWindowTest, ArrowsTurnThePageBeforeAnyTab) {
  open("", {1000, 700});
  desktop().typeKey(downKey);
  EXPECT_NE(reader.find(Role::heading, "Shapes"), 0U);
  EXPECT_EQ(focused(), "Shapes");
}

TEST_F(GalleryWindowTest, TheListScrollsByKeysAndWheelWhereTheWindowIsLow) {
  open("", {1000, 420});
  const auto isSeen = [this](std::string_view page) {
    const auto row = place(Role::row, page);
    return row.y >= 60 && row.y + row.height <= 420;
  };
  EXPECT_FALSE(isSeen("Languages"));
  desktop().typeKey(endKey);
  EXPECT_TRUE(isSeen("Languages"));
  EXPECT_FALSE(isSeen("Colour roles"));
  desktop().movePointer({100, 200});
  desktop().scroll(0, 400);
  EXPECT_TRUE(isSeen("Colour roles"));
  EXPECT_EQ(focused(), "Languages");
}

TEST_F(GalleryWindowTest, TheRowBelowThePointerShowsItAlsoWhenItIsScrolledThere) {
  open("", {1000, 420});
  const auto row = place(Role::row, "Trigger");
  const auto atRest = brightness(20, middle(row).y);
  desktop().movePointer(middle(row));
  host->settle();
  const auto pointedAt = brightness(20, middle(row).y);
  EXPECT_NE(pointedAt, atRest);
  desktop().scroll(0, -34);
  host->settle();
  EXPECT_EQ(brightness(20, middle(row).y), pointedAt);
  EXPECT_EQ(brightness(20, middle(row).y - 34), atRest) << "the row that left the pointer";
  desktop().movePointer({600, 30});
  host->settle();
  EXPECT_EQ(brightness(20, middle(row).y), atRest);
}

TEST_F(GalleryWindowTest, TheThumbIsDraggedAndAPressBesideItGoesOnePartOn) {
  open("", {1000, 500});
  const auto top = [this] { return place(Role::group, "background").y; };
  const auto atFirst = top();
  desktop().movePointer({994, 90});
  desktop().press();
  desktop().movePointer({900, 100});
  const auto moved = atFirst - top();
  EXPECT_GT(moved, 10) << "by more than the thumb, and also beside the bar";
  desktop().movePointer({900, 5000});
  const auto last = place(Role::image, "highlightNeutral, #E3E6ED");
  EXPECT_NEAR(last.y + last.height, 500 - 28, 1);
  desktop().movePointer({900, 90});
  EXPECT_EQ(top(), atFirst);
  desktop().release();
  desktop().movePointer({900, 300});
  EXPECT_EQ(top(), atFirst) << "let go";
  desktop().click({994, 490});
  EXPECT_EQ(top(), atFirst - 424) << "as much as is seen at once";
}

TEST_F(GalleryWindowTest, ThePageIsATabStopOnlyWhereItScrolls) {
  open("trigger", {1000, 700});
  for (int i = 0; i < 3; ++i) desktop().typeKey(tabKey);
  EXPECT_NE(focused(), "Trigger");
  gallery.window->makeFirstResponder(&gallery.content->firstKeyView());
  gallery.window->setContentSize({1000, 420});
  host->settle();
  for (int i = 0; i < 3; ++i) desktop().typeKey(tabKey);
  EXPECT_EQ(focused(), "Trigger");
  const auto before = place(Role::button, "Increase").y;
  desktop().typeKey(endKey);
  EXPECT_LT(place(Role::button, "Increase").y, before);
  desktop().typeKey(homeKey);
  EXPECT_EQ(place(Role::button, "Increase").y, before);
}

TEST_F(GalleryWindowTest, TheChosenSegmentIsLighterThanItsGrooveInBothAppearances) {
  for (const auto& [appearance, name] :
       {std::pair{AppearanceChoice::light, "Light"}, std::pair{AppearanceChoice::dark, "Dark"}}) {
    open("", {1000, 700}, appearance);
    const auto chosen = place(Role::radioButton, name);
    const auto other = place(Role::radioButton, "Desktop");
    EXPECT_GT(brightness(chosen.x + 8, middle(chosen).y), brightness(other.x + 8, middle(other).y) + 15)
        << name;
    gallery.window->close();
  }
}

TEST_F(GalleryWindowTest, ARowThatDoesNotFitIsBrokenEvenly) {
  open("fills", {940, 700});
  const auto left = place(Role::image, "Colour").x;
  EXPECT_EQ(place(Role::image, "Radial gradient").x, left);
  EXPECT_GT(place(Role::image, "Stack of three").x, left);
}

TEST_F(GalleryWindowTest, NoTileOfALayoutShrinksToAStub) {
  open("layout", {940, 700});
  reader.setValue(reader.find(Role::slider, "Width of the cards"), 0);
  EXPECT_NE(reader.find(Role::staticText, "420 pt"), 0U);
  for (const auto* tile : {"Shrinks before others do", "Wants three fifths", "Takes what is left"})
    EXPECT_GE(place(Role::staticText, tile).width, 40) << tile;
}

}  // namespace
}  // namespace bkuk::gallery
