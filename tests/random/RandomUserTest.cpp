#include <gtest/gtest.h>

#include "tests/random/RandomUser.h"

namespace bkuk {
namespace {

TEST(RandomUser, LeavesEverythingInOrderAndNothingBehind) {
  const int steps = RandomRun::steps(300);
  for (const auto seed : RandomRun::seeds({1, 2, 3, 4, 5, 6})) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomUser user(seed);
    for (int step = 0; step < steps; ++step) {
      user.step();
      const auto fault = user.fault();
      ASSERT_EQ(fault, "") << "after step " << step;
    }
    ASSERT_EQ(user.remains(), "");
  }
}

}  // namespace
}  // namespace bkuk
