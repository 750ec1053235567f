#include <BrenvikUIKit/BrenvikUIKit.h>
#include <gmock/gmock.h>

#include "testing/VirtualHostScope.h"
#include "tests/support/StopLine.h"

// What an application forgets stops it, after a line that says what is missing.

namespace bkuk {
namespace {

using Case = std::pair<const char*, std::function<void()>>;

void expectEachSaysSo(std::initializer_list<Case> cases) {
  for (const auto& [where, mistake] : cases) {
    const std::string said = mistakeOf(mistake);
    EXPECT_THAT(said, testing::StartsWith(std::string(where) + ": "));
    EXPECT_EQ(std::ranges::count(said, '\n'), 1) << where;
  }
}

/// Puts another value in place of a slot's for the length of a scope.
template <typename Slot>
class Emptied {
 public:
  explicit Emptied(Slot& slot) : slot_(slot), before_(std::exchange(slot, {})) {}
  ~Emptied() { slot_ = before_; }
  Emptied(const Emptied&) = delete;
  Emptied& operator=(const Emptied&) = delete;

 private:
  Slot& slot_;
  Slot before_;
};

struct EmptyPalette : BKUKThemeColorsProvider {
  [[nodiscard]] Ref<NSColor> color(BKUKThemeColorRole) const override { return nullptr; }
};

TEST(Mistakes, AMissingPaletteColorOrObjectIsNamed) {
  const VirtualHostScope host;
  expectEachSaysSo({
      {"BKUKTheme", [] { (void)BKUKTheme::accent(); }},
      {"BKUKTheme",
       [] {
         BKUKTheme::setDefault(make<EmptyPalette>());
         (void)BKUKTheme::accent();
       }},
      {"NSColor", [] { (void)mix(nullptr, NSColor::red(), 0.5); }},
      {"NSColor", [] { (void)alpha(nullptr, 0.5); }},
      {"BKUKThemedColor", [] { (void)make<BKUKThemedColor>(nullptr, NSColor::red()); }},
      {"BKUKFill", [] { make<BKUKFillView>()->setFills({BKUKFill::color(nullptr)}); }},
      {"BKUKGradient", [] { (void)BKUKGradient{.colors = {nullptr}}.cgColors(); }},
      {"NSView", [] { make<NSView>()->addSubview(nullptr); }},
      {"NSTimer", [] { (void)NSTimer::scheduledTimer(1, nullptr, "tick", nullptr, true); }},
      {"NSTimer", [] { (void)NSTimer::scheduledTimerWithWeakTarget(1, nullptr, "tick", nullptr, true); }},
      {"NSNotificationCenter",
       [] { NSNotificationCenter::default_().addObserver(nullptr, "hear", NSNotificationName("note")); }},
      {"NSString", [] { (void)NSString("abc").characterAt(3); }},
  });
  BKUKTheme::setDefault(nullptr);
}

TEST(Mistakes, AnAbsentCallbackStopsWhereItIsGivenAndThrowsNothing) {
  const VirtualHostScope host;
  const auto text = make<NSAttributedString>(NSString("a"));
  const auto none = NSAttributedString::Options::longestEffectiveRangeNotRequired;
  const auto listeners = make<MulticastDelegate<NSObject>>();
  const auto label = make<BKUKLabel>();
  expectEachSaysSo({
      {"NSTimer", [] { (void)NSTimer::scheduledTimer(1, false, {}); }},
      {"DispatchQueue", [] { DispatchQueue::main().async({}); }},
      {"NSNotificationCenter",
       [] {
         (void)NSNotificationCenter::default_().addObserver(NSNotificationName("note"), nullptr, nullptr, {});
       }},
      {"NSRunLoop", [] { NSRunLoop::main().run(NSDefaultRunLoopMode, std::function<bool()>()); }},
      {"NSRunLoop", [] { (void)NSRunLoop::main().addTurnEndObserver(0, {}); }},
      {"observe", [] { (void)observe(NSApplication::shared(), "x", {}); }},
      {"NSCodingRegistration", [] { const NSCodingRegistration registration("X", {}); }},
      {"NSAttributedString",
       [&] {
         text->enumerateAttributes({0, 1}, none, {});
       }},
      {"NSAttributedString",
       [&] {
         text->enumerateAttribute(NSFontAttributeName, {0, 1}, none, {});
       }},
      {"CGPath", [] { make<CGPath>()->applyWithBlock({}); }},
      {"NSEventMonitor",
       [] { (void)NSEventMonitor::addLocalMonitorForEvents(NSEventMaskFromType(NSEventType::keyDown), {}); }},
      {"NSAnimationContext", [] { NSAnimationContext::runAnimationGroup({}); }},
      {"NSAppearance", [] { NSAppearance::currentDrawing()->performAsCurrentDrawingAppearance({}); }},
      {"BKUKDontAnimate", [] { BKUKDontAnimate(true, {}); }},
      {"BKUKAnimate", [] { BKUKAnimate(1, nullptr, {}); }},
      {"MulticastDelegate", [&] { listeners->invoke(std::function<void(NSObject&)>()); }},
      {"MulticastDelegate", [&] { listeners->invoke({}, DispatchQueue::main()); }},
      {"BKUKLabel", [&] { label->setTopTextPadding({}); }},
      {"BKUKLabel", [&] { label->setBottomTextPadding({}); }},
  });
}

TEST(Mistakes, AnEmptiedSlotIsNamedWhenItIsAsked) {
  const VirtualHostScope host;
  {
    const Emptied slot(BKUKLabel::defaultUseNSTextFieldSync);
    expectEachSaysSo({{"BKUKLabel", [] { (void)make<BKUKLabel>(); }}});
  }
  {
    const Emptied slot(BKUKFontConfig::shared().labelTopOffset);
    expectEachSaysSo({{"BKUKFontConfig", [] { (void)make<BKUKLabel>(); }}});
  }
  {
    const Emptied slot(BKUKBrandFont::size);
    expectEachSaysSo(
        {{"BKUKBrandFont",
          [] { (void)BKUKFontSettings(BKUKBrandFont::h1, NSColor::black(), NSTextAlignment::natural); }}});
  }
  const Emptied slot(BKUKKeyFocusController::defaultDrawFocusRing);
  expectEachSaysSo({{"BKUKKeyFocusController", [] { (void)make<BKUKStatefulView>()->focus(); }}});
}

TEST(Mistakes, AnAbsentKeyActionTakesTheKeysActionAway) {
  const auto monitor = make<BKUKKeyMonitor>();
  monitor->setAction({36, 76}, [](NSEvent&) { return true; });
  monitor->setAction(36, {});
  EXPECT_EQ(monitor->action(36), nullptr);
  EXPECT_NE(monitor->action(76), nullptr);
}

/// Implements all there is to be told, but derives from no object.
struct Rootless final : BKUKStatefulViewDelegate,
                        BKUKKeyFocusControllerDelegate,
                        BKUKLabelTextClickDelegate,
                        CALayerDelegate {
  void stateChanged(BKUKInteractionState, BKUKStatefulView&) override {}
  void keyFocusChanged(NSView&, bool) override {}
  void labelClicked(BKUKLabel&, NSEvent&) override {}
};

TEST(Mistakes, ADelegateThatCannotBeHeldWeaklyStops) {
  const VirtualHostScope host;
  const auto view = make<BKUKStatefulView>();
  const auto focus = make<BKUKKeyFocusController>(view.get(), BKUKKeyFocusController::Preset::inactive);
  const auto label = make<BKUKLabel>();
  const auto layer = make<CALayer>();
  Rootless rootless;
  const std::function<void()> settings[] = {
      [&] { view->delegates()->add(&rootless); }, [&] { focus->setDelegate(&rootless); },
      [&] { label->setClickDelegate(&rootless); }, [&] { layer->setDelegate(&rootless); }};
  for (const auto& setting : settings) {
    EXPECT_THAT(stopLine(setting).value_or(""),
                testing::HasSubstr("Rootless has to derive from NSObject to be a delegate"));
  }
  EXPECT_EQ(focus->delegate(), nullptr);
  EXPECT_EQ(label->clickDelegate(), nullptr);
}

}  // namespace
}  // namespace bkuk
