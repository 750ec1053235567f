#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/brand/Brand.h"
#include "gallery/pages/label/LabelPage.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk::gallery {
namespace {

using Role = VirtualScreenReader::Role;

constexpr std::uint16_t tabKey = 48;
constexpr std::uint16_t returnKey = 36;

TEST(LabelPageTest, EachWayOfFollowingALinkIsCounted) {
  const VirtualHostScope host;
  installBrand();
  VirtualScreenReader reader(*host);
  const auto page = make<LabelPage>();
  const NSRect frame(0, 0, 800, page->heightForWidth(800));
  const auto window = make<NSWindow>(frame);
  page->setFrame(frame);
  window->contentView()->addSubview(page);
  window->makeKeyAndOrderFront();
  window->makeFirstResponder(page->keyViews().front());
  host->settle();
  auto& desktop = *host->windows().front();

  desktop.typeKey(returnKey);
  EXPECT_NE(reader.find(Role::staticText, "Link 1: timetable"), 0U);
  desktop.typeKey(tabKey);
  desktop.typeKey(returnKey);
  EXPECT_NE(reader.find(Role::staticText, "Link 2: fares"), 0U);
  const auto link = reader.element(reader.find(Role::link, "weather")).frame;
  const auto origin = desktop.frame();
  desktop.click({link.x + link.width / 2 - origin.x, link.y + link.height / 2 - origin.y});
  EXPECT_NE(reader.find(Role::staticText, "Link 3: weather"), 0U);
  reader.press(reader.find(Role::link, "timetable"));
  EXPECT_NE(reader.find(Role::staticText, "Link 4: timetable"), 0U);
  window->close();
}

}  // namespace
}  // namespace bkuk::gallery
