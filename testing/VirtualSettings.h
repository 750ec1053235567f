#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Settings.h"
#include "host/support/AppearanceRelay.h"

namespace bkuk {

/// The settings of a virtual host's user.
class VirtualSettings final : public host::Settings {
 public:
  /// The library hears of it with its next events.
  void announceAppearance(const host::Appearance& appearance) { appearance_.announce(appearance); }
  void setLanguages(std::vector<std::string> languages) { languages_ = std::move(languages); }
  void setLayoutDirection(host::TextDirection direction) { layoutDirection_ = direction; }
  void setFullKeyboardAccessEnabled(bool isEnabled) { isFullKeyboardAccessEnabled_ = isEnabled; }
  void setSystemVersion(host::SystemVersion version) { systemVersion_ = version; }
  [[nodiscard]] host::EventSource& events() { return appearance_; }

  [[nodiscard]] host::Appearance appearance() const override { return appearance_.current(); }
  void setAppearanceHandler(std::function<void()> changed) override {
    appearance_.setHandler(std::move(changed));
  }
  [[nodiscard]] std::vector<std::string> languages() const override { return languages_; }
  [[nodiscard]] host::TextDirection layoutDirection() const override { return layoutDirection_; }
  [[nodiscard]] bool isFullKeyboardAccessEnabled() const override { return isFullKeyboardAccessEnabled_; }
  [[nodiscard]] host::SystemVersion systemVersion() const override { return systemVersion_; }

 private:
  host::AppearanceRelay appearance_;
  std::vector<std::string> languages_{"en-US"};
  host::TextDirection layoutDirection_ = host::TextDirection::leftToRight;
  host::SystemVersion systemVersion_;
  bool isFullKeyboardAccessEnabled_ = true;
};

}  // namespace bkuk
