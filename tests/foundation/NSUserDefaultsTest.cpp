#include "platform/foundation/NSProcessInfo.h"
#include "platform/foundation/NSUserDefaults.h"
#include "tests/foundation/LoopTest.h"

namespace bkuk {
namespace {

class NSUserDefaultsTest : public LoopTest {
 protected:
  NSUserDefaults& defaults = NSUserDefaults::standard();
  using Strings = std::vector<std::string>;
};

TEST_F(NSUserDefaultsTest, LanguagesAreTheDesktopsAsTagsUnlessTheApplicationSetsItsOwn) {
  host->setLanguages({"zh_Hans_CN.UTF-8", "de_AT@euro", "pt-BR", "C", "en"});
  EXPECT_EQ(defaults.stringArray("AppleLanguages"), (Strings{"zh-Hans-CN", "de-AT", "pt-BR", "en"}));
  defaults.set(NSUserDefaults::Array{"ar", "en_GB"}, "AppleLanguages");
  EXPECT_EQ(defaults.stringArray("AppleLanguages"), (Strings{"ar", "en_GB"}));
  defaults.removeObject("AppleLanguages");
  EXPECT_EQ(defaults.array("AppleLanguages")->size(), 4u);
  host->setLanguages({});
  EXPECT_EQ(defaults.array("AppleLanguages"), std::nullopt);
}

TEST_F(NSUserDefaultsTest, ValuesAreVisibleAtOnceAndOnlyAsWhatTheyAre) {
  defaults.set("text", "key");
  EXPECT_EQ(defaults.string("key"), "text");
  EXPECT_EQ(defaults.array("key"), std::nullopt);
  EXPECT_FALSE(defaults.bool_("key"));
  defaults.set(true, "key");
  EXPECT_TRUE(defaults.bool_("key"));
  defaults.set(42, "key");
  EXPECT_EQ(defaults.integer("key"), 42);
  EXPECT_EQ(defaults.double_("key"), 42.0);
  defaults.set(0.5, "key");
  EXPECT_EQ(defaults.double_("key"), 0.5);
  EXPECT_EQ(defaults.integer("key"), 0);
  defaults.set(NSUserDefaults::Array{"a", 1}, "key");
  EXPECT_EQ(defaults.array("key")->size(), 2u);
  EXPECT_EQ(defaults.stringArray("key"), std::nullopt);
  defaults.removeObject("key");
  EXPECT_EQ(defaults.object("key"), std::nullopt);
}

TEST_F(NSUserDefaultsTest, TheSystemVersionIsTheHosts) {
  host->setSystemVersion({12, 3});
  const auto& info = NSProcessInfo::processInfo();
  EXPECT_TRUE(info.isOperatingSystemAtLeast(12, 3));
  EXPECT_TRUE(info.isOperatingSystemAtLeast(11, 9));
  EXPECT_FALSE(info.isOperatingSystemAtLeast(12, 4));
  EXPECT_FALSE(info.isOperatingSystemAtLeast(13));
}

}  // namespace
}  // namespace bkuk
