#include <algorithm>
#include <atomic>
#include <future>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSThread.h"
#include "tests/foundation/LoopTest.h"

namespace bkuk {
namespace {

class DispatchQueueTest : public LoopTest {};

TEST_F(DispatchQueueTest, ASerialQueueRunsItsBlocksInOrderOnAThreadOfItsOwn) {
  std::vector<int> order;
  bool onMainThread = true;
  {
    const auto queue = make<DispatchQueue>("work");
    queue->async([&] { onMainThread = NSThread::isMainThread(); });
    for (int i = 0; i < 100; ++i) queue->async([&, i] { order.push_back(i); });
  }
  EXPECT_FALSE(onMainThread);
  EXPECT_EQ(order.size(), 100u) << "blocks that wait when the queue goes are run first";
  EXPECT_TRUE(std::ranges::is_sorted(order));
}

TEST_F(DispatchQueueTest, TheLastReferenceMayGoInABlockOfTheQueueItself) {
  std::promise<void> after;
  auto queue = make<DispatchQueue>("work");
  std::promise<void> mayRun;
  queue->async([&, held = queue, wait = mayRun.get_future().share()] { wait.wait(); });
  queue->async([&] { after.set_value(); });
  queue = nullptr;
  mayRun.set_value();
  after.get_future().wait();
}

TEST_F(DispatchQueueTest, AnyThreadMayQueueOnTheMainQueue) {
  std::atomic<int> sum = 0;
  {
    const auto first = make<DispatchQueue>("first");
    const auto second = make<DispatchQueue>("second");
    for (int i = 1; i <= 100; ++i)
      for (const auto& queue : {first, second})
        queue->async(
            [&, i] { DispatchQueue::main().async([&, i] { sum += NSThread::isMainThread() ? i : 0; }); });
    // Hosts may come and go meanwhile.
    for (int i = 0; i < 20; ++i) const VirtualHostScope another;
  }
  NSRunLoop::main().step();
  EXPECT_EQ(sum, 2 * 5050);
}

}  // namespace
}  // namespace bkuk
