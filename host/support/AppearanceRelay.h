#pragma once

#include <functional>

#include "host/Appearance.h"
#include "host/support/EventSource.h"

namespace bkuk::host {

/// Stands between the desktop, which announces appearances whenever it likes, and the library, which
/// hears of one at a time. Until `dispatch` the library keeps reading the appearance it was told last,
/// so that it never changes in the middle of a frame.
class AppearanceRelay final : public EventSource {
 public:
  /// What the library has been told.
  [[nodiscard]] const Appearance& current() const { return current_; }
  void announce(const Appearance& appearance) { announced_ = appearance; }
  [[nodiscard]] bool hasEvent() const override { return announced_ != current_; }

  /// Called by `dispatch` after each real change; an empty one hears nothing.
  void setHandler(std::function<void()> changed) { changed_ = std::move(changed); }

  /// Makes the announced appearance the current one and calls the handler. False when they are equal,
  /// as they are after a change that was taken back in time.
  bool dispatch() override;

 private:
  Appearance current_;
  Appearance announced_;
  std::function<void()> changed_;
};

}  // namespace bkuk::host
