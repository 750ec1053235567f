#include <gmock/gmock.h>

#include "host/support/EventQueue.h"
#include "testing/VirtualHost.h"

namespace bkuk::host {
namespace {

using ::testing::ElementsAre;
using ::testing::VariantWith;

class EventQueueTest : public ::testing::Test, public WindowClient {
 protected:
  void handleEvent(const WindowEvent& event) override {
    heard.push_back(event);
    if (onEvent) onEvent();
  }

  std::vector<double> pointerXs() const {
    std::vector<double> result;
    for (const auto& event : heard) result.push_back(std::get<PointerEvent>(event).position.x);
    return result;
  }

  void pushPointer(Window& target, double x, PointerEvent::Kind kind, Modifiers modifiers = {}) {
    queue.push(target, *this, PointerEvent{.kind = kind, .position = {x, 0}, .modifiers = modifiers});
  }

  void pushMove(Window& target, double x, Modifiers modifiers = {}) {
    pushPointer(target, x, PointerEvent::Kind::move, modifiers);
  }

  void dispatchAll() {
    while (queue.dispatch()) continue;
  }

  VirtualHost desktop;
  std::unique_ptr<Window> window = desktop.desktop().makeWindow({}, *this);
  std::unique_ptr<Window> other = desktop.desktop().makeWindow({}, *this);
  EventQueue queue;
  std::vector<WindowEvent> heard;
  std::function<void()> onEvent;
};

TEST_F(EventQueueTest, JoinsABurstOfMovesIntoTheLast) {
  for (const double x : {1, 2, 3}) pushMove(*window, x);
  dispatchAll();
  EXPECT_THAT(pointerXs(), ElementsAre(3));
}

TEST_F(EventQueueTest, KeepsMovesApartWhenSomethingHappensBetweenThem) {
  pushMove(*window, 1);
  pushPointer(*window, 2, PointerEvent::Kind::press);
  pushMove(*window, 3);
  pushMove(*other, 4);
  pushMove(*window, 5);
  pushMove(*window, 6, {.shift = true});
  dispatchAll();
  EXPECT_THAT(pointerXs(), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(EventQueueTest, KeepsTheLastOfManyFrames) {
  queue.push(*window, *this, FrameEvent{{0, 0, 10, 10}});
  queue.push(*window, *this, FrameEvent{{0, 0, 20, 20}});
  queue.push(*window, *this, ExposeEvent{true});
  queue.push(*window, *this, ExposeEvent{false});
  dispatchAll();
  EXPECT_THAT(heard,
              ElementsAre(VariantWith<FrameEvent>(::testing::Field(&FrameEvent::frame, Rect{0, 0, 20, 20})),
                          VariantWith<ExposeEvent>(::testing::Field(&ExposeEvent::exposed, true)),
                          VariantWith<ExposeEvent>(::testing::Field(&ExposeEvent::exposed, false))));
}

TEST_F(EventQueueTest, DeliversOneEventAtATime) {
  pushMove(*window, 1);
  pushMove(*other, 2);
  EXPECT_TRUE(queue.dispatch());
  EXPECT_EQ(heard.size(), 1U);
  EXPECT_TRUE(queue.dispatch());
  EXPECT_FALSE(queue.dispatch());
}

TEST_F(EventQueueTest, ForgetsTheEventsOfAWindowThatGoesInsideAHandler) {
  pushMove(*window, 1);
  pushMove(*other, 2);
  pushPointer(*window, 3, PointerEvent::Kind::press);
  onEvent = [this] {
    if (!window) return;
    queue.drop(*window);
    window.reset();
  };
  dispatchAll();
  EXPECT_THAT(pointerXs(), ElementsAre(1, 2));
}

}  // namespace
}  // namespace bkuk::host
