#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include "host/qt/QtLoop.h"
#include "host/qt/desktop/QtApplication.h"

namespace {

int timersSet = 0;

}  // namespace

// Takes the place of the C library's, for the whole program.
extern "C" int timerfd_settime(int timer, int flags, const itimerspec* value, itimerspec* old) noexcept {
  ++timersSet;
  return static_cast<int>(syscall(SYS_timerfd_settime, timer, flags, value, old));
}

namespace bkuk::host {
namespace {

class QtLoopTest : public ::testing::Test, public LoopClient {
 protected:
  QtLoopTest() {
    loop.setClient(this);
    timersSet = 0;
  }

  void turn() override {
    ++turns;
    other.quit();
  }

  // Runs until a turn of ours, at most two seconds.
  void runOther() {
    QTimer::singleShot(2000, &other, &QEventLoop::quit);
    other.exec();
  }

  QtApplication& application = QtApplication::shared(QtApplication::Purpose::drawing);
  QtLoop loop;
  QEventLoop other;
  int turns = 0;
};

TEST_F(QtLoopTest, TurnsOfOurOwnLoopSetNoTimer) {
  for (int i = 0; i < 10; ++i) {
    loop.scheduleTurn(loop.now());
    loop.dispatchEvent();
    loop.scheduleTurn(loop.now() + 100);
    loop.wait(loop.now());
  }
  EXPECT_EQ(timersSet, 0);
  const double date = loop.now() + 0.02;
  loop.wake();
  loop.wait(date);
  EXPECT_LT(loop.now(), date) << "woken before";
  loop.wait(date);
  EXPECT_GE(loop.now(), date);
  EXPECT_LE(timersSet, 1) << "for one date";
  EXPECT_EQ(turns, 0);
}

TEST_F(QtLoopTest, AnotherLoopCallsForTheTurnThatWasScheduled) {
  const double date = loop.now() + 0.01;
  loop.scheduleTurn(date);
  runOther();
  EXPECT_GE(loop.now(), date);
  EXPECT_EQ(turns, 1);
  loop.wake();
  runOther();
  EXPECT_EQ(turns, 2);
}

TEST_F(QtLoopTest, ALoopThatStartsInsideOfAWaitDoesToo) {
  loop.scheduleTurn(loop.now() + 0.01);
  QTimer::singleShot(0, &other, [this] { runOther(); });
  const double until = loop.now() + 0.05;
  loop.wait(until);
  EXPECT_EQ(turns, 1);
  EXPECT_GE(loop.now(), until);
}

}  // namespace
}  // namespace bkuk::host
