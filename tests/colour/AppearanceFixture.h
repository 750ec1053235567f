#pragma once

#include <gtest/gtest.h>

#include "platform/appkit/NSApplication.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

/// A desktop whose look a test changes, light at first.
class AppearanceFixture : public testing::Test {
 protected:
  AppearanceFixture() { useLight(); }
  ~AppearanceFixture() override { NSApplication::shared().setAppearance(nullptr); }

  void useLight() { announce(host::ColorScheme::light); }
  void useDark() { announce(host::ColorScheme::dark); }
  /// Sets the application's own appearance.
  static void use(std::string_view name) { NSApplication::shared().setAppearance(NSAppearance::named(name)); }
  void useSystemVersion(int major, int minor) { desktop_->setSystemVersion({major, minor}); }

 private:
  void announce(host::ColorScheme scheme) {
    host::Appearance appearance;
    appearance.scheme = scheme;
    desktop_->setAppearance(appearance);
  }

  VirtualHostScope desktop_;
};

}  // namespace bkuk
