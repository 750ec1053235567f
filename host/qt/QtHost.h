#pragma once

#include <memory>

#include "host/Host.h"
#include "host/PointerMemory.h"
#include "host/qt/EventClock.h"
#include "host/qt/QtAccessibility.h"
#include "host/qt/QtAppearance.h"
#include "host/qt/QtLoop.h"
#include "host/qt/text/QtFonts.h"
#include "host/support/AppearanceRelay.h"
#include "host/support/EventQueue.h"

namespace bkuk::host {

class QtApplication;

/// The desktop through Qt's Gui and DBus modules.
class QtHost final : public Host {
 public:
  QtHost();
  ~QtHost() override;

  [[nodiscard]] double now() const override { return loop_.now(); }
  bool dispatchEvent() override;
  void wait(std::optional<double> until) override { loop_.wait(until); }
  void wake() override { loop_.wake(); }
  void setLoopClient(LoopClient* client) override { loop_.setClient(client); }
  void scheduleTurn(std::optional<double> date) override;

  [[nodiscard]] std::unique_ptr<Window> makeWindow(const WindowOptions& options,
                                                   WindowClient& client) override;
  [[nodiscard]] std::vector<Screen> screens() const override;
  [[nodiscard]] bool canPlaceWindows() const override;
  [[nodiscard]] bool hasDisplay() const override;
  void beep() override;
  void setIdentity(const ApplicationIdentity& identity) override;

  [[nodiscard]] std::unique_ptr<Canvas> makeCanvas(Bitmap& bitmap) override;
  [[nodiscard]] Fonts& fonts() override { return fonts_; }
  [[nodiscard]] DecodedImage decodeImage(std::span<const std::byte> file) const override;

  [[nodiscard]] Appearance appearance() const override { return appearance_.current(); }
  void setAppearanceHandler(std::function<void()> changed) override;
  [[nodiscard]] std::vector<std::string> languages() const override;
  [[nodiscard]] TextDirection layoutDirection() const override;
  [[nodiscard]] bool isFullKeyboardAccessEnabled() const override { return true; }
  [[nodiscard]] SystemVersion systemVersion() const override { return {}; }

  void setAccessibilityTree(AccessibilityTree* tree) override { accessibility_.setTree(tree); }
  [[nodiscard]] bool hasAssistiveClient() const override { return accessibility_.isActive(); }
  void announce(const AccessibilityChange& change) override { accessibility_.announce(change); }

  // For its windows

  [[nodiscard]] QtApplication& application() { return application_; }
  [[nodiscard]] QtAccessibility& accessibility() { return accessibility_; }
  [[nodiscard]] EventClock& eventClock() { return eventClock_; }
  /// Where the pointer is on the screen, in points.
  [[nodiscard]] PointerMemory& pointer() { return pointer_; }
  void push(Window& window, WindowClient& client, WindowEvent event);
  void drop(const Window& window) { queue_.drop(window); }

 private:
  [[nodiscard]] bool hasEvent() const;

  QtApplication& application_;
  EventClock eventClock_;
  EventQueue queue_;
  PointerMemory pointer_;
  AppearanceRelay appearance_;
  QtLoop loop_;
  QtAccessibility accessibility_;
  QtAppearance portal_;
  QtFonts fonts_;
};

}  // namespace bkuk::host
