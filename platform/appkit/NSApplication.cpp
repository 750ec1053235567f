#include "platform/appkit/NSApplication.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "host/Accessibility.h"
#include "host/Desktop.h"
#include "host/Host.h"
#include "host/Settings.h"
#include "platform/appkit/NSEventMonitor.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"
#include "platform/appkit/drawing/NSImage.h"
#include "platform/foundation/NSKeyValueObservation.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/Permanent.h"
#include "platform/quartzcore/CATransaction.h"

namespace bkuk {

namespace {

// Layers and windows come last in a turn, after everything that may still change them.
constexpr int commitOrder = 1000;

// The pixels across of an application's icon; desktops scale it down to what they show.
constexpr int iconSide = 128;

std::shared_ptr<const host::Bitmap> iconBitmap(const NSImage& image) {
  const auto bitmap = std::make_shared<host::Bitmap>(host::PixelSize{iconSide, iconSide});
  const auto context = make<CGContext>(*bitmap, CGAffineTransform{1, 0, 0, -1, 0, iconSide});
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, false));
  image.draw(CGRect(0, 0, iconSide, iconSide));
  return bitmap;
}

Ref<NSAppearance> appearanceOf(const host::Appearance& answer) {
  switch (answer.scheme) {
    case host::ColorScheme::light:
      return NSAppearance::named(answer.highContrast ? NSAppearanceNameAccessibilityAqua
                                                     : NSAppearanceNameAqua);
    case host::ColorScheme::dark:
      return NSAppearance::named(answer.highContrast ? NSAppearanceNameAccessibilityDarkAqua
                                                     : NSAppearanceNameDarkAqua);
    case host::ColorScheme::unknown:
      break;
  }
  return NSAppearance::named(NSAppearanceNameUnknown);
}

}  // namespace

NSApplication& NSApplication::shared() {
  static const auto& application = permanent([] {
    NSThread::becomeMainThread();
    const auto made = make<NSApplication>();
    static NSApplication* attached = made.get();
    NSRunLoop::main().addTurnEndObserver(
        commitOrder, [] { attached->commit(); }, [] { return attached->needsCommit(); });
    host::addInstallObserver([](host::Host& host) { attached->attach(host); });
    made->refreshEffectiveAppearance();
    return made;
  });
  return *application;
}

NSApplication::NSApplication() = default;

void NSApplication::attach(host::Host& host) {
  host.accessibility().setTree(&AccessibilityTree::shared());
  host.settings().setAppearanceHandler([this] { refreshEffectiveAppearance(); });
  tellIdentity(host.desktop());
  if (effectiveAppearance_) refreshEffectiveAppearance();
}

// How the desktop knows it

void NSApplication::setApplicationName(std::string name) {
  applicationName_ = std::move(name);
  identityDidChange("setApplicationName");
}

void NSApplication::setDesktopIdentifier(std::string identifier) {
  desktopIdentifier_ = std::move(identifier);
  identityDidChange("setDesktopIdentifier");
}

void NSApplication::setApplicationIconImage(Ref<NSImage> image) {
  applicationIconImage_ = std::move(image);
  identityDidChange("setApplicationIconImage");
}

void NSApplication::identityDidChange(std::string_view setter) const {
  const bool isLate =
      std::ranges::any_of(windows(), [](const auto& window) { return window->hostWindow_ != nullptr; });
  if (isLate) {
    std::fprintf(stderr, "NSApplication: a window was shown already; call %s before the first one is\n",
                 std::string(setter).c_str());
  }
  if (auto* host = host::currentIfAny()) tellIdentity(host->desktop());
}

void NSApplication::tellIdentity(host::Desktop& desktop) const {
  desktop.setIdentity({applicationName_, desktopIdentifier_,
                       applicationIconImage_ ? iconBitmap(*applicationIconImage_) : nullptr});
}

// Appearance and answers

void NSApplication::setAppearance(Ref<NSAppearance> appearance) {
  appearance_ = std::move(appearance);
  refreshEffectiveAppearance();
}

void NSApplication::refreshEffectiveAppearance() {
  auto appearance = appearance_ ? appearance_ : appearanceOf(host::current().settings().appearance());
  if (effectiveAppearance_ && effectiveAppearance_->isEqual(appearance.get())) return;
  const bool isFirst = !std::exchange(effectiveAppearance_, std::move(appearance));
  if (isFirst) return;
  didChangeValue(*this, effectiveAppearanceKey);
  tellWindowsOfAppearance();
}

void NSApplication::tellWindowsOfAppearance() {
  for (const auto& window : windows()) window->appearanceDidChange();
}

NSUserInterfaceLayoutDirection NSApplication::userInterfaceLayoutDirection() const {
  return interfaceLayoutDirection();
}

void NSApplication::setUserInterfaceLayoutDirection(std::optional<NSUserInterfaceLayoutDirection> direction) {
  setInterfaceLayoutDirection(direction);
  for (const auto& window : windows()) window->layoutDirectionDidChange();
}

bool NSApplication::isFullKeyboardAccessEnabled() const {
  return host::current().settings().isFullKeyboardAccessEnabled();
}

// Windows

Ref<NSWindow> NSApplication::keyWindow() const { return keyWindow_.lock(); }
Ref<NSWindow> NSApplication::mainWindow() const { return mainWindow_.lock(); }

std::vector<Ref<NSWindow>> NSApplication::windows() const {
  std::vector<Ref<NSWindow>> living;
  living.reserve(windows_.size());
  for (const auto& weak : windows_) {
    if (auto window = weak.lock()) living.push_back(std::move(window));
  }
  return living;
}

void NSApplication::addWindow(NSWindow& window) {
  std::erase_if(windows_, [](const auto& weak) { return !weak.isAlive(); });
  windows_.push_back(&window);
}

void NSApplication::keepOrderedIn(NSWindow& window) { orderedIn_.push_back(&window); }

void NSApplication::letGo(NSWindow& window) {
  // First, for a window that is told that it lost the keyboard may order itself in again.
  std::erase(orderedIn_, Ref<NSWindow>(&window));
  if (mainWindow_.refersTo(&window)) mainWindow_ = nullptr;
  if (keyWindow_.refersTo(&window)) setKeyWindow(nullptr);
}

void NSApplication::windowDidClose() {
  if (orderedIn_.empty() && terminatesAfterLastWindowClosed_) stop();
}

void NSApplication::setKeyWindow(NSWindow* window) {
  if (window ? keyWindow_.refersTo(window) : !keyWindow_.isAlive()) return;
  const Ref<NSWindow> next(window);
  const auto previous = std::exchange(keyWindow_, Weak<NSWindow>(window)).lock();
  if (window && window->canBecomeMain()) mainWindow_ = window;
  if (previous) previous->resignKey();
  if (next && keyWindow_.refersTo(window)) next->becomeKey();
  if (next && keyWindow_.refersTo(window)) AccessibilityTree::shared().postFocus(*next);
}

void NSApplication::commit() {
  for (std::size_t i = 0; i < orderedIn_.size(); ++i) {
    const Ref<NSWindow> window = orderedIn_[i];
    window->layoutIfNeeded();
    window->updateTracking();
  }
  AccessibilityTree::tellChildren();
  CATransaction::flush();
  for (std::size_t i = 0; i < orderedIn_.size(); ++i) {
    const Ref<NSWindow> window = orderedIn_[i];
    window->render();
  }
}

bool NSApplication::needsCommit() const {
  const auto needsIt = [](const auto& window) { return window->needsCommit(); };
  return CATransaction::needsFlush() || AccessibilityTree::hasUntoldChildren() ||
         std::ranges::any_of(orderedIn_, needsIt);
}

// Events

void NSApplication::sendEvent(NSEvent& event) {
  const Ref<NSEvent> filtered = NSEventMonitor::filter(&event);
  if (!filtered) return;
  const auto outer = std::exchange(currentEvent_, filtered);
  const auto window = filtered->window();
  const bool isEquivalent =
      filtered->type() == NSEventType::keyDown && filtered->hasModifier(NSEventModifierFlagCommand);
  if (window && !(isEquivalent && window->performKeyEquivalent(*filtered))) window->sendEvent(*filtered);
  currentEvent_ = outer;
}

bool NSApplication::performOnChain(NSWindow& window, Selector selector, NSObject* sender) {
  for (auto responder = window.firstResponder(); responder; responder = responder->nextResponder()) {
    if (!responder->respondsTo(selector)) continue;
    responder->perform(selector, sender);
    return true;
  }
  const auto delegate = window.delegate();
  if (!delegate || !delegate->respondsTo(selector)) return false;
  delegate->perform(selector, sender);
  return true;
}

bool NSApplication::sendAction(Selector selector, NSObject* target, NSObject* sender) {
  if (!selector) return false;
  const auto performOn = [&](const Ref<NSObject>& object) {
    if (!object || !object->respondsTo(selector)) return false;
    object->perform(selector, sender);
    return true;
  };
  if (target) return performOn(target);
  const auto key = keyWindow();
  const auto main = mainWindow();
  if (key && performOnChain(*key, selector, sender)) return true;
  if (main && main != key && performOnChain(*main, selector, sender)) return true;
  return performOn(this) || performOn(delegate());
}

void NSApplication::run() { NSRunLoop::main().run(); }

void NSApplication::stop() { NSRunLoop::main().stop(); }

}  // namespace bkuk
