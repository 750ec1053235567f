#pragma once

#include <string>
#include <utility>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// Tells those who cannot see it what a view is and what it is called.
inline void describe(NSView& view, NSAccessibilityRole role, std::string label) {
  view.setAccessibilityElement(true);
  view.setAccessibilityRole(role);
  view.setAccessibilityLabel(std::move(label));
}

/// As `describe` for a view that is one picture, whatever it is made of.
inline void describeImage(NSView& view, std::string label) {
  describe(view, NSAccessibilityImageRole, std::move(label));
  view.setAccessibilityChildren({});
}

}  // namespace bkuk::gallery
