#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/Permanent.h"
#include "testing/LiveObjectBaseline.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

struct Node : NSObject {
  Ref<Node> next;
  Weak<Node> self{this};
  std::function<void(Node&)> onDestruction;
  ~Node() override {
    if (onDestruction) onDestruction(*this);
  }

 protected:
  bool mayDieOnAnyThread() const noexcept override { return true; }
};

TEST(Reference, WeakTakenInTheConstructorReadsEmptyBeforeTheDestructorRuns) {
  auto node = make<Node>();
  EXPECT_EQ(node->self.lock(), node);
  bool readEmpty = false;
  node->onDestruction = [&](Node& dying) { readEmpty = !dying.self.isAlive() && !dying.self.lock(); };
  node = nullptr;
  EXPECT_TRUE(readEmpty);
}

TEST(ReferenceDeathTest, AnObjectCannotBeHeldAgainInItsDestructor) {
  auto node = make<Node>();
  node->onDestruction = [](Node& dying) { const Ref<Node> again(&dying); };
  EXPECT_DEATH(node = nullptr, "An object that is being destroyed was referenced");
  node->onDestruction = nullptr;
}

TEST(Reference, AVeryLongChainIsDestroyedWithoutADeepStack) {
  int destroyed = 0;
  Ref<Node> chain;
  for (int i = 0; i < 200'000; ++i) {
    auto node = make<Node>();
    node->onDestruction = [&](Node&) { ++destroyed; };
    node->next = std::move(chain);
    chain = std::move(node);
  }
  chain = nullptr;
  EXPECT_EQ(destroyed, 200'000);
}

// One thread lets the last reference go while the other turns its weak one into a strong one.
TEST(Reference, WeakReferencesMayBeReadWhileAnotherThreadDestroys) {
  for (int round = 0; round < 2000; ++round) {
    auto node = make<Node>();
    int payload = 0;
    node->onDestruction = [&](Node&) { payload = 1; };
    const Weak<Node> weak(node);
    std::thread reader([weak] {
      while (const auto held = weak.lock()) EXPECT_FALSE(held->next);
    });
    node = nullptr;
    reader.join();
    EXPECT_EQ(payload, 1);
  }
}

TEST(Reference, FirstWeakReferencesMayBeTakenOnTwoThreads) {
  for (int round = 0; round < 500; ++round) {
    const auto object = make<Node>();
    Weak<Node> first, second;
    std::thread other([&] { first = Weak<Node>(object); });
    second = Weak<Node>(object);
    other.join();
    EXPECT_EQ(first.lock(), second.lock());
  }
}

// As views, windows, events and timers are: their destructors touch tables of the main thread.
struct MainThreadNode : Node {
 protected:
  bool mayDieOnAnyThread() const noexcept override { return false; }
};

TEST(Reference, ALastReferenceThatGoesOnAnotherThreadIsLetGoOnTheMainOne) {
  constexpr int count = 1000;
  std::vector<Ref<Node>> nodes;
  int destroyed = 0;
  for (int i = 0; i < count; ++i) {
    nodes.push_back(make<MainThreadNode>());
    nodes.back()->onDestruction = [&](Node&) { destroyed += NSThread::isMainThread() ? 1 : count; };
  }
  const Weak<Node> first(nodes.front());
  std::thread one([copies = nodes] {});
  std::thread other([copies = std::move(nodes)] {});
  one.join();
  other.join();
  EXPECT_TRUE(first.lock()) << "still whole until the main thread lets it go";
  EXPECT_EQ(destroyed, 0);
  const VirtualHostScope host;
  host->settle();
  EXPECT_FALSE(first.isAlive());
  EXPECT_EQ(destroyed, count);
}

struct Counted : NSObject {};
struct CountedMore : Counted {};

TEST(Reference, LivingObjectsAreCountedByTheirClass) {
  const LiveObjectBaseline baseline;
  const Ref<Counted> objects[] = {make<Counted>(), make<Counted>(), make<CountedMore>()};
  static const auto& constant = permanent([] { return make<CountedMore>(); });
  EXPECT_TRUE(constant);
  EXPECT_EQ(NSObject::liveCount("Counted"), 2U);
  EXPECT_EQ(NSObject::liveCount("CountedMore"), 1U) << "constants are not counted";
  EXPECT_EQ(baseline.growth(), "Counted +2, CountedMore +1");
}

struct Dial : NSObject {
  int turns = 0;
  NSObject* lastSender = nullptr;
  void turn(NSObject* sender) { ++turns, lastSender = sender; }
  void reset(Dial*) { turns = 0; }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table = SelectorTable::make(
        NSObject::selectors(), {{"turn", memberAction<&Dial::turn>}, {"reset", memberAction<&Dial::reset>}});
    return table;
  }
};

TEST(Selector, OperationsArePerformedByName) {
  const auto dial = make<Dial>();
  EXPECT_TRUE(dial->respondsTo("turn"));
  EXPECT_FALSE(dial->respondsTo("explode"));
  dial->perform("turn", dial.get());
  EXPECT_EQ(dial->turns, 1);
  EXPECT_EQ(dial->lastSender, dial.get());
  EXPECT_EQ(dial->className(), "Dial");
  EXPECT_EQ(Selector("turn"), Selector(std::string("turn")));
}

TEST(SelectorDeathTest, UnknownOperationsAndSendersOfAnotherClassStopTheProcess) {
  const auto dial = make<Dial>();
  EXPECT_DEATH(dial->perform("explode"), "Dial does not perform explode: file platform/foundation/NSObject");
  EXPECT_DEATH(dial->perform("reset", make<Node>().get()), "");
}

}  // namespace
}  // namespace bkuk
