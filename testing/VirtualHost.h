#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Drawing.h"
#include "host/Host.h"
#include "testing/VirtualAccessibility.h"
#include "testing/VirtualDesktop.h"
#include "testing/VirtualLoop.h"
#include "testing/VirtualSettings.h"
#include "testing/VirtualWindow.h"

namespace bkuk {

/// A desktop for tests: its clock moves only when told, its windows render into images, its pointer and
/// keyboard are driven by calls. Drawing and text are the real ones.
///
/// Usually made by a `VirtualHostScope`:
///
///     VirtualHostScope host;
///     ... make and show a window ...
///     host->windows().front()->click({20, 20});
///     host->advance(0.5);
///
/// Whatever a call has caused has happened when the call returns: it runs turns of the library's run loop
/// until nothing is queued or due at the present date. Calls made from inside such a turn only queue.
class VirtualHost final : public host::Host {
 public:
  /// The clock starts at 1000 seconds, so that a date of 0 is long past.
  VirtualHost();

  // Time

  [[nodiscard]] double now() const { return loop_.now(); }
  /// Moves the clock on by `seconds`, 0 or more. Everything that falls due on the way happens in order,
  /// each at its own date: a timer's target that asks `now()` gets the date that the timer was due.
  void advance(double seconds) { loop_.advance(seconds); }
  /// Runs turns until nothing is queued or due at the present date.
  void settle() { advance(0); }
  /// Called by a wait that nothing can end, so that a test can act inside a nested loop of the code
  /// under test. An empty one does nothing.
  void setIdleHandler(std::function<void()> handler) { loop_.setIdleHandler(std::move(handler)); }

  // The desktop

  /// The live windows, oldest first.
  [[nodiscard]] const std::vector<VirtualWindow*>& windows() const { return desktop_.windows(); }
  /// At least one, the main screen first. Windows take over the scale when they are made.
  void setScreens(std::vector<host::Screen> screens) { desktop_.setScreens(std::move(screens)); }
  /// Of the main screen, for the windows made from now on; `VirtualWindow::setScale` changes a live one.
  void setScale(double scale) { desktop_.setScale(scale); }
  void setCanPlaceWindows(bool canPlace) { desktop_.setCanPlaceWindows(canPlace); }
  void setHasDisplay(bool hasDisplay) { desktop_.setHasDisplay(hasDisplay); }
  [[nodiscard]] int beepCount() const { return desktop_.beepCount(); }
  /// What the application said of itself.
  [[nodiscard]] const host::ApplicationIdentity& identity() const { return desktop_.identity(); }

  // The user's settings

  /// Announces a change as a desktop does; announcing what is known already tells nobody.
  void setAppearance(const host::Appearance& appearance);
  void setLanguages(std::vector<std::string> languages) { settings_.setLanguages(std::move(languages)); }
  void setLayoutDirection(host::TextDirection direction) { settings_.setLayoutDirection(direction); }
  void setFullKeyboardAccessEnabled(bool isEnabled) { settings_.setFullKeyboardAccessEnabled(isEnabled); }
  void setSystemVersion(host::SystemVersion version) { settings_.setSystemVersion(version); }

  // Host

  [[nodiscard]] host::Loop& loop() override { return loop_; }
  [[nodiscard]] host::Desktop& desktop() override { return desktop_; }
  [[nodiscard]] host::Drawing& drawing() override { return *drawing_; }
  [[nodiscard]] host::Settings& settings() override { return settings_; }
  [[nodiscard]] VirtualAccessibility& accessibility() override { return accessibility_; }

 private:
  VirtualSettings settings_;
  VirtualDesktop desktop_{loop_};
  VirtualLoop loop_;
  VirtualAccessibility accessibility_;
  std::unique_ptr<host::Drawing> drawing_ = host::makeDrawing();
};

}  // namespace bkuk
