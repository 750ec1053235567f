#include <gtest/gtest.h>
#include <set>

#include "host/Events.h"
#include "host/qt/desktop/QtKeyCodes.h"

namespace bkuk::host {
namespace {

TEST(QtKeyCodes, KnowsTheKeysThatControlsListenTo) {
  const std::pair<std::uint32_t, int> pairs[] = {{28, 36},   {15, 48},   {57, 49},   {14, 51},   {1, 53},
                                                 {96, 76},   {105, 123}, {106, 124}, {108, 125}, {103, 126},
                                                 {111, 117}, {102, 115}, {107, 119}, {104, 116}, {109, 121}};
  for (const auto& [evdev, apple] : pairs) EXPECT_EQ(appleKeyCode(evdev), apple) << evdev;
}

TEST(QtKeyCodes, GivesEveryKeyOfAPcKeyboardACodeOfItsOwn) {
  // All keys up to Menu, but for those of other keyboards: code 84 is not used, 101, 112, 116, 118 and 120
  // have no Apple key; Hangul and Hanja share theirs with the Japanese keys in the same place.
  const std::set<std::uint32_t> without{84, 85, 90, 91, 101, 112, 116, 118, 120};
  const std::set<std::uint32_t> sharing{92, 93, 94, 95, 121, 122, 123};
  std::set<std::uint16_t> seen;
  for (std::uint32_t evdev = 1; evdev <= 127; ++evdev) {
    const auto code = appleKeyCode(evdev);
    EXPECT_EQ(code == unknownKeyCode, without.contains(evdev)) << evdev;
    const bool isOwn = !without.contains(evdev) && !sharing.contains(evdev);
    EXPECT_TRUE(!isOwn || seen.insert(code).second) << evdev;
  }
}

TEST(QtKeyCodes, AnswersUnknownForEverythingElse) {
  for (const std::uint32_t evdev : {0U, 200U, 0xFFFFFFF8U}) EXPECT_EQ(appleKeyCode(evdev), unknownKeyCode);
}

}  // namespace
}  // namespace bkuk::host
