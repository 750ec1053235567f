#pragma once

#include <cmath>
#include <gtest/gtest.h>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

/// A black window of 200 × 100 points on a desktop of its own, in the light appearance at first.
class WindowFixture : public testing::Test {
 public:
  static constexpr CGFloat width = 200;
  static constexpr CGFloat height = 100;

  WindowFixture() {
    use(NSAppearanceNameAqua);
    window = make<NSWindow>(NSRect(0, 0, width, height), NSWindowStyleMaskBorderless);
    window->setBackgroundColor(NSColor::black());
    window->orderFront();
  }
  ~WindowFixture() override {
    window->close();
    NSApplication::shared().setAppearance(nullptr);
  }

  static void use(std::string_view name) { NSApplication::shared().setAppearance(NSAppearance::named(name)); }

  /// Fills the window with the view.
  void show(const Ref<NSView>& view) {
    view->setTranslatesAutoresizingMaskIntoConstraints(true);
    view->setFrame({0, 0, width, height});
    view->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    window->contentView()->addSubview(view);
    host->settle();
  }

  /// Lets a layer hang in the window.
  void show(const Ref<CALayer>& layer) {
    window->contentView()->layer()->addSublayer(layer);
    host->settle();
  }

  /// 0xAARRGGBB at a point of the window, y up.
  [[nodiscard]] std::uint32_t pixel(CGFloat x, CGFloat y) const {
    host->settle();
    return host->windows().front()->pixel(static_cast<int>(x), static_cast<int>(height - y));
  }
  [[nodiscard]] int red(CGFloat x, CGFloat y) const { return static_cast<int>(pixel(x, y) >> 16 & 0xFF); }

  VirtualHostScope host;
  Ref<NSWindow> window;
};

inline constexpr std::uint32_t blackPixel = 0xFF000000;
inline constexpr std::uint32_t whitePixel = 0xFFFFFFFF;
inline constexpr std::uint32_t redPixel = 0xFFFF0000;
inline constexpr std::uint32_t greenPixel = 0xFF00FF00;
inline constexpr std::uint32_t bluePixel = 0xFF0000FF;

}  // namespace bkuk
