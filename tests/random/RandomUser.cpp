#include "tests/random/RandomUser.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "BrenvikUIKit/animation/BKUKAnimate.h"
#include "BrenvikUIKit/controls/BKUKTriggerView.h"
#include "BrenvikUIKit/drawing/BKUKFillView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "BrenvikUIKit/text/BKUKInteractiveLabel.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSPanel.h"
#include "platform/appkit/NSTextField.h"
#include "platform/appkit/NSTrackingArea.h"

namespace bkuk {

namespace {

constexpr std::size_t mostViews = 60;
constexpr std::size_t mostWindows = 4;
constexpr std::size_t mostTimers = 6;
constexpr std::size_t mostConstraints = 40;
constexpr int mostDepth = 4;
// The application acts in one of so many calls.
constexpr int callsPerDeed = 60;

const NSView& rootOf(const NSView& view) {
  const NSView* root = &view;
  while (const auto above = root->superview()) root = above.get();
  return *root;
}

// A place for each window, for the virtual desktop does not know which of two covers the other.
NSPoint cornerOf(int window) { return {(window % 4) * 480.0, window / 4 * 400.0}; }

template <typename T>
void dropOne(std::vector<T>& values, int index) {
  // The last reference may go, whose destructor changes the list.
  const T dropped = std::move(values[static_cast<std::size_t>(index)]);
  values.erase(values.begin() + index);
}

}  // namespace

/// A delegate, and the target of actions.
class RandomUser::Listener final : public NSObject, public BKUKStatefulViewDelegate {
 public:
  void stateChanged(BKUKInteractionState, BKUKStatefulView& sender) override { pass(sender); }
  void act(NSView* sender) {
    if (sender) pass(*sender);
  }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table =
        SelectorTable::make(NSObject::selectors(), {{"act", memberAction<&Listener::act>}});
    return table;
  }

 private:
  static void pass(NSView& view) {
    if (current) current->isCalled(view);
  }
};

RandomUser::RandomUser(unsigned seed) : random_(seed) {
  current = this;
  auto& center = NSNotificationCenter::default_();
  for (const auto name : {NSWindowWillCloseNotification, NSWindowDidBecomeKeyNotification,
                          NSWindowDidResignKeyNotification, NSWindowDidResizeNotification}) {
    observers_.push_back(center.addObserver(name, nullptr, nullptr, [this](NSNotification&) {
      if (const auto view = anyView()) isCalled(*view);
    }));
  }
  for (int i = 0; i < 2; ++i) openWindow();
  for (int i = 0; i < 12; ++i) addView();
}

RandomUser::~RandomUser() { current = nullptr; }

// Choices

Ref<NSView> RandomUser::anyView() {
  if (called_ && random_.once(3)) return called_;
  if (views_.empty()) return nullptr;
  return random_.from(views_);
}

Ref<NSWindow> RandomUser::anyWindow() {
  if (windows_.empty()) return nullptr;
  return random_.from(windows_);
}

VirtualWindow* RandomUser::anyDesktopWindow() {
  const auto& windows = host_->windows();
  return windows.empty() ? nullptr : random_.from(windows);
}

host::Point RandomUser::anyPoint() { return {random_.between(-20, 320), random_.between(-20, 220)}; }

NSRect RandomUser::anyFrame() {
  if (random_.once(60)) return {0, std::numeric_limits<double>::quiet_NaN(), 20, 20};
  if (random_.once(60)) return {-1e9, 10, 2e9, 30};
  return {random_.between(-30, 200), random_.between(-30, 150), random_.between(0, 180),
          random_.between(0, 120)};
}

Ref<NSView> RandomUser::madeView() {
  const NSRect frame = anyFrame();
  switch (random_.below(8)) {
    case 0:
      return make<LivelyView<BKUKTriggerView>>(frame);
    case 1:
      return make<LivelyView<BKUKFillView>>(frame);
    case 2: {
      const auto label = make<LivelyView<BKUKLabel>>(frame);
      label->setStringValue("label");
      return label;
    }
    case 3: {
      const auto label = make<LivelyView<BKUKInteractiveLabel>>(frame);
      label->setStringValue("read the terms");
      label->addLink({9, 5}, "terms", [weak = Weak<NSView>(label.get())](const std::string&) {
        if (const auto view = weak.lock(); view && current) current->isCalled(*view);
      });
      return label;
    }
    case 4: {
      const auto field = make<LivelyView<NSTextField>>(frame);
      field->setStringValue("field");
      return field;
    }
    case 5:
    case 6:
      return make<LivelyView<BKUKStatefulView>>(frame);
    default:
      return make<LivelyView<NSView>>(frame);
  }
}

// What the application does

void RandomUser::isCalled(NSView& view) {
  if (depth_ >= mostDepth || !random_.once(callsPerDeed)) return;
  const auto outer = std::exchange(called_, Ref<NSView>(&view));
  deed();
  called_ = outer;
}

void RandomUser::deed() {
  static constexpr Deed deeds[] = {
      &RandomUser::addView,        &RandomUser::addView,       &RandomUser::addView,
      &RandomUser::moveView,       &RandomUser::moveView,      &RandomUser::removeView,
      &RandomUser::dropView,       &RandomUser::frameView,     &RandomUser::frameView,
      &RandomUser::hideView,       &RandomUser::focusView,     &RandomUser::focusView,
      &RandomUser::changeControl,  &RandomUser::changeControl, &RandomUser::changeListeners,
      &RandomUser::changeTracking, &RandomUser::constrain,     &RandomUser::constrain,
      &RandomUser::unconstrain,    &RandomUser::changeTimers,  &RandomUser::animate,
      &RandomUser::replaceContent, &RandomUser::openWindow,    &RandomUser::closeWindow,
      &RandomUser::joinWindows,    &RandomUser::displayNow,    &RandomUser::changeAnswers};
  ++depth_;
  (this->*deeds[random_.below(static_cast<int>(std::size(deeds)))])();
  --depth_;
}

void RandomUser::addView() {
  const auto window = anyWindow();
  auto parent = random_.once(2) ? anyView() : nullptr;
  if (!parent && window) parent = window->contentView();
  if (!parent || views_.size() >= mostViews) return;
  const auto view = tracked(madeView());
  view->setAutoresizingMask(static_cast<unsigned>(random_.below(64)));
  views_.push_back(view);
  parent->addSubview(view);
}

void RandomUser::moveView() {
  const auto view = anyView();
  const auto parent = anyView();
  if (!view || !parent || parent->isDescendantOf(*view)) return;
  const auto sibling = random_.once(2) ? anyView() : nullptr;
  parent->addSubview(view, random_.once(2) ? NSViewOrdering::below : NSViewOrdering::above, sibling.get());
}

void RandomUser::removeView() {
  auto view = anyView();
  if (view && random_.once(4)) view = view->superview();
  if (view) view->removeFromSuperview();
}

void RandomUser::dropView() {
  if (views_.empty()) return;
  const int index = random_.below(static_cast<int>(views_.size()));
  const bool isRemoved = random_.once(2);
  if (isRemoved) Ref<NSView>(views_[static_cast<std::size_t>(index)])->removeFromSuperview();
  if (static_cast<std::size_t>(index) < views_.size()) dropOne(views_, index);
}

void RandomUser::frameView() {
  const auto view = anyView();
  if (!view) return;
  if (random_.once(4)) return view->setBoundsOrigin({random_.between(-20, 20), random_.between(-20, 20)});
  view->setFrame(anyFrame());
}

void RandomUser::hideView() {
  if (const auto view = anyView()) view->setHidden(!view->isHidden());
}

void RandomUser::focusView() {
  const auto view = anyView();
  const auto window = view && !random_.once(20) ? view->window() : anyWindow();
  if (!window) return;
  if (random_.once(6)) return window->selectNextKeyView();
  window->makeFirstResponder(random_.once(8) ? nullptr : view.get());
}

void RandomUser::changeControl() {
  const auto view = anyView();
  const auto control = as<NSControl>(view);
  if (!control) return;
  switch (random_.below(4)) {
    case 0:
      return control->setEnabled(!control->isEnabled());
    case 1:
      if (const auto stateful = as<BKUKStatefulView>(view)) stateful->setSelected(!stateful->isSelected());
      return;
    case 2:
      if (const auto field = as<NSTextField>(view)) return field->setStringValue("other text");
      return control->invalidateIntrinsicContentSize();
    default:
      control->setAction("act");
      return control->setTarget(listeners_.empty() ? nullptr : random_.from(listeners_).get());
  }
}

void RandomUser::changeListeners() {
  if (random_.once(3) && !listeners_.empty()) {
    return dropOne(listeners_, random_.below(static_cast<int>(listeners_.size())));
  }
  const auto view = as<BKUKStatefulView>(anyView());
  if (!view) return;
  listeners_.push_back(tracked(make<Listener>()));
  view->delegates()->add(listeners_.back().get());
}

void RandomUser::changeTracking() {
  const auto view = anyView();
  if (!view) return;
  if (random_.once(2) && !view->trackingAreas().empty()) {
    return view->removeTrackingArea(view->trackingAreas().back());
  }
  const NSTrackingAreaOptions activity =
      random_.from<NSTrackingAreaOptions>({NSTrackingActiveWhenFirstResponder, NSTrackingActiveInKeyWindow,
                                           NSTrackingActiveInActiveApp, NSTrackingActiveAlways});
  view->addTrackingArea(tracked(make<NSTrackingArea>(
      view->bounds(), NSTrackingMouseEnteredAndExited | NSTrackingMouseMoved | activity, view.get())));
}

void RandomUser::constrain() {
  const auto view = anyView();
  const auto other = anyView();
  if (!view || !other || constraints_.size() >= mostConstraints) return;
  if (random_.once(4)) view->setTranslatesAutoresizingMaskIntoConstraints(false);
  const double constant = random_.between(0, 50);
  const bool isAlone = random_.once(3) || view == other || &rootOf(*view) != &rootOf(*other);
  const auto constraint = isAlone ? view->widthAnchor()->constraintEqualToConstant(constant)
                                  : view->leftAnchor()->constraintEqualTo(other->leftAnchor(), constant);
  constraint->setPriority(static_cast<float>(random_.between(1, 999)));
  constraints_.push_back(tracked(constraint));
  constraint->setActive(true);
}

void RandomUser::unconstrain() {
  if (constraints_.empty()) return;
  const int index = random_.below(static_cast<int>(constraints_.size()));
  const auto constraint = constraints_[static_cast<std::size_t>(index)];
  if (random_.once(2)) constraint->setConstant(random_.between(-20, 60));
  if (random_.once(2)) constraint->setActive(false);
  if (random_.once(2)) dropOne(constraints_, index);
}

void RandomUser::changeTimers() {
  if (timers_.size() < mostTimers && random_.once(2)) {
    timers_.push_back(
        tracked(NSTimer::scheduledTimer(random_.between(0.01, 0.5), random_.once(2), [](NSTimer&) {
          auto* user = static_cast<RandomUser*>(current);
          if (user && user->random_.once(4)) user->deed();
        })));
    return;
  }
  if (timers_.empty()) return;
  const int index = random_.below(static_cast<int>(timers_.size()));
  timers_[static_cast<std::size_t>(index)]->invalidate();
  dropOne(timers_, index);
}

void RandomUser::animate() {
  const auto view = anyView();
  if (!view) return;
  const NSRect frame = anyFrame();
  BKUKAnimate(
      random_.between(0, 0.5), nullptr,
      [&] {
        view->setFrame(frame);
        view->setAlphaValue(0.5);
      },
      [weak = Weak<NSView>(view.get())] {
        if (const auto animated = weak.lock(); animated && current) current->isCalled(*animated);
      });
}

void RandomUser::replaceContent() {
  const auto window = anyWindow();
  if (!window || !random_.once(3)) return;
  const auto view = random_.once(2) ? anyView() : nullptr;
  window->setContentView(view);
}

void RandomUser::openWindow() {
  if (windows_.size() < mostWindows) {
    const NSPoint origin = cornerOf(++windowCount_);
    const NSRect frame(origin.x, origin.y, 300, 200);
    windows_.push_back(random_.once(3) ? tracked(Ref<NSWindow>(make<NSPanel>(frame)))
                                       : tracked(Ref<NSWindow>(make<BKUKWindow>(frame))));
    windows_.back()->setTitle(std::to_string(windowCount_));
  }
  if (const auto window = anyWindow()) window->makeKeyAndOrderFront();
}

void RandomUser::closeWindow() {
  const auto window = anyWindow();
  if (!window || !random_.once(3)) return;
  if (random_.once(2)) {
    window->close();
  } else {
    window->orderOut();
  }
  if (random_.once(2)) std::erase(windows_, window);
}

void RandomUser::joinWindows() {
  const auto window = anyWindow();
  const auto child = anyWindow();
  if (!window || window == child) return;
  if (const auto parent = child->parent()) return parent->removeChildWindow(*child);
  for (auto each = window; each; each = each->parent()) {
    if (each == child) return;
  }
  window->addChildWindow(child, random_.once(2) ? NSWindowOrderingMode::above : NSWindowOrderingMode::below);
}

void RandomUser::displayNow() {
  const auto window = anyWindow();
  if (!window) return;
  if (random_.once(2)) return window->layoutIfNeeded();
  window->displayIfNeeded();
}

void RandomUser::changeAnswers() {
  auto& application = NSApplication::shared();
  if (random_.once(2)) {
    const auto name = random_.once(2) ? NSAppearanceNameAqua : NSAppearanceNameDarkAqua;
    return application.setAppearance(NSAppearance::named(name));
  }
  application.setUserInterfaceLayoutDirection(random_.once(2) ? NSUserInterfaceLayoutDirection::rightToLeft
                                                              : NSUserInterfaceLayoutDirection::leftToRight);
}

// What the user and the desktop do

void RandomUser::step() {
  static constexpr Deed acts[] = {&RandomUser::movePointer,   &RandomUser::movePointer,  &RandomUser::press,
                                  &RandomUser::press,         &RandomUser::release,      &RandomUser::release,
                                  &RandomUser::drag,          &RandomUser::typeKey,      &RandomUser::typeKey,
                                  &RandomUser::changeDesktop, &RandomUser::waitSomeTime, &RandomUser::deed,
                                  &RandomUser::deed,          &RandomUser::deed};
  (this->*acts[random_.below(static_cast<int>(std::size(acts)))])();
  host_->settle();
}

void RandomUser::movePointer() {
  auto* window = anyDesktopWindow();
  if (!window) return;
  pointerWindow_ = window->title();
  pointer_ = anyPoint();
  window->movePointer(pointer_);
}

void RandomUser::press() {
  auto* window = anyDesktopWindow();
  if (!window) return;
  const auto button = random_.once(5) ? host::PointerButton::right : host::PointerButton::left;
  if (random_.once(3)) return window->press(button);
  window->click(anyPoint(), button);
}

void RandomUser::release() {
  for (auto* window : std::vector(host_->windows())) {
    if (std::ranges::count(host_->windows(), window) > 0) window->release();
  }
}

void RandomUser::drag() {
  if (auto* window = anyDesktopWindow()) window->drag(anyPoint(), anyPoint());
}

void RandomUser::typeKey() {
  auto* window = anyDesktopWindow();
  if (!window) return;
  const auto key = random_.from<std::uint16_t>({48, 49, 36, 123, 124, 125, 126, 0});
  if (random_.once(4)) return window->setModifiers({.shift = random_.once(2)});
  if (random_.once(4)) return window->pressKey(key, " ");
  if (random_.once(3)) return window->releaseKey(key, " ");
  window->typeKey(key, " ");
}

void RandomUser::changeDesktop() {
  auto* window = anyDesktopWindow();
  if (!window) return;
  switch (random_.below(8)) {
    case 0:
      return window->setScale(random_.from<double>({1, 1.25, 1.5, 2}));
    case 1:
      return window->changeFrame(
          {window->frame().x, window->frame().y, random_.between(10, 400), random_.between(10, 300)});
    case 2:
      return window->setExposed(random_.once(2));
    case 3:
      return window->requestClose();
    case 4:
      return host_->setAppearance(
          {.scheme = random_.once(2) ? host::ColorScheme::dark : host::ColorScheme::light});
    case 5:
      return window->scroll(random_.between(-9, 9), random_.between(-9, 9));
    case 6:
      return window->leavePointer();
    default:
      return window->setFocused(random_.once(2));
  }
}

void RandomUser::waitSomeTime() { host_->advance(random_.between(0, 0.6)); }

// What must hold

std::string RandomUser::fault() {
  for (const auto& weak : tracked_) {
    const auto object = weak.lock();
    if (const auto view = as<NSView>(object)) {
      if (auto found = faultOf(*view); !found.empty()) return view->className() + ": " + found;
    }
    if (const auto window = as<NSWindow>(object)) {
      if (auto found = faultOf(*window); !found.empty()) return found;
    }
  }
  std::erase_if(tracked_, [](const auto& weak) { return !weak.isAlive(); });
  return faultOfPointer();
}

std::string RandomUser::faultOf(NSWindow& window) const {
  const auto& content = window.contentView();
  if (content->window() != &window || !content->superview()) return "the content view is not in its window";
  const auto responder = window.firstResponder();
  if (responder == &window) return {};
  const auto view = as<NSView>(responder);
  if (!view) return "the first responder is neither the window nor a view";
  return &rootOf(*view) == &rootOf(*content) ? "" : "the first responder is outside of its window";
}

std::string RandomUser::faultOf(NSView& view) const {
  const auto window = view.window();
  if (window && &rootOf(*window->contentView()) != &rootOf(view)) return "has a window it does not hang in";
  if (!window && view.superview() && view.superview()->window()) return "hangs in a window and has none";
  return {};
}

bool RandomUser::isHoveredFromAfar(const Ref<BKUKStatefulView>& view, std::string_view title) const {
  const auto window = view ? view->window() : nullptr;
  const bool isHovered = window && window->title() == title && window->isVisible() && window->isKeyWindow() &&
                         !view->isHiddenOrHasHiddenAncestor() &&
                         view->state() == BKUKInteractionState::hover && window->firstResponder() != view;
  if (!isHovered) return false;
  const NSPoint base{pointer_.x, window->frame().size.height - pointer_.y};
  return !NSMouseInRect(view->convertPointFrom(base, nullptr), view->bounds(), false);
}

// Of the window in which the pointer was moved last, if it has the keyboard. The virtual desktop tells of no
// window that opens under a still pointer, so a view that is hovered since then may hear of it once before.
std::string RandomUser::faultOfPointer() {
  const auto title = std::exchange(pointerWindow_, {});
  const auto views = std::vector(tracked_);
  for (const auto& weak : views) {
    const auto view = as<BKUKStatefulView>(weak.lock());
    if (!isHoveredFromAfar(view, title)) continue;
    const auto found = std::ranges::find(host_->windows(), title, &VirtualWindow::title);
    const auto middle = view->convertPointTo({view->bounds().midX(), view->bounds().midY()}, nullptr);
    const auto height = view->window()->frame().size.height;
    const auto there = pointer_;
    if (found == host_->windows().end() ||
        !NSMouseInRect(middle, {{}, view->window()->frame().size}, false)) {
      continue;
    }
    (*found)->movePointer({middle.x, height - middle.y});
    const auto again = std::ranges::find(host_->windows(), title, &VirtualWindow::title);
    if (again != host_->windows().end()) (*again)->movePointer(there);
    if (isHoveredFromAfar(view, title)) return "a view is hovered that is not under the pointer";
  }
  return {};
}

std::string RandomUser::remains() {
  current = nullptr;
  for (const auto& observer : observers_) NSNotificationCenter::default_().removeObserver(observer.get());
  observers_.clear();
  for (const auto& timer : timers_) timer->invalidate();
  for (const auto& window : NSApplication::shared().windows()) window->close();
  NSApplication::shared().setAppearance(nullptr);
  NSApplication::shared().setUserInterfaceLayoutDirection(std::nullopt);
  timers_.clear();
  constraints_.clear();
  listeners_.clear();
  views_.clear();
  windows_.clear();
  host_->advance(10);
  for (const auto& weak : tracked_) {
    if (const auto object = weak.lock()) return object->className();
  }
  return {};
}

}  // namespace bkuk
