#include "gallery/chrome/ChoiceOption.h"

#include "gallery/chrome/Choice.h"

namespace bkuk::gallery {

ChoiceOption::ChoiceOption(Choice& choice, std::size_t index) : choice_(&choice), index_(index) {}

bool ChoiceOption::isRow() const {
  const auto choice = choice_.lock();
  return choice && choice->arrangement() == Choice::Arrangement::list;
}

NSAccessibilityRole ChoiceOption::accessibilityRole() const {
  return isRow() ? NSAccessibilityRowRole : NSAccessibilityRadioButtonRole;
}

NSAccessibilityValue ChoiceOption::accessibilityValue() const {
  return isRow() ? NSAccessibilityValue() : NSAccessibilityValue(isAccessibilitySelected() ? 1.0 : 0.0);
}

bool ChoiceOption::isAccessibilitySelected() const {
  const auto choice = choice_.lock();
  return choice && choice->selected() == index_;
}

bool ChoiceOption::accessibilityPerformPress() {
  const auto choice = choice_.lock();
  if (choice) choice->choose(index_);
  return static_cast<bool>(choice);
}

bool ChoiceOption::accessibilityPerformFocus() {
  const auto choice = choice_.lock();
  return choice && choice->accessibilityPerformFocus();
}

void ChoiceOption::selectionDidChange() {
  NSAccessibilityPostNotification(
      *this, isRow() ? NSAccessibilityStateChangedNotification : NSAccessibilityValueChangedNotification);
}

}  // namespace bkuk::gallery
