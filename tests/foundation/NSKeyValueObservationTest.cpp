#include <gtest/gtest.h>

#include "platform/foundation/NSKeyValueObservation.h"

namespace bkuk {
namespace {

struct Lamp : NSObject {
  void setBrightness(int brightness) {
    brightness_ = brightness;
    didChangeValue(*this, "brightness");
  }
  int brightness_ = 0;
};

TEST(NSKeyValueObservation, HandlersRunAfterEachChangeUntilTheTokenGoes) {
  const auto lamp = make<Lamp>();
  std::vector<int> seen;
  auto token = observe(*lamp, "brightness", [&] { seen.push_back(lamp->brightness_); });
  const auto elsewhere = observe(*lamp, "colour", [&] { seen.push_back(-1); });
  EXPECT_TRUE(seen.empty()) << "no initial call";
  lamp->setBrightness(1), lamp->setBrightness(2);
  token = nullptr;
  lamp->setBrightness(3);
  EXPECT_EQ(seen, (std::vector<int>{1, 2}));
}

TEST(NSKeyValueObservation, HandlersMayInvalidateThemselvesAndOthers) {
  const auto lamp = make<Lamp>();
  int calls = 0;
  Ref<NSKeyValueObservation> first, second;
  first = observe(*lamp, "brightness", [&] {
    ++calls;
    first->invalidate();
    second = nullptr;
  });
  second = observe(*lamp, "brightness", [&] { calls += 100; });
  lamp->setBrightness(1), lamp->setBrightness(2);
  EXPECT_EQ(calls, 1);
}

TEST(NSKeyValueObservation, ATokenMayOutliveItsObject) {
  auto lamp = make<Lamp>();
  const auto token = observe(*lamp, "brightness", [] { FAIL(); });
  lamp = nullptr;
  // Likely at the same address.
  const auto another = make<Lamp>();
  another->setBrightness(1);
  token->invalidate();
  token->invalidate();
}

}  // namespace
}  // namespace bkuk
