#pragma once

namespace bkuk {

/// What the user's desktop asks of every program. Read at each use; the answers cost no call to the desktop.
class NSWorkspace {
 public:
  NSWorkspace() = delete;

  /// Whether things should appear where they belong instead of moving there.
  [[nodiscard]] static bool accessibilityDisplayShouldReduceMotion();
  /// Whether outlines and text should stand out more than usual.
  [[nodiscard]] static bool accessibilityDisplayShouldIncreaseContrast();
};

}  // namespace bkuk
