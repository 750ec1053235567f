#pragma once

#include <optional>

#include "platform/appkit/NSAccessibility.h"

namespace bkuk {

/// A part of a view that has no view of its own: a link in a text, a segment of a control. An element unless
/// it is told otherwise. The view holds it, by `setAccessibilityChildren` or an override of the getter.
class NSAccessibilityElement : public NSAccessibility {
 public:
  [[nodiscard]] bool isAccessibilityElement() const override;
  /// The one that was set; else the frame in the parent's space, where the parent is a view; else empty.
  [[nodiscard]] NSRect accessibilityFrame() const override;
  [[nodiscard]] NSRect accessibilityVisibleFrame() const override;

  /// In the space of the parent, a view, with which it moves.
  [[nodiscard]] virtual std::optional<NSRect> accessibilityFrameInParentSpace() const { return frame_; }
  void setAccessibilityFrameInParentSpace(NSRect frame) { frame_ = frame; }

 private:
  std::optional<NSRect> frame_;
};

}  // namespace bkuk
