#pragma once

#include <compare>
#include <functional>
#include <string>
#include <vector>

#include "host/Appearance.h"
#include "host/Text.h"

namespace bkuk::host {

struct SystemVersion {
  int major = 14;
  int minor = 0;
  auto operator<=>(const SystemVersion&) const = default;
};

/// What the desktop and its user have settled, as cached answers: none costs a call to another process. Main
/// thread.
class Settings {
 public:
  virtual ~Settings() = default;

  /// The desktop's own from the start, where it gave one within 50 ms of the host's making. Changes only
  /// inside of `Loop::dispatchEvent`, so that it is one and the same for a whole frame.
  [[nodiscard]] virtual Appearance appearance() const = 0;
  /// `changed` is called from `Loop::dispatchEvent` after each real change. It replaces the one before; an
  /// empty one hears nothing.
  virtual void setAppearanceHandler(std::function<void()> changed) = 0;

  /// Best first, as language tags of the desktop ("de_DE.UTF-8" or "de-DE"); read once, when the program
  /// first asks for its languages.
  [[nodiscard]] virtual std::vector<std::string> languages() const = 0;
  /// The direction in which the interface runs, unless the application says otherwise.
  [[nodiscard]] virtual TextDirection layoutDirection() const = 0;
  /// Whether Tab reaches every control, not texts and lists alone.
  [[nodiscard]] virtual bool isFullKeyboardAccessEnabled() const = 0;
  /// The platform's version that the library answers for, not the desktop's own.
  [[nodiscard]] virtual SystemVersion systemVersion() const = 0;
};

}  // namespace bkuk::host
