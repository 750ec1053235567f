#include <gtest/gtest.h>
#include <limits>

#include "BrenvikUIKit/colour/BKUKAppAppearanceObserver.h"
#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "tests/colour/AppearanceFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {

class BKUKAppAppearanceObserverTestApi {
 public:
  static void setObserverCount(BKUKAppAppearanceObserver& observer, std::int64_t count) {
    observer.observerCount_ = count;
  }
};

namespace {

class BKUKAppAppearanceObserverTest : public AppearanceFixture {
 public:
  BKUKAppAppearanceObserverTest() {
    token_ = NSNotificationCenter::default_().addObserver("AppAppearanceChanged", &NSApplication::shared(),
                                                          nullptr, [this](NSNotification& notification) {
                                                            ++posts;
                                                            EXPECT_EQ(notification.userInfo(), nullptr);
                                                            wasDark = isDarkMode(NSApplication::shared());
                                                          });
  }
  ~BKUKAppAppearanceObserverTest() override { NSNotificationCenter::default_().removeObserver(token_.get()); }

  Ref<BKUKAppAppearanceObserver> observer = make<BKUKAppAppearanceObserver>();
  int posts = 0;
  bool wasDark = false;

 private:
  Ref<NSObject> token_;
};

TEST_F(BKUKAppAppearanceObserverTest, PostsEachRealChangeOnceUntilTheLastStop) {
  observer->startObserving();
  observer->startObserving();
  EXPECT_EQ(posts, 0);
  useDark();
  useDark();
  EXPECT_EQ(posts, 1);
  EXPECT_TRUE(wasDark) << "the new appearance is in force when the notification comes";
  observer->stopObserving();
  useLight();
  EXPECT_EQ(posts, 2);
  observer->stopObserving();
  useDark();
  EXPECT_EQ(posts, 2);
}

TEST_F(BKUKAppAppearanceObserverTest, TheCountHasNoFloorAndAStartBelowItObserves) {
  observer->stopObserving();
  observer->stopObserving();
  observer->startObserving();
  EXPECT_EQ(observer->observerCount(), -1);
  observer->startObserving();
  observer->startObserving();
  useDark();
  EXPECT_EQ(posts, 1) << "one observation, however many starts";
}

TEST_F(BKUKAppAppearanceObserverTest, CountsButDoesNotObserveWhereThereIsNoDark) {
  useSystemVersion(10, 13);
  observer->startObserving();
  EXPECT_EQ(observer->observerCount(), 1);
  EXPECT_FALSE(observer->observer());
}

TEST_F(BKUKAppAppearanceObserverTest, EndsWithTheObserver) {
  observer->startObserving();
  observer = nullptr;
  useDark();
  EXPECT_EQ(posts, 0);
}

TEST_F(BKUKAppAppearanceObserverTest, StopsAtAnOverflowOfTheCount) {
  using Limits = std::numeric_limits<std::int64_t>;
  BKUKAppAppearanceObserverTestApi::setObserverCount(*observer, Limits::max());
  EXPECT_EQ(stopLine([this] { observer->startObserving(); }), "");
  BKUKAppAppearanceObserverTestApi::setObserverCount(*observer, Limits::min());
  EXPECT_EQ(stopLine([this] { observer->stopObserving(); }), "");
}

}  // namespace
}  // namespace bkuk
