#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/NSAttributeDictionary.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "tests/foundation/LoopTest.h"

namespace bkuk {
namespace {

struct Listener : NSObject {
  std::vector<NSObject*> heardOf;
  void hear(NSNotification* notification) { heardOf.push_back(notification->object()); }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table =
        SelectorTable::make(NSObject::selectors(), {{"hear", memberAction<&Listener::hear>}});
    return table;
  }
};

class NSNotificationCenterTest : public LoopTest {
 protected:
  Ref<NSNotificationCenter> center = make<NSNotificationCenter>();
  Ref<Listener> subject = make<Listener>();

  Ref<NSObject> observe(NSNotificationName name, std::string what) {
    return center->addObserver(name, nullptr, nullptr, [=, this](NSNotification&) { log.push_back(what); });
  }
};

TEST_F(NSNotificationCenterTest, NameAndObjectFilterAndAbsentOnesMeanAny) {
  const auto listener = make<Listener>();
  const auto other = make<Listener>();
  center->addObserver(listener.get(), "hear", "changed", subject.get());
  center->addObserver(listener.get(), "hear", std::string_view("changed"));
  center->addObserver(listener.get(), "hear");
  center->post("changed", subject.get());
  EXPECT_EQ(listener->heardOf.size(), 3u);
  center->post("changed", other.get());
  EXPECT_EQ(listener->heardOf.size(), 5u);
  center->post("changed");
  EXPECT_EQ(listener->heardOf.size(), 7u);
  center->post("closed", subject.get());
  EXPECT_EQ(listener->heardOf.size(), 8u);
}

TEST_F(NSNotificationCenterTest, OrderOfRegistrationHoldsAcrossNamedAndUnnamed) {
  observe("changed", "1"), observe({}, "2"), observe("changed", "3"), observe({}, "4");
  center->post("changed");
  EXPECT_EQ(log, (Log{"1", "2", "3", "4"}));
}

TEST_F(NSNotificationCenterTest, TheNotificationSaysWhatWasPosted) {
  const auto info = make<Listener>();
  center->addObserver("changed", subject.get(), nullptr, [&](NSNotification& notification) {
    EXPECT_EQ(notification.name(), NSNotificationName(std::string("changed")));
    EXPECT_EQ(notification.object(), subject.get());
    EXPECT_EQ(notification.userInfo(), info.get());
    log.push_back("heard");
  });
  center->post("changed", subject.get(), info.get());
  EXPECT_EQ(log, Log{"heard"});
}

TEST_F(NSNotificationCenterTest, ObserversAddedOrRemovedDuringAPostAreNotCalledForIt) {
  Ref<NSObject> first, second;
  first = center->addObserver("changed", nullptr, nullptr, [&](NSNotification&) {
    log.push_back("first");
    center->removeObserver(std::exchange(first, nullptr).get());
    center->removeObserver(second.get());
    observe("changed", "late");
    observe({}, "late too");
  });
  second = observe("changed", "second");
  observe("changed", "third");
  center->post("changed");
  EXPECT_EQ(log, (Log{"first", "third"}));
  log.clear();
  center->post("changed");
  EXPECT_EQ(log, (Log{"third", "late", "late too"}));
}

TEST_F(NSNotificationCenterTest, PostsNest) {
  center->addObserver("outer", nullptr, nullptr, [&](NSNotification&) {
    center->post("inner");
    log.push_back("outer");
  });
  observe("inner", "inner"), observe("outer", "outer 2");
  center->post("outer");
  EXPECT_EQ(log, (Log{"inner", "outer", "outer 2"}));
}

TEST_F(NSNotificationCenterTest, RemovingAnObserverTakesAllItsRegistrationsAndForgivesStrangers) {
  const auto listener = make<Listener>();
  for (const char* name : {"a", "b"}) center->addObserver(listener.get(), "hear", name);
  center->removeObserver(listener.get());
  center->removeObserver(listener.get());
  center->removeObserver(nullptr);
  center->post("a"), center->post("b");
  EXPECT_TRUE(listener->heardOf.empty());
}

TEST_F(NSNotificationCenterTest, DeadObserversAndSubjectsDropOut) {
  auto listener = make<Listener>();
  center->addObserver(listener.get(), "hear", "changed");
  bool isHeld = true;
  struct Guard : NSObject {
    bool& flag;
    explicit Guard(bool& held) : flag(held) {}
    ~Guard() override { flag = false; }
  };
  center->addObserver("changed", subject.get(), nullptr, [guard = make<Guard>(isHeld)](NSNotification&) {});
  listener = nullptr, subject = nullptr;
  center->post("changed");
  for (int i = 0; i < 100; ++i) observe("changed", "");
  EXPECT_FALSE(isHeld) << "a block that can never be called again is let go of";
}

// Programs make names from ids; a token that was removed, and an observer that died, leave none behind, nor
// do selectors and the attributes of a text.
TEST_F(NSNotificationCenterTest, NamesThatNobodyHoldsAreForgotten) {
  const auto before = CountedText::livingCount();
  for (int i = 0; i < 10'000; ++i) {
    const NSNotificationName name("document " + std::to_string(i));
    const auto token = observe(name, name.text().substr(0, 8) == "document" ? "heard" : "");
    center->addObserver(make<Listener>().get(), "hear", NSNotificationName("dying " + std::to_string(i)));
    center->post(name);
    center->removeObserver(token.get());
    EXPECT_FALSE(token->respondsTo(Selector("act on " + std::to_string(i))));
    const NSAttributeDictionary attributes{{NSAttributedStringKey("mark " + std::to_string(i)), i}};
    EXPECT_EQ(attributes.count(), 1U);
  }
  EXPECT_EQ(log.size(), 10'000U);
  EXPECT_LT(CountedText::livingCount(), before + 200);
}

TEST_F(NSNotificationCenterTest, ANameThatIsRemovedAndTakenUpDuringItsPostIsHeard) {
  Ref<NSObject> token;
  token = center->addObserver("changed", nullptr, nullptr, [&](NSNotification&) {
    center->removeObserver(token.get());
    observe("changed", "again");
  });
  center->post("changed");
  EXPECT_TRUE(log.empty());
  center->post("changed");
  EXPECT_EQ(log, Log{"again"});
}

TEST_F(NSNotificationCenterTest, ABlockWithAQueueRunsThereUnlessItIsRemovedBefore) {
  auto& queue = DispatchQueue::main();
  const auto kept = center->addObserver("changed", nullptr, &queue, [&](NSNotification& notification) {
    log.push_back(std::string(notification.name().text()));
  });
  const auto removed =
      center->addObserver("changed", nullptr, &queue, [&](NSNotification&) { log.push_back("removed"); });
  center->post("changed");
  center->removeObserver(removed.get());
  EXPECT_TRUE(log.empty());
  host->settle();
  EXPECT_EQ(log, Log{"changed"});
}

TEST_F(NSNotificationCenterTest, AnObserverMayReleaseTheCentre) {
  center->addObserver("changed", nullptr, nullptr, [&](NSNotification&) { center = nullptr; });
  observe("changed", "after");
  center->post("changed");
  EXPECT_EQ(log, Log{"after"});
}

}  // namespace
}  // namespace bkuk
