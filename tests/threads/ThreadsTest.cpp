// What other threads may do, all at once with the main one: a program of its own, small enough to be built
// under the thread sanitizer too.

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/NSTimer.h"
#include "testing/LiveObjectBaseline.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk {
namespace {

constexpr int rounds = 200;

class ThreadsTest : public testing::Test {
 protected:
  ThreadsTest() { static_cast<void>(NSApplication::shared()); }

  // Runs `work` on two other threads and `beside` here, once at least, until both have ended, then what they
  // left to this one. The counter orders nothing, so that the sanitizer sees what nothing else orders.
  void race(const std::function<void()>& work, const std::function<void()>& beside) {
    std::atomic<int> running = 2;
    const auto body = [&] {
      work();
      running.fetch_sub(1, std::memory_order_relaxed);
    };
    std::thread one(body);
    std::thread other(body);
    do beside();
    while (running.load(std::memory_order_relaxed) > 0);
    one.join();
    other.join();
    host->settle();
  }
  // Two other threads let go of the last references to all of them, one after the other.
  template <typename T>
  void letGoElsewhere(std::vector<Ref<T>> objects, const std::function<void()>& beside) {
    std::atomic<std::size_t> next = 0;
    auto shared = std::make_shared<std::vector<Ref<T>>>(std::move(objects));
    race(
        [&, shared] {
          const auto take = [&] { return next.fetch_add(1, std::memory_order_relaxed); };
          for (auto i = take(); i < shared->size(); i = take()) (*shared)[i] = nullptr;
        },
        beside);
  }

  VirtualHostScope host;
  const LiveObjectBaseline baseline;
};

TEST_F(ThreadsTest, EventsLetGoElsewhereLeaveTheirPlacesAlone) {
  std::vector<Ref<NSEvent>> events;
  for (int i = 0; i < rounds; ++i)
    events.push_back(make<NSEvent>(NSEvent::Fields{.characters = "a long text"}));
  letGoElsewhere(std::move(events), [] {
    const Ref<NSEvent> fresh[] = {make<NSEvent>(NSEvent::Fields{}), make<NSEvent>(NSEvent::Fields{})};
    EXPECT_NE(fresh[0], fresh[1]);
  });
  EXPECT_EQ(baseline.growth(), "");
}

TEST_F(ThreadsTest, ViewsThatAnAssistiveClientHasReadMayBeLetGoElsewhere) {
  VirtualScreenReader reader(*host);
  auto window = make<NSWindow>(NSRect(0, 0, 100, 100));
  window->orderFront();
  std::vector<Ref<NSView>> views;
  for (int i = 0; i < rounds; ++i) {
    views.push_back(make<NSView>(NSRect(0, 0, 10, 10)));
    views.back()->setAccessibilityElement(true);
    window->contentView()->addSubview(views.back());
  }
  host->settle();
  const auto ids = reader.children(reader.window());
  ASSERT_EQ(ids.size(), std::size_t(rounds));
  for (const auto& view : views) view->removeFromSuperview();
  letGoElsewhere(std::move(views), [&] { static_cast<void>(reader.children(reader.window())); });
  for (const auto id : ids) EXPECT_GE(reader.count(VirtualScreenReader::Kind::destroyed, id), 1U);
  window->close();
  window = nullptr;
  host->settle();
  EXPECT_EQ(baseline.growth(), "");
}

TEST_F(ThreadsTest, WindowsLayersAndTimersMayBeLetGoElsewhere) {
  std::vector<Ref<NSObject>> objects;
  for (int i = 0; i < 20; ++i) {
    const auto window = make<NSWindow>(NSRect(0, 0, 100, 100));
    window->contentView()->addSubview(make<NSView>(NSRect(0, 0, 50, 50)));
    window->orderFront();
    window->orderOut();
    objects.push_back(window);
    objects.push_back(make<CALayer>());
    const auto timer = NSTimer::scheduledTimer(1000, true, [window](NSTimer&) {});
    timer->invalidate();
    objects.push_back(timer);
  }
  host->settle();
  letGoElsewhere(std::move(objects), [&] { host->advance(0.01); });
  EXPECT_TRUE(host->windows().empty());
  EXPECT_EQ(baseline.growth(), "");
}

TEST_F(ThreadsTest, WeakReferencesAndNamesAreMadeAndDroppedAnywhere) {
  const auto name = [](int i) { return NSNotificationName("name" + std::to_string(i % 7)); };
  const auto view = make<NSView>();
  std::atomic<int> found = 0;
  race(
      [&] {
        for (int i = 0; i < rounds; ++i) {
          const Weak<NSView> weak(view);
          if (weak.lock() && name(i) == name(i + 7)) ++found;
          static_cast<void>(Selector("selector" + std::to_string(i % 5)));
        }
      },
      [&] { EXPECT_EQ(name(3), name(10)); });
  EXPECT_EQ(found, 2 * rounds);
}

TEST_F(ThreadsTest, QueuesTakeBlocksFromAnywhere) {
  int onMain = 0;
  std::atomic<int> elsewhere = 0;
  race(
      [&] {
        const auto queue = make<DispatchQueue>("worker");
        for (int i = 0; i < rounds; ++i) {
          DispatchQueue::main().async([&] { onMain += NSThread::isMainThread() ? 1 : 0; });
          queue->async([&, queue] { elsewhere += NSThread::isMainThread() ? 0 : 1; });
        }
      },
      [&] { host->settle(); });
  while (elsewhere < 2 * rounds) std::this_thread::yield();
  host->settle();
  EXPECT_EQ(onMain, 2 * rounds);
}

TEST_F(ThreadsTest, AnimationsStartAndStopAnywhere) {
  std::atomic<int> frames = 0;
  race(
      [&] {
        for (int i = 0; i < rounds; ++i) {
          const auto context = make<BKUKLinearAnimationContext>(3, 0, 1);
          context->setBlock([&] { ++frames; });
          context->startAnimating();
          if (i % 2 == 0) context->stopAnimating();
        }
      },
      [&] { host->advance(BKUKLinearAnimator::FrameLength); });
  host->advance(1);
  EXPECT_TRUE(BKUKLinearAnimator::sharedInstance().animations().empty());
  EXPECT_EQ(baseline.growth(), "");
}

}  // namespace
}  // namespace bkuk
