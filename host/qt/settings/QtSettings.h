#pragma once

#include "host/Settings.h"
#include "host/qt/settings/QtAppearance.h"
#include "host/support/AppearanceRelay.h"

namespace bkuk::host {

class QtApplication;
class QtLoop;

/// The user's settings: from the desktop portal and from the environment.
class QtSettings final : public Settings {
 public:
  /// Waits for the portal's first answers, so that no window is shown in another look first.
  QtSettings(const QtApplication& application, QtLoop& loop);

  [[nodiscard]] Appearance appearance() const override { return appearance_.current(); }
  void setAppearanceHandler(std::function<void()> changed) override;
  [[nodiscard]] std::vector<std::string> languages() const override;
  [[nodiscard]] TextDirection layoutDirection() const override;
  [[nodiscard]] bool isFullKeyboardAccessEnabled() const override { return true; }
  [[nodiscard]] SystemVersion systemVersion() const override { return {}; }

  /// The changes of appearance that wait for the library.
  [[nodiscard]] EventSource& events() { return appearance_; }

 private:
  const QtApplication& application_;
  AppearanceRelay appearance_;
  QtAppearance portal_;
};

}  // namespace bkuk::host
