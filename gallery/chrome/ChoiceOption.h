#pragma once

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

class Choice;

/// One option of a `Choice` for those who cannot see it: a radio button, or a row of a list.
class ChoiceOption : public NSAccessibilityElement {
 public:
  ChoiceOption(Choice& choice, std::size_t index);

  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override;
  [[nodiscard]] bool isAccessibilitySelected() const override;
  [[nodiscard]] bool isAccessibilityFocusable() const override { return true; }
  bool accessibilityPerformPress() override;
  bool accessibilityPerformFocus() override;

  /// Tells that the option was chosen, or no longer is.
  void selectionDidChange();

 private:
  [[nodiscard]] bool isRow() const;

  Weak<Choice> choice_;
  std::size_t index_;
};

}  // namespace bkuk::gallery
