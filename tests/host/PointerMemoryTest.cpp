#include <gtest/gtest.h>

#include "host/support/PointerMemory.h"

namespace bkuk::host {
namespace {

class PointerMemoryTest : public ::testing::Test {
 protected:
  // 200 controls ask, and get the same answer.
  double ask() {
    const double x = memory.position().x;
    for (int i = 0; i < 200; ++i) EXPECT_EQ(memory.position().x, x);
    return x;
  }

  double desktop = 1;
  int asked = 0;
  PointerMemory memory{[this] {
    ++asked;
    return Point{desktop, 0};
  }};
};

TEST_F(PointerMemoryTest, EventsTellTheTurnsInWhichTheyComeAndAreDelivered) {
  memory.see({5, 0});
  EXPECT_EQ(ask(), 5);
  memory.turnEnds();
  memory.see({6, 0});
  memory.turnEnds();
  memory.recall();
  EXPECT_EQ(ask(), 6);
  EXPECT_EQ(asked, 0);
}

TEST_F(PointerMemoryTest, OtherTurnsAskTheDesktopOnceForItMayHaveMovedThePointer) {
  memory.see({5, 0});
  memory.turnEnds();
  EXPECT_EQ(ask(), 1);
  desktop = 2;
  EXPECT_EQ(ask(), 1);
  memory.turnEnds();
  EXPECT_EQ(ask(), 2);
  EXPECT_EQ(asked, 2);
}

TEST_F(PointerMemoryTest, APointerThatLeftIsWhereTheDesktopSays) {
  memory.see({5, 0});
  memory.loseSight();
  EXPECT_EQ(ask(), 1);
  memory.turnEnds();
  memory.recall();
  EXPECT_EQ(ask(), 1);
  EXPECT_EQ(asked, 2);
}

}  // namespace
}  // namespace bkuk::host
