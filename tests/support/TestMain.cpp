#include <cstdlib>
#include <gmock/gmock.h>
#include <optional>

#include "testing/LiveObjectBaseline.h"

namespace {

// Every test is played twice, and the second time it ends with no more living objects than it began with:
// what is made once, on first use, to stay is there by then. That is asked of a test that has the process
// for itself, as CTest runs them; others come upon what their predecessors left in caches.
class LivingObjects : public testing::EmptyTestEventListener {
  void OnTestIterationStart(const testing::UnitTest& program, int iteration) override {
    isWarm_ = iteration > 0 && program.test_to_run_count() == 1;
  }
  void OnTestStart(const testing::TestInfo&) override { baseline_.emplace(); }
  void OnTestEnd(const testing::TestInfo&) override {
    const auto growth = baseline_->growth();
    if (isWarm_ && !growth.empty()) ADD_FAILURE() << "still alive after the test: " << growth;
  }

  bool isWarm_ = false;
  std::optional<bkuk::LiveObjectBaseline> baseline_;
};

}  // namespace

// The entry of every test program: it draws on nobody's desktop and speaks a language that no machine
// changes, whoever starts it.
int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  GTEST_FLAG_SET(repeat, 2);
  testing::InitGoogleMock(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new LivingObjects);
  return RUN_ALL_TESTS();
}
