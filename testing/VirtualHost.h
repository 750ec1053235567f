#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Host.h"
#include "host/support/AppearanceRelay.h"
#include "host/support/EventQueue.h"
#include "testing/VirtualWindow.h"

namespace bkuk {

class VirtualScreenReader;

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
  ~VirtualHost() override;

  // Time

  /// Moves the clock on by `seconds`, 0 or more. Everything that falls due on the way happens in order,
  /// each at its own date: a timer's target that asks `now()` gets the date that the timer was due.
  void advance(double seconds);
  /// Runs turns until nothing is queued or due at the present date.
  void settle() { advance(0); }
  /// Called by a `wait` that nothing can end, so that a test can act inside a nested loop of the code
  /// under test. An empty one does nothing.
  void setIdleHandler(std::function<void()> handler) { idleHandler_ = std::move(handler); }

  // The desktop

  /// The live windows, oldest first.
  [[nodiscard]] const std::vector<VirtualWindow*>& windows() const { return windows_; }
  /// At least one, the main screen first. Windows take over the scale when they are made.
  void setScreens(std::vector<host::Screen> screens);
  /// Of the main screen, for the windows made from now on; `VirtualWindow::setScale` changes a live one.
  void setScale(double scale) { screens_.front().scale = scale; }
  void setCanPlaceWindows(bool canPlace) { canPlaceWindows_ = canPlace; }
  void setHasDisplay(bool hasDisplay) { hasDisplay_ = hasDisplay; }
  [[nodiscard]] int beepCount() const { return beepCount_; }
  /// What the application said of itself.
  [[nodiscard]] const host::ApplicationIdentity& identity() const { return identity_; }

  // Its answers

  /// Announces a change as a desktop does; announcing what is known already tells nobody.
  void setAppearance(const host::Appearance& appearance);
  void setLanguages(std::vector<std::string> languages) { languages_ = std::move(languages); }
  void setLayoutDirection(host::TextDirection direction) { layoutDirection_ = direction; }
  void setFullKeyboardAccessEnabled(bool isEnabled) { isFullKeyboardAccessEnabled_ = isEnabled; }
  void setSystemVersion(host::SystemVersion version) { systemVersion_ = version; }

  // Host

  [[nodiscard]] double now() const override { return now_; }
  bool dispatchEvent() override;
  /// Never sleeps. Returns at once when an event is queued or `wake` was called; otherwise moves the clock
  /// on to the date, or without one calls the idle handler.
  void wait(std::optional<double> until) override;
  void wake() override { isWoken_ = true; }
  void setLoopClient(host::LoopClient* client) override { client_ = client; }
  void scheduleTurn(std::optional<double> date) override { due_ = date; }
  [[nodiscard]] std::unique_ptr<host::Window> makeWindow(const host::WindowOptions& options,
                                                         host::WindowClient& client) override;
  [[nodiscard]] std::vector<host::Screen> screens() const override { return screens_; }
  [[nodiscard]] bool canPlaceWindows() const override { return canPlaceWindows_; }
  [[nodiscard]] bool hasDisplay() const override { return hasDisplay_; }
  void beep() override { ++beepCount_; }
  void setIdentity(const host::ApplicationIdentity& identity) override { identity_ = identity; }
  [[nodiscard]] std::unique_ptr<host::Canvas> makeCanvas(host::Bitmap& bitmap) override;
  [[nodiscard]] host::Fonts& fonts() override { return *fonts_; }
  [[nodiscard]] host::DecodedImage decodeImage(std::span<const std::byte> file) const override;
  [[nodiscard]] host::Appearance appearance() const override { return appearance_.current(); }
  void setAppearanceHandler(std::function<void()> changed) override;
  [[nodiscard]] std::vector<std::string> languages() const override { return languages_; }
  [[nodiscard]] host::TextDirection layoutDirection() const override { return layoutDirection_; }
  [[nodiscard]] bool isFullKeyboardAccessEnabled() const override { return isFullKeyboardAccessEnabled_; }
  [[nodiscard]] host::SystemVersion systemVersion() const override { return systemVersion_; }
  void setAccessibilityTree(host::AccessibilityTree* tree) override { accessibilityTree_ = tree; }
  /// While a `VirtualScreenReader` lives.
  [[nodiscard]] bool hasAssistiveClient() const override { return screenReader_ != nullptr; }
  void announce(const host::AccessibilityChange& change) override;

 private:
  friend class VirtualScreenReader;
  friend class VirtualWindow;

  void add(VirtualWindow& window) { windows_.push_back(&window); }
  void remove(VirtualWindow& window);
  void push(VirtualWindow& window, host::WindowClient& client, host::WindowEvent event);
  // The window that has the keyboard, and the one under the pointer.
  void setFocusedWindow(VirtualWindow* window);
  void setPointerWindow(VirtualWindow* window);
  [[nodiscard]] bool hasWork() const;
  void runTurn();
  void runDueTurns();

  double now_ = 1000;
  std::optional<double> due_;
  std::atomic<bool> isWoken_ = false;
  bool isRunningTurns_ = false;
  host::LoopClient* client_ = nullptr;
  host::EventQueue queue_;
  host::AppearanceRelay appearance_;
  std::function<void()> idleHandler_;
  std::vector<VirtualWindow*> windows_;
  VirtualWindow* focusedWindow_ = nullptr;
  VirtualWindow* pointerWindow_ = nullptr;
  host::Point pointer_;  // on the screen
  std::vector<host::Screen> screens_{{{0, 0, 1920, 1080}, {0, 0, 1920, 1080}, 1}};
  std::vector<std::string> languages_{"en-US"};
  host::TextDirection layoutDirection_ = host::TextDirection::leftToRight;
  host::SystemVersion systemVersion_;
  bool isFullKeyboardAccessEnabled_ = true;
  bool canPlaceWindows_ = true;
  bool hasDisplay_ = true;
  int beepCount_ = 0;
  host::ApplicationIdentity identity_;
  host::AccessibilityTree* accessibilityTree_ = nullptr;
  VirtualScreenReader* screenReader_ = nullptr;
  std::unique_ptr<host::Fonts> fonts_;
};

}  // namespace bkuk
