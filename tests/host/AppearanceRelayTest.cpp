#include <gtest/gtest.h>

#include "host/support/AppearanceRelay.h"

namespace bkuk::host {
namespace {

constexpr Appearance dark{.scheme = ColorScheme::dark};

class AppearanceRelayTest : public ::testing::Test {
 protected:
  AppearanceRelayTest() {
    relay.setHandler([this] { told.push_back(relay.current()); });
  }

  AppearanceRelay relay;
  std::vector<Appearance> told;
};

TEST_F(AppearanceRelayTest, ReadsTheOldAnswerUntilTheChangeIsDelivered) {
  relay.announce(dark);
  EXPECT_EQ(relay.current(), Appearance());
  EXPECT_TRUE(relay.dispatch());
  EXPECT_EQ(told, std::vector{dark});
  EXPECT_FALSE(relay.dispatch());
}

TEST_F(AppearanceRelayTest, TellsNobodyOfAChangeTakenBack) {
  relay.announce(dark);
  relay.announce({});
  EXPECT_FALSE(relay.dispatch());
  EXPECT_TRUE(told.empty());
}

TEST_F(AppearanceRelayTest, StandsAHandlerThatReplacesItself) {
  relay.setHandler([this] { relay.setHandler({}); });
  relay.announce(dark);
  EXPECT_TRUE(relay.dispatch());
  relay.announce({});
  EXPECT_TRUE(relay.dispatch());
}

}  // namespace
}  // namespace bkuk::host
