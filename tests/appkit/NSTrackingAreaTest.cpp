#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSPanel.h"
#include "platform/appkit/NSTrackingArea.h"
#include "testing/VirtualHostScope.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr NSTrackingAreaOptions usual = NSTrackingMouseEnteredAndExited | NSTrackingActiveInKeyWindow;

/// Writes what its areas report into a log that it shares with others.
class TrackedView : public NSView {
 public:
  TrackedView(std::string name, NSRect frame, std::vector<std::string>& log)
      : NSView(frame), name_(std::move(name)), log_(log) {}

  Ref<NSTrackingArea> track(NSTrackingAreaOptions options) {
    auto area = make<NSTrackingArea>(bounds(), options, this);
    addTrackingArea(area);
    return area;
  }

  std::function<void()> onEnter;
  int updates = 0;

  void mouseEntered(NSEvent&) override {
    log_.push_back("+" + name_);
    if (onEnter) onEnter();
  }
  void mouseExited(NSEvent&) override { log_.push_back("-" + name_); }
  void mouseMoved(NSEvent&) override { log_.push_back("~" + name_); }
  void cursorUpdate(NSEvent&) override { log_.push_back("c" + name_); }
  void mouseDragged(NSEvent&) override {}
  void mouseDown(NSEvent&) override {}
  void mouseUp(NSEvent&) override { log_.push_back("up " + name_); }
  void updateTrackingAreas() override { ++updates; }

 private:
  std::string name_;
  std::vector<std::string>& log_;
};

class Tracking : public testing::Test {
 public:
  Tracking() {
    window->contentView()->addSubview(a);
    window->contentView()->addSubview(b);
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~Tracking() override { window->close(); }

  VirtualWindow& desktop() { return *host->windows().front(); }
  /// Positions have y down in a window of 100 points.
  std::vector<std::string> move(double x, double y) {
    desktop().movePointer({x, y});
    return std::exchange(log, {});
  }

  VirtualHostScope host;
  std::vector<std::string> log;
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 200, 100));
  Ref<TrackedView> a = make<TrackedView>("a", NSRect(10, 10, 100, 50), log);
  Ref<TrackedView> b = make<TrackedView>("b", NSRect(60, 10, 100, 50), log);  // over the right half of a
};

TEST_F(Tracking, EntriesAndExitsAlternateAlsoWhereAnotherViewLiesOnTop) {
  a->track(usual);
  b->track(usual);
  EXPECT_THAT(move(5, 95), IsEmpty());
  EXPECT_THAT(move(20, 60), ElementsAre("+a"));
  EXPECT_THAT(move(80, 60), ElementsAre("+b"));
  EXPECT_THAT(move(5, 5), ElementsAre("-b", "-a"));    // front to back
  EXPECT_THAT(move(80, 60), ElementsAre("+a", "+b"));  // back to front
  EXPECT_THAT(move(120, 60), ElementsAre("-a"));
  desktop().leavePointer();
  EXPECT_THAT(log, ElementsAre("-b"));
}

TEST_F(Tracking, AnAreaMadeUnderThePointerStartsAsEntered) {
  move(20, 60);
  a->track(usual);
  EXPECT_THAT(move(21, 60), IsEmpty());
  EXPECT_THAT(move(5, 5), ElementsAre("-a"));
  b->track(usual | NSTrackingAssumeInside);
  EXPECT_THAT(move(6, 5), ElementsAre("-b"));
}

TEST_F(Tracking, WithoutLeaveToDragEntriesWaitForTheRelease) {
  a->track(usual);
  b->track(usual | NSTrackingEnabledDuringMouseDrag);
  move(20, 60);
  log.clear();
  desktop().press();
  EXPECT_THAT(move(120, 60), ElementsAre("-a", "+b"));
  EXPECT_THAT(move(20, 60), ElementsAre("-b"));
  desktop().release();
  EXPECT_THAT(log, ElementsAre("up a", "+a"));
}

TEST_F(Tracking, ActivityFollowsTheKeyWindowAndVisibility) {
  a->track(usual);
  b->track(NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways);
  move(80, 60);
  log.clear();
  desktop().setFocused(false);
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("-a"));
  desktop().setFocused(true);
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("+a"));
  b->setHidden(true);
  host->settle();
  EXPECT_THAT(std::exchange(log, {}), IsEmpty());  // a hidden view hears nothing
  b->setHidden(false);
  host->settle();
  EXPECT_THAT(std::exchange(log, {}), ElementsAre("+b"));
}

TEST_F(Tracking, MovesAndCursorUpdatesGoToThoseWhoAskForThem) {
  a->track(NSTrackingMouseMoved | NSTrackingCursorUpdate | NSTrackingActiveAlways);
  EXPECT_THAT(move(20, 60), ElementsAre("ca", "~a"));
  EXPECT_THAT(move(21, 60), ElementsAre("~a"));
  EXPECT_THAT(move(5, 5), IsEmpty());
}

TEST_F(Tracking, ViewsAreToldOnceAfterTheyOrWhatContainsThemMoved) {
  a->addSubview(make<TrackedView>("inner", NSRect(0, 0, 10, 10), log));
  const auto inner = as<TrackedView>(a->subviews().front());
  host->settle();
  a->updates = inner->updates = b->updates = 0;
  a->setFrameOrigin({20, 10});
  a->setFrameOrigin({30, 10});
  EXPECT_EQ(a->updates, 0);
  host->settle();
  EXPECT_EQ(std::tuple(a->updates, inner->updates, b->updates), std::tuple(1, 1, 0));
  const auto area = inner->track(usual);
  window->contentView()->setBoundsOrigin({0, 40});
  host->settle();
  EXPECT_EQ(inner->updates, 2);
  // The area went along: its lower left corner lies at (30, -30) of the window now, out of sight.
  EXPECT_TRUE(inner->visibleRect().isEmpty());
}

TEST_F(Tracking, OwnersMayTakeAwayAreasViewsAndTheWindow) {
  a->track(usual);
  const auto area = b->track(usual);
  a->onEnter = [&] { b->removeTrackingArea(area); };
  EXPECT_THAT(move(80, 60), ElementsAre("+a"));
  move(5, 5);
  b->addTrackingArea(area);
  a->onEnter = [&] { b->removeFromSuperview(); };
  EXPECT_THAT(move(80, 60), ElementsAre("+a"));
  move(5, 5);
  a->onEnter = [&] { window->close(); };
  EXPECT_THAT(move(80, 60), ElementsAre("+a", "-a"));
}

TEST_F(Tracking, OptionsWithoutAReportOrWithTwoActivitiesAreErrors) {
  const auto stops = [&](NSTrackingAreaOptions options) {
    return stopLine([&] { (void)make<NSTrackingArea>(NSRect(), options, a.get()); }).has_value();
  };
  EXPECT_TRUE(stops(NSTrackingActiveAlways));
  EXPECT_TRUE(stops(NSTrackingMouseMoved));
  EXPECT_TRUE(stops(usual | NSTrackingActiveAlways));
  EXPECT_FALSE(stops(usual));
}

TEST_F(Tracking, APanelThatTakesTheKeyboardOnlyIfNeededStaysOutOfTheWay) {
  const auto panel = make<NSPanel>(NSRect(0, 0, 50, 50));
  panel->setBecomesKeyOnlyIfNeeded(true);
  panel->orderFront();
  host->settle();
  host->windows().back()->click({20, 20});
  EXPECT_FALSE(panel->isKeyWindow());
  panel->setBecomesKeyOnlyIfNeeded(false);
  host->windows().back()->click({20, 20});
  EXPECT_TRUE(panel->isKeyWindow());
  EXPECT_FALSE(panel->isMainWindow());
  panel->close();
}

}  // namespace
}  // namespace bkuk
