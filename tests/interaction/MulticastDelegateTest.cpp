#include <atomic>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrenvikUIKit/interaction/MulticastDelegate.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Listener {
  virtual ~Listener() = default;
  virtual void hear() = 0;
};

class Named : public NSObject, public Listener {
 public:
  Named(int name, std::vector<int>& heard) : name_(name), heard_(heard) {}
  void hear() override {
    heard_.push_back(name_);
    if (onHear) onHear();
  }
  std::function<void()> onHear;

 private:
  int name_;
  std::vector<int>& heard_;
};

class Multicast : public testing::Test {
 public:
  std::vector<int> call() {
    heard.clear();
    delegates->invoke([](Listener& listener) { listener.hear(); });
    return heard;
  }

  std::vector<int> heard;
  Ref<MulticastDelegate<Listener>> delegates = make<MulticastDelegate<Listener>>();
  Ref<Named> first = make<Named>(1, heard);
  Ref<Named> second = make<Named>(2, heard);
};

TEST_F(Multicast, CallsTheLivingOnceFromTheLastToTheFirst) {
  delegates->add(first.get());
  delegates->add(second.get());
  delegates->add(first.get());
  EXPECT_THAT(call(), ElementsAre(2, 1));
  second = nullptr;
  EXPECT_THAT(call(), ElementsAre(1));
  delegates->remove(first.get());
  EXPECT_THAT(call(), IsEmpty());
}

TEST_F(Multicast, ACallGoesToThoseWhoWereThereAndKeepsThemAlive) {
  delegates->add(first.get());
  delegates->add(second.get());
  second->onHear = [&] {
    delegates->remove(first.get());
    first = nullptr;
    delegates->add(make<Named>(3, heard).get());
  };
  EXPECT_THAT(call(), ElementsAre(2, 1));
  EXPECT_THAT(call(), ElementsAre(2));
}

TEST_F(Multicast, AnotherQueueMayCallWhileListenersComeAndGo) {
  delegates->add(first.get());
  DispatchQueue queue("calls");
  std::promise<void> called;
  std::atomic<int> calls = 0;
  const auto countCall = [&](Listener&) {
    if (calls++ == 0) called.set_value();
  };
  delegates->invoke(countCall, queue);
  for (int i = 0; i < 1000; ++i) {
    delegates->add(second.get());
    delegates->remove(second.get());
  }
  called.get_future().wait();
  EXPECT_GE(calls, 1);
}

}  // namespace
}  // namespace bkuk
