#include <gmock/gmock.h>
#include <map>
#include <thread>

#include "testing/VirtualHost.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

using ::testing::ElementsAre;

// A run loop of nothing but timers, which are handlers by date.
class TimerLoop final : public host::LoopClient {
 public:
  explicit TimerLoop(VirtualHost& desktop) : desktop_(desktop) { desktop.loop().setClient(this); }

  void add(double date, std::function<void()> handler) {
    timers_.emplace(date, std::move(handler));
    schedule();
  }

  void turn() override {
    ++turns;
    while (!timers_.empty() && timers_.begin()->first <= desktop_.now()) {
      const auto handler = timers_.extract(timers_.begin()).mapped();
      handler();
    }
    desktop_.loop().dispatchEvent();
    schedule();
  }

  int turns = 0;

 private:
  void schedule() {
    desktop_.loop().scheduleTurn(timers_.empty() ? std::nullopt : std::optional(timers_.begin()->first));
  }

  VirtualHost& desktop_;
  std::multimap<double, std::function<void()>> timers_;
};

class VirtualHostTest : public ::testing::Test {
 protected:
  void recordAt(double date) {
    loop.add(date, [this] { fired.push_back(desktop.now()); });
  }

  VirtualHost desktop;
  TimerLoop loop{desktop};
  std::vector<double> fired;
};

TEST_F(VirtualHostTest, EverythingDueHappensInOrderAtItsOwnDate) {
  recordAt(1000.3);
  recordAt(1000.1);
  recordAt(1000.9);
  desktop.advance(0.5);
  EXPECT_THAT(fired, ElementsAre(1000.1, 1000.3));
  EXPECT_EQ(desktop.now(), 1000.5);
  desktop.advance(0.4);
  EXPECT_EQ(fired.size(), 3U);
}

TEST_F(VirtualHostTest, WorkThatAHandlerAddsHappensInTheSameAdvance) {
  loop.add(1000.1, [this] { recordAt(1000.2); });
  desktop.advance(1);
  EXPECT_THAT(fired, ElementsAre(1000.2));
}

TEST_F(VirtualHostTest, WaitingMovesTheClockAndNeverSleeps) {
  desktop.loop().wait(1002);
  EXPECT_EQ(desktop.now(), 1002);
  desktop.loop().wait(900);
  EXPECT_EQ(desktop.now(), 1002);
  desktop.loop().wake();
  desktop.loop().wait(2000);
  EXPECT_EQ(desktop.now(), 1002);
  bool idle = false;
  desktop.setIdleHandler([&] { idle = true; });
  desktop.loop().wait(std::nullopt);
  EXPECT_TRUE(idle);
}

TEST_F(VirtualHostTest, AWakeFromAnotherThreadMakesATurn) {
  loop.add(1000, [this] { std::thread([this] { desktop.loop().wake(); }).join(); });
  desktop.settle();
  EXPECT_EQ(loop.turns, 2);
}

TEST_F(VirtualHostTest, AppearanceChangesAreToldOnceEach) {
  int changes = 0;
  desktop.settings().setAppearanceHandler([&] { ++changes; });
  desktop.setAppearance({.scheme = host::ColorScheme::dark});
  desktop.setAppearance({.scheme = host::ColorScheme::dark});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(desktop.settings().appearance().scheme, host::ColorScheme::dark);
}

TEST(VirtualHostScope, PutsTheHostBeforeBack) {
  VirtualHostScope outer;
  outer->advance(5);
  {
    VirtualHostScope inner;
    EXPECT_EQ(&host::current(), &*inner);
    EXPECT_EQ(host::current().loop().now(), 1000);
  }
  EXPECT_EQ(host::current().loop().now(), 1005);
}

}  // namespace
}  // namespace bkuk
