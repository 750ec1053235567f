#include <functional>
#include <gtest/gtest.h>
#include <thread>

#include "platform/foundation/NSObject.h"

namespace bkuk {
namespace {

struct Node : NSObject {
  Ref<Node> next;
  Weak<Node> self{this};
  std::function<void(Node&)> onDestruction;
  ~Node() override {
    if (onDestruction) onDestruction(*this);
  }
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

struct Dial : NSObject {
  int turns = 0;
  NSObject* lastSender = nullptr;
  void turn(NSObject* sender) { ++turns, lastSender = sender; }
  void reset(Dial*) { turns = 0; }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table = SelectorTable::make(
        NSObject::selectors(), {{"turn", action<&Dial::turn>}, {"reset", action<&Dial::reset>}});
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
