#pragma once

#include <optional>

#include "host/Accessibility.h"
#include "platform/appkit/NSAccessibility.h"
#include "platform/foundation/CountedText.h"

namespace bkuk {

/// What few elements are told: of their place, and what most classes answer themselves.
struct AccessibilityPlace {
  std::optional<std::vector<Ref<NSAccessibility>>> children;
  Weak<NSAccessibility> parent;
  std::optional<NSRect> frame;
  std::string help;
  std::string identifier;
  NSAccessibilityValue value;
};

/// What was set of an element, and the name under which the host knows it. Elements of which nothing is set
/// and that no host has met have none.
struct AccessibilityRecord {
  enum class Answer : signed char { byClass, no, yes };

  [[nodiscard]] static bool resolved(Answer answer, bool byClass) {
    return answer == Answer::byClass ? byClass : answer == Answer::yes;
  }

  CountedText role;  // none when not set
  std::string label;
  std::unique_ptr<AccessibilityPlace> place;
  host::AccessibilityId id = 0;
  Answer isElement = Answer::byClass;
  Answer isEnabled = Answer::byClass;
  Answer isSelected = Answer::byClass;
  Answer isHidden = Answer::byClass;
  bool hasToldChildren = false;  // so their changes are worth telling
};

}  // namespace bkuk
