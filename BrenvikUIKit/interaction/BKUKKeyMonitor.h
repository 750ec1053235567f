#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <span>

#include "platform/appkit/NSEvent.h"

namespace bkuk {

class BKUKStatefulView;
class NSWindow;

/// Actions by key that a dialog, a sheet or a control lays over a window. The monitor pushed last is asked
/// first.
class BKUKKeyMonitor : public NSObject {
 public:
  /// What goes on to the monitor below; a sum of bits. At first nothing does.
  struct Options {
    std::int64_t rawValue = 0;

    static const Options passWhenNotConsumed;  ///< keys whose action answered false
    static const Options passWhenNoAction;     ///< keys without an action

    [[nodiscard]] constexpr bool contains(Options other) const {
      return (rawValue & other.rawValue) == other.rawValue;
    }
    constexpr Options operator|(Options other) const { return {rawValue | other.rawValue}; }
    bool operator==(const Options&) const = default;
  };

  /// True when the key was consumed.
  using Action = std::function<bool(NSEvent& event)>;

  BKUKKeyMonitor() = default;
  /// Deactivates.
  ~BKUKKeyMonitor() override;

  [[nodiscard]] Options options() const { return options_; }
  void setOptions(Options options) { options_ = options; }
  /// The window on whose stack the monitor is; absent while it is inactive.
  [[nodiscard]] Ref<NSWindow> window() const { return window_.lock(); }

  /// Pushes the monitor on the window's stack, which keeps it; see `appendKeyMonitor` for the windows that
  /// have one.
  void activate(NSWindow& window);
  /// Takes it off again. Harmless for an inactive one.
  void deactivate();

  /// Replaces the key's action; an absent one removes it.
  void setAction(std::uint16_t key, Action action);
  void setAction(std::initializer_list<std::uint16_t> keys, const Action& action);
  void setAction(std::span<const std::uint16_t> keys, const Action& action);
  void removeAction(std::uint16_t key);
  /// The key's action, or null.
  [[nodiscard]] const Action* action(std::uint16_t key) const;

  /// Both Return keys.
  void setSubmit(const Action& action);
  /// Escape.
  void setCancel(Action action);
  /// Makes the key press a control, held weakly. A control that is gone, hidden, disabled or in no window
  /// leaves the key to others.
  void setKeyAlias(std::uint16_t keyCode, BKUKStatefulView& control);
  void setSubmit(BKUKStatefulView& button);
  void setCancel(BKUKStatefulView& button);

  [[nodiscard]] std::string className() const override { return "BKUKKeyMonitor"; }

 private:
  Options options_;
  Weak<NSWindow> window_;
  std::map<std::uint16_t, Action> actions_;
};

inline constexpr BKUKKeyMonitor::Options BKUKKeyMonitor::Options::passWhenNotConsumed{1};
inline constexpr BKUKKeyMonitor::Options BKUKKeyMonitor::Options::passWhenNoAction{2};

}  // namespace bkuk
