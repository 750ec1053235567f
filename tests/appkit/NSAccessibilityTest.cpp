#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/appkit/NSAccessibilityElement.h"
#include "platform/appkit/NSApplication.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"
#include "tests/appkit/RecordingView.h"

namespace bkuk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = VirtualScreenReader::Kind;
using Role = VirtualScreenReader::Role;

// A view that a screen reader can press, step and focus.
class Knob : public RecordingView {
 public:
  using RecordingView::RecordingView;
  std::function<void()> onPress;
  double turn = 3;

  NSAccessibilityRole accessibilityRole() const override { return NSAccessibilitySliderRole; }
  bool isAccessibilityElement() const override { return true; }
  NSAccessibilityValue accessibilityValue() const override { return turn; }
  NSAccessibilityValue accessibilityMinValue() const override { return 0.0; }
  NSAccessibilityValue accessibilityMaxValue() const override { return 10.0; }
  bool accessibilityPerformPress() override {
    if (const auto act = onPress) act();
    return true;
  }
  bool accessibilityPerformIncrement() override { return accessibilityPerformSetValue(turn + 1); }
  bool accessibilityPerformSetValue(double value) override {
    turn = value;
    NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
    return true;
  }
};

Ref<NSView> elementView(std::string label, NSRect frame = {0, 0, 10, 10}) {
  const auto view = make<NSView>(frame);
  view->setAccessibilityElement(true);
  view->setAccessibilityRole(NSAccessibilityButtonRole);
  view->setAccessibilityLabel(std::move(label));
  return view;
}

class NSAccessibilityTest : public ::testing::Test {
 protected:
  NSAccessibilityTest() {
    window->setTitle("Papers");
    content->addSubview(view);
    window->makeKeyAndOrderFront();
    host->settle();
    reader.forgetChanges();
  }
  ~NSAccessibilityTest() override { window->close(); }

  std::vector<std::string> names(VirtualScreenReader::Id id) const {
    std::vector<std::string> result;
    for (const auto child : reader.children(id)) result.push_back(reader.name(child));
    return result;
  }
  VirtualScreenReader::Id root() const { return reader.window(); }

  const VirtualHostScope host;
  VirtualScreenReader reader{*host};
  Ref<NSWindow> window = make<NSWindow>(NSRect(100, 200, 300, 200));
  Ref<NSView> content = window->contentView();
  Ref<Knob> view = make<Knob>(NSRect(10, 20, 30, 40));
};

TEST_F(NSAccessibilityTest, ViewsThatAreNoElementsGiveTheirPlaceToTheirChildren) {
  const auto plain = make<NSView>();
  const auto deeper = make<NSView>();
  const auto named = elementView("b");
  content->addSubview(plain);
  plain->addSubview(elementView("a"));
  plain->addSubview(deeper);
  deeper->addSubview(named);
  content->addSubview(elementView("c"));
  named->addSubview(elementView("inside b"));
  view->setAccessibilityLabel("knob");
  EXPECT_EQ(reader.element(root()).role, Role::window);
  EXPECT_EQ(reader.name(root()), "Papers");
  EXPECT_THAT(names(root()), ElementsAre("knob", "a", "b", "c"));
  const auto b = reader.find(Role::button, "b");
  EXPECT_THAT(names(b), ElementsAre("inside b"));
  EXPECT_EQ(reader.parent(b), root());
  EXPECT_EQ(reader.parent(reader.children(b).front()), b);
  EXPECT_EQ(reader.parent(root()), 0U);
  EXPECT_EQ(plain->accessibilityRole(), NSAccessibilityUnknownRole);
  EXPECT_EQ(plain->accessibilityParent(), content);
  EXPECT_EQ(content->accessibilityParent(), window);

  deeper->setHidden(true);
  EXPECT_THAT(names(root()), ElementsAre("knob", "a", "c"));
  EXPECT_FALSE(reader.exists(b));
}

TEST_F(NSAccessibilityTest, ViewsAreReadByTheirPlacesUnlessTheOrderWasSet) {
  view->setAccessibilityHidden(true);
  const auto left = make<NSView>(NSRect(0, 0, 100, 200));
  const auto right = make<NSView>(NSRect(100, 0, 100, 200));
  for (const auto& panel : {right, left}) content->addSubview(panel);
  left->addSubview(elementView("c", {0, 0, 50, 20}));
  left->addSubview(elementView("a", {0, 100, 50, 20}));
  right->addSubview(elementView("b", {0, 100, 50, 20}));
  right->addSubview(elementView("d", {0, 0, 50, 20}));
  EXPECT_THAT(names(root()), ElementsAre("a", "b", "c", "d")) << "row by row across the panels";
  content->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_THAT(names(root()), ElementsAre("b", "a", "d", "c"));
  content->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::leftToRight);
  const auto& inside = left->subviews();
  left->setAccessibilityChildren({inside[0], inside[1]});
  EXPECT_THAT(names(root()), ElementsAre("c", "a", "b", "d")) << "the panel stays together";
}

TEST_F(NSAccessibilityTest, WhatHasBecomeOfTheChildrenIsToldOnceATurnAndOnlyToWhoReadThem) {
  content->addSubview(elementView("unread"));
  host->settle();
  EXPECT_THAT(reader.changes(), IsEmpty());
  ASSERT_FALSE(reader.children(root()).empty());
  const auto plain = make<NSView>();
  content->addSubview(plain);
  for (int i = 0; i < 3; ++i) plain->addSubview(elementView("more"));
  EXPECT_THAT(reader.changes(), IsEmpty());
  host->settle();
  EXPECT_EQ(reader.changes().size(), 1U);
  EXPECT_EQ(reader.count(Kind::children, root()), 1U);
  const std::function<void()> changes[] = {
      [&] { plain->setHidden(true); }, [&] { plain->setAccessibilityHidden(false); },
      [&] { plain->setAccessibilityElement(true); }, [&] { plain->removeFromSuperview(); }};
  for (const auto& change : changes) {
    ASSERT_FALSE(reader.children(root()).empty());
    reader.forgetChanges();
    change();
    host->settle();
    EXPECT_EQ(reader.count(Kind::children, root()), 1U);
  }
}

TEST_F(NSAccessibilityTest, FramesAreThoseOfTheScreenUnderFlipsScrollingAndScale) {
  const auto flipped = make<RecordingView>(NSRect(50, 60, 100, 100));
  flipped->flipped = true;
  const auto button = elementView("b", {5, 7, 20, 10});
  flipped->addSubview(button);
  content->addSubview(flipped);
  const auto link = make<NSAccessibilityElement>();
  link->setAccessibilityRole(NSAccessibilityLinkRole);
  link->setAccessibilityFrameInParentSpace({2, 3, 4, 5});
  button->setAccessibilityChildren({link});
  EXPECT_EQ(button->accessibilityFrame(), NSRect(155, 343, 20, 10));
  // The main screen is 1080 points high and the host's y runs down.
  const auto id = reader.find(Role::button, "b");
  const host::Rect shown{155, 727, 20, 10};
  EXPECT_EQ(reader.element(id).frame, shown);
  host->windows().front()->setScale(1.5);
  EXPECT_EQ(reader.element(id).frame, shown);
  EXPECT_EQ(reader.element(reader.children(id).front()).frame, (host::Rect{157, 729, 4, 5}));
  EXPECT_EQ(reader.parent(reader.children(id).front()), id);

  EXPECT_FALSE(reader.element(id).isOffscreen);
  flipped->setBoundsOrigin({0, 17});
  EXPECT_EQ(reader.element(id).frame.y, 710);
  flipped->layer()->setMasksToBounds(true);
  EXPECT_TRUE(reader.element(id).isOffscreen);
  EXPECT_TRUE(reader.element(reader.children(id).front()).isOffscreen);
  window->setFrame({110, 200, 300, 200});
  EXPECT_EQ(reader.element(id).frame.x, 165);
}

TEST_F(NSAccessibilityTest, NumbersMarksAndTextsBecomeValuesStatesAndNames) {
  EXPECT_EQ(reader.element(reader.children(root()).front()).range->value, 3);
  const auto box = elementView("box");
  content->addSubview(box);
  const auto id = reader.find(Role::button, "box");
  box->setAccessibilityRole(NSAccessibilityCheckBoxRole);
  const auto state = [&] { return reader.element(id); };
  EXPECT_TRUE(state().isCheckable && !state().isChecked && !state().isMixed);
  box->setAccessibilityValue(1.0);
  EXPECT_TRUE(state().isChecked && !state().isMixed);
  box->setAccessibilityValue(2.0);
  EXPECT_TRUE(!state().isChecked && state().isMixed);
  box->setAccessibilityLabel("");
  box->setAccessibilityValue("text");
  EXPECT_EQ(state().value, "text");
  box->setAccessibilityRole(NSAccessibilityStaticTextRole);
  EXPECT_EQ(state().name, "text");
  box->setAccessibilityRole("AXSomethingElse");
  EXPECT_EQ(state().role, Role::unknown);
  box->setAccessibilityEnabled(false);
  EXPECT_FALSE(state().isEnabled);
  EXPECT_EQ(reader.count(Kind::state, id), 1U);
  EXPECT_EQ(reader.count(Kind::value, id), 3U);
  box->setIdentifier("the box");
  EXPECT_EQ(reader.findIdentifier("the box"), id);
}

TEST_F(NSAccessibilityTest, FocusFollowsTheKeyboard) {
  const auto second = make<Knob>();
  content->addSubview(second);
  const auto ids = reader.children(root());
  reader.forgetChanges();
  window->makeFirstResponder(view.get());
  EXPECT_EQ(reader.count(Kind::focus, ids[0]), 1U);
  EXPECT_TRUE(reader.element(ids[0]).isFocused);
  EXPECT_TRUE(reader.focus(ids[1]));
  EXPECT_EQ(reader.focused(), ids[1]);
  EXPECT_EQ(reader.count(Kind::focus, ids[1]), 1U);
  second->removeFromSuperview();
  EXPECT_EQ(reader.count(Kind::focus, root()), 1U);
  EXPECT_EQ(reader.focused(), root());

  // A part of an element that has the keyboard without being an element itself.
  const auto editor = make<RecordingView>();
  view->addSubview(editor);
  window->makeFirstResponder(editor.get());
  EXPECT_EQ(reader.focused(), ids[0]);
  host->windows().front()->setFocused(false);
  EXPECT_FALSE(reader.element(ids[0]).isFocused);
  reader.forgetChanges();
  host->windows().front()->setFocused(true);
  EXPECT_EQ(reader.count(Kind::focus, ids[0]), 1U);
  view->accepts = false;
  EXPECT_FALSE(reader.focus(ids[0]));
}

TEST_F(NSAccessibilityTest, PressesAndStepsReachOnlyWhatIsEnabledAndInAWindow) {
  const auto id = reader.children(root()).front();
  int presses = 0;
  view->onPress = [&] { ++presses; };
  EXPECT_TRUE(reader.press(id));
  EXPECT_TRUE(reader.perform(id, VirtualScreenReader::Action::increment));
  EXPECT_FALSE(reader.perform(id, VirtualScreenReader::Action::decrement));
  EXPECT_TRUE(reader.setValue(id, 9));
  EXPECT_EQ(reader.element(id).range->value, 9);
  EXPECT_EQ(reader.count(Kind::value, id), 2U);
  view->setAccessibilityEnabled(false);
  EXPECT_FALSE(reader.press(id));
  view->setAccessibilityEnabled(true);
  view->removeFromSuperview();
  EXPECT_FALSE(reader.press(id));
  EXPECT_EQ(presses, 1);
}

TEST_F(NSAccessibilityTest, APressMayDestroyTheElementOrItsWindow) {
  const auto id = reader.children(root()).front();
  view->onPress = [this] { std::exchange(view, nullptr)->removeFromSuperview(); };
  EXPECT_TRUE(reader.press(id));
  EXPECT_FALSE(reader.exists(id));
  EXPECT_EQ(reader.count(Kind::destroyed, id), 1U);
  EXPECT_FALSE(reader.press(id));

  auto other = make<NSWindow>(NSRect(0, 0, 50, 50));
  const auto closer = make<Knob>();
  other->contentView()->addSubview(closer);
  other->orderFront();
  const auto windowId = reader.window(1);
  const auto closerId = reader.children(windowId).front();
  closer->onPress = [&] { std::exchange(other, nullptr)->close(); };
  EXPECT_TRUE(reader.press(closerId));
  EXPECT_FALSE(reader.exists(windowId));
  EXPECT_EQ(reader.count(Kind::destroyed, windowId), 1U);
  EXPECT_EQ(reader.parent(closerId), 0U);
  EXPECT_THAT(reader.children(windowId), IsEmpty());
}

TEST_F(NSAccessibilityTest, TreesOfAnyDepthAreReadWithoutDeepeningTheStack) {
  // Puts `bottom` below a chain of others, from the bottom up so that it does not take quadratic time.
  const auto sink = [this](const Ref<NSAccessibilityElement>& bottom, bool areElements) {
    constexpr int depth = 10'000;
    Ref<NSAccessibilityElement> top = bottom;
    for (int i = 0; i < depth; ++i) {
      const auto next = make<NSAccessibilityElement>();
      next->setAccessibilityElement(areElements);
      next->setAccessibilityChildren({top});
      top = next;
    }
    view->setAccessibilityChildren({top});
  };
  const auto link = make<NSAccessibilityElement>();
  link->setAccessibilityLabel("at the bottom");
  sink(link, false);
  const auto knob = reader.children(root()).front();
  EXPECT_THAT(names(knob), ElementsAre("at the bottom"));
  EXPECT_EQ(reader.parent(reader.children(knob).front()), knob);

  const auto inner = make<NSAccessibilityElement>();
  sink(inner, true);
  NSAccessibilityPostNotification(*inner, NSAccessibilityValueChangedNotification);
  const auto id = reader.changes().back().id;
  EXPECT_TRUE(reader.element(id).isOffscreen);
  EXPECT_EQ(reader.children(reader.parent(id)), std::vector{id});
  view->setAccessibilityChildren({});
  EXPECT_FALSE(reader.exists(id));
}

TEST(NSAccessibilityWithoutClients, NobodyIsTold) {
  const VirtualHostScope host;
  (void)NSApplication::shared();  // gives the host its tree
  const auto view = make<NSView>();
  NSAccessibilityPostNotification(*view, NSAccessibilityValueChangedNotification);
  const VirtualScreenReader reader(*host);
  NSAccessibilityPostNotification(*view, "AXSomethingElse");
  EXPECT_THAT(reader.changes(), IsEmpty());
  NSAccessibilityPostNotification(*view, NSAccessibilityValueChangedNotification);
  ASSERT_EQ(reader.changes().size(), 1U);
  EXPECT_FALSE(reader.exists(reader.changes().front().id));
}

}  // namespace
}  // namespace bkuk
