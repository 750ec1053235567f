#include <gmock/gmock.h>

#include "testing/VirtualHost.h"
#include "testing/VirtualWindow.h"

namespace bkuk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = host::PointerEvent::Kind;

class Client final : public host::WindowClient {
 public:
  void handleEvent(const host::WindowEvent& event) override {
    if (const auto* pointer = std::get_if<host::PointerEvent>(&event)) pointers.push_back(*pointer);
    if (const auto* focus = std::get_if<host::FocusEvent>(&event)) focuses.push_back(focus->focused);
    if (const auto* frame = std::get_if<host::FrameEvent>(&event)) frames.push_back(frame->frame);
    if (onEvent) onEvent();
  }

  std::vector<Kind> kinds() const {
    std::vector<Kind> result;
    for (const auto& event : pointers) result.push_back(event.kind);
    return result;
  }

  std::vector<host::PointerEvent> pointers;
  std::vector<bool> focuses;
  std::vector<host::Rect> frames;
  std::function<void()> onEvent;
};

class VirtualWindowTest : public ::testing::Test {
 protected:
  VirtualWindowTest() {
    window->show();
    other->show();
    desktop.settle();
  }

  VirtualWindow& at(std::size_t index) { return *desktop.windows().at(index); }

  VirtualHost desktop;
  Client client;
  Client otherClient;
  std::unique_ptr<host::Window> window = desktop.desktop().makeWindow({.frame = {100, 100, 50, 40}}, client);
  std::unique_ptr<host::Window> other =
      desktop.desktop().makeWindow({.frame = {400, 100, 50, 40}}, otherClient);
};

TEST_F(VirtualWindowTest, ThePointerEntersAndLeavesByItself) {
  at(0).movePointer({10, 10});
  at(0).movePointer({200, 10});
  EXPECT_THAT(client.kinds(), ElementsAre(Kind::enter, Kind::move, Kind::leave));
}

TEST_F(VirtualWindowTest, GoingToAnotherWindowLeavesTheFirst) {
  at(0).movePointer({10, 10});
  at(1).movePointer({5, 5});
  EXPECT_THAT(client.kinds(), ElementsAre(Kind::enter, Kind::move, Kind::leave));
  EXPECT_THAT(otherClient.kinds(), ElementsAre(Kind::enter, Kind::move));
  EXPECT_EQ(window->pointerPosition(), (host::Point{305, 5}));
}

TEST_F(VirtualWindowTest, ADragStaysWithItsWindowUntilTheRelease) {
  at(0).movePointer({10, 10});
  at(0).press();
  at(0).movePointer({300, 10});
  EXPECT_EQ(client.pointers.back().kind, Kind::move);
  EXPECT_EQ(client.pointers.back().button, host::PointerButton::left);
  at(0).release();
  EXPECT_THAT(client.kinds(),
              ElementsAre(Kind::enter, Kind::move, Kind::press, Kind::move, Kind::release, Kind::leave));
}

TEST_F(VirtualWindowTest, ADoubleClickCountsToTwo) {
  at(0).doubleClick({10, 10});
  EXPECT_EQ(client.pointers.back().clickCount, 2);
  desktop.advance(2);
  at(0).click({10, 10});
  EXPECT_EQ(client.pointers.back().clickCount, 1);
}

TEST_F(VirtualWindowTest, HidingAPressedWindowCancelsThePress) {
  at(0).movePointer({10, 10});
  at(0).press();
  window->hide();
  desktop.settle();
  at(0).release();
  EXPECT_THAT(client.kinds(), ElementsAre(Kind::enter, Kind::move, Kind::press, Kind::cancel, Kind::leave));
}

TEST_F(VirtualWindowTest, OneWindowHasTheKeyboard) {
  window->activate();
  other->activate();
  desktop.settle();
  EXPECT_THAT(client.focuses, ElementsAre(true, false));
  EXPECT_THAT(otherClient.focuses, ElementsAre(true));
}

TEST_F(VirtualWindowTest, AHandlerMayDestroyItsWindow) {
  client.onEvent = [this] { window.reset(); };
  at(0).click({10, 10});
  EXPECT_THAT(client.kinds(), ElementsAre(Kind::enter));
  EXPECT_EQ(desktop.windows().size(), 1U);
}

TEST_F(VirtualWindowTest, ADragEndsWithItsWindow) {
  for (const auto last : {Kind::enter, Kind::press, Kind::move, Kind::release}) {
    client.pointers.clear();
    window = desktop.desktop().makeWindow({.frame = {100, 100, 50, 40}}, client);
    client.onEvent = [this, last] {
      if (!client.pointers.empty() && client.pointers.back().kind == last) window.reset();
    };
    desktop.windows().back()->drag({10, 10}, {20, 20});
    ASSERT_FALSE(client.pointers.empty());
    EXPECT_EQ(client.pointers.back().kind, last);
    EXPECT_FALSE(window);
  }
}

TEST_F(VirtualWindowTest, PresentsCoverOnlyTheirDamage) {
  host::Bitmap image(window->pixelSize());
  image.fill({0, 0, 50, 40}, 0xFF123456);
  const host::PixelRect damage[] = {{10, 10, 5, 5}, {45, 35, 100, 100}};
  window->present(image, damage);
  EXPECT_EQ(at(0).pixel(12, 12), 0xFF123456);
  EXPECT_EQ(at(0).pixel(0, 0), 0U);
  EXPECT_EQ(at(0).pixel(49, 39), 0xFF123456);
  EXPECT_EQ(at(0).pixel(50, 0), 0U);
  EXPECT_THAT(at(0).presentedDamage(), ElementsAre(damage[0], damage[1]));
  window->hide();
  window->present(image, damage);
  EXPECT_EQ(at(0).presentCount(), 1);
}

TEST_F(VirtualWindowTest, ALongRunKeepsWhereDamageWasButNotAllOfIt) {
  const host::Bitmap image(window->pixelSize());
  for (int i = 0; i < 10'000; ++i) {
    const host::PixelRect damage[] = {{i % 40, i % 30, 2, 1}};
    window->present(image, damage);
  }
  const auto& kept = at(0).presentedDamage();
  EXPECT_LT(kept.size(), 2000U);
  EXPECT_EQ(kept.front(), (host::PixelRect{0, 0, 41, 30}));
}

TEST_F(VirtualWindowTest, FramesAreClampedAndToldOnlyWhenTheyChange) {
  window->setFrame({100, 100, 50, 40});
  desktop.settle();
  EXPECT_THAT(client.frames, IsEmpty());
  window->setFrame({100, 100, -3, 1e9});
  desktop.settle();
  EXPECT_THAT(client.frames, ElementsAre(host::Rect{100, 100, 1, host::Window::maxSide}));
}

}  // namespace
}  // namespace bkuk
