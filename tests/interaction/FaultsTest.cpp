#include <tuple>

#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"
#include "BrenvikUIKit/interaction/BKUKNSWindow+Extensions.h"
#include "platform/appkit/NSApplication.h"
#include "platform/foundation/NSTimer.h"
#include "tests/interaction/ControlFixture.h"

// Whatever happens to a control, its callbacks may pull the floor away: every event meets every such deed,
// and the user goes on as if nothing had happened.

namespace bkuk {
namespace {

constexpr const char* events[] = {"mouse down", "mouse up",      "entered",    "exited",
                                  "key down",   "focus gained",  "focus lost", "timer tick",
                                  "delegate",   "target action", "appearance"};
constexpr const char* deeds[] = {
    "removes the view", "closes the window", "disables the control", "moves it elsewhere",
    "drops it",         "changes delegates", "changes monitors",     "changes tracking areas"};

/// Calls back from each place where a control calls its application.
class Control : public BKUKStatefulView,
                public BKUKStatefulViewDelegate,
                public BKUKKeyFocusControllerDelegate {
 public:
  using BKUKStatefulView::BKUKStatefulView;

  std::function<void(std::string_view event)> onEvent;

  void stateChanged(States state) override {
    BKUKStatefulView::stateChanged(state);
    switch (state) {
      case States::pressed:
        return tell("mouse down");
      case States::hover:
        return tell("entered");
      case States::normal:
        return tell("exited");
      case States::disabled:
        return;
    }
  }
  void stateChanged(States, BKUKStatefulView&) override { tell("delegate"); }
  void performAction() override {
    const auto event = NSApplication::shared().currentEvent();
    tell(event && event->type() == NSEventType::keyDown ? "key down" : "mouse up");
  }
  void keyFocusChanged(NSView&, bool isFocused) override { tell(isFocused ? "focus gained" : "focus lost"); }
  void viewDidChangeEffectiveAppearance() override { tell("appearance"); }
  void act() { tell("target action"); }
  void tick() { tell("timer tick"); }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table =
        SelectorTable::make(BKUKStatefulView::selectors(),
                            {{"act", memberAction<&Control::act>}, {"tick", memberAction<&Control::tick>}});
    return table;
  }

 private:
  void tell(std::string_view event) {
    if (const auto act = onEvent) act(event);
  }
};

class Faults : public testing::TestWithParam<std::tuple<const char*, const char*>> {
 public:
  static constexpr host::Point inside{60, 50};
  static constexpr host::Point outside{5, 5};

  Faults() {
    NSApplication::shared().setAppearance(NSAppearance::named(NSAppearanceNameAqua));
    window->contentView()->addSubview(otherHome);
    window->contentView()->addSubview(control);
    control->delegates()->add(control.get());
    control->focus()->setDelegate(control.get());
    control->setTarget(control.get());
    control->setAction("act");
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~Faults() override {
    window->close();
    NSApplication::shared().setAppearance(nullptr);
  }

  void run(std::string_view deed) {
    if (deed == "removes the view") return control->removeFromSuperview();
    if (deed == "closes the window") return window->close();
    if (deed == "disables the control") return control->setEnabled(false);
    if (deed == "moves it elsewhere") return otherHome->addSubview(control);
    if (deed == "changes delegates") {
      control->delegates()->remove(control.get());
      return control->delegates()->add(make<StateLog>().get());
    }
    if (deed == "changes monitors") {
      removeAllKeyMonitors(*window);
      return appendKeyMonitor(*window, make<BKUKKeyMonitor>());
    }
    if (deed == "changes tracking areas") {
      while (!control->trackingAreas().empty()) control->removeTrackingArea(control->trackingAreas().back());
      return control->updateTrackingAreas();
    }
    ASSERT_EQ(deed, "drops it");
    control->removeFromSuperview();
    control = nullptr;
  }

  [[nodiscard]] bool isDone(std::string_view deed) {
    const auto view = weak.lock();
    if (deed == "drops it") return !view;
    if (deed == "removes the view") return !view->window();
    if (deed == "closes the window") return !window->isVisible();
    if (deed == "disables the control") return view->state() == BKUKInteractionState::disabled;
    if (deed == "moves it elsewhere") return view->superview() == otherHome;
    if (deed == "changes delegates") return view->delegates()->count() == 0;  // the new one is dead already
    if (deed == "changes monitors") return window->keyMonitorStack()->stack().size() >= 1;
    return view->trackingAreas().size() == 1;
  }

  // Everything a user may do, in an order in which each event comes at least once.
  void useEverything() {
    auto& desktop = *host->windows().front();
    const auto timer = NSTimer::scheduledTimerWithWeakTarget(0.1, control.get(), "tick", nullptr, true);
    appendKeyMonitor(*window, make<BKUKKeyMonitor>());
    desktop.movePointer(inside);
    desktop.press();
    desktop.release();
    desktop.movePointer(outside);
    window->makeFirstResponder(weak.lock().get());
    desktop.typeKey(spaceKey, " ");
    desktop.typeKey(48, "\t");
    window->makeFirstResponder(nullptr);
    NSApplication::shared().setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
    host->advance(0.35);
    desktop.click(inside);
    desktop.movePointer(outside);
    timer->invalidate();
  }

  VirtualHostScope host;
  Ref<BKUKWindow> window = make<BKUKWindow>(NSRect(0, 0, 200, 100));
  Ref<NSView> otherHome = make<NSView>(NSRect(0, 0, 200, 20));
  Ref<Control> control = make<Control>(NSRect(50, 20, 100, 50));
  Weak<Control> weak = control.get();
};

TEST_P(Faults, AreStood) {
  const auto [event, deed] = GetParam();
  int count = 0;
  control->onEvent = [&, wanted = std::string_view(event),
                      what = std::string_view(deed)](std::string_view happened) {
    if (happened == wanted && count++ == 0) run(what);
  };
  useEverything();
  if (const auto living = weak.lock()) living->onEvent = {};
  EXPECT_GE(count, 1);
  EXPECT_TRUE(isDone(deed));
}

std::string nameOf(const testing::TestParamInfo<Faults::ParamType>& info) {
  std::string name = std::string(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
  std::ranges::replace(name, ' ', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(EveryEvent, Faults,
                         testing::Combine(testing::ValuesIn(events), testing::ValuesIn(deeds)), nameOf);

}  // namespace
}  // namespace bkuk
