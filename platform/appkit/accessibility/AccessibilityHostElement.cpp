#include "platform/appkit/accessibility/AccessibilityHostElement.h"

#include <algorithm>
#include <iterator>

#include "platform/appkit/NSScreen.h"

namespace bkuk {

namespace {

using Action = host::AccessibilityAction;
using Role = host::AccessibilityRole;

// What a role brings along, whoever has it.
enum Trait : unsigned { pressable = 1, checkable = 2, selectable = 4, adjustable = 8, named = 16 };

struct RoleEntry {
  NSAccessibilityRole name;
  Role role;
  unsigned traits = 0;
};

constexpr RoleEntry roles[] = {
    {NSAccessibilityButtonRole, Role::button, pressable},
    {NSAccessibilityCellRole, Role::cell, selectable},
    {NSAccessibilityCheckBoxRole, Role::checkBox, pressable | checkable},
    {NSAccessibilityColumnRole, Role::column},
    {NSAccessibilityComboBoxRole, Role::comboBox, pressable},
    {NSAccessibilityGroupRole, Role::group},
    {NSAccessibilityHeadingRole, Role::heading, named},
    {NSAccessibilityImageRole, Role::image},
    {NSAccessibilityIncrementorRole, Role::incrementor, adjustable},
    {NSAccessibilityLinkRole, Role::link, pressable},
    {NSAccessibilityListRole, Role::list},
    {NSAccessibilityMenuRole, Role::menu},
    {NSAccessibilityMenuBarRole, Role::menuBar},
    {NSAccessibilityMenuItemRole, Role::menuItem, pressable},
    {NSAccessibilityOutlineRole, Role::outline},
    {NSAccessibilityPopoverRole, Role::popover},
    {NSAccessibilityPopUpButtonRole, Role::popUpButton, pressable},
    {NSAccessibilityProgressIndicatorRole, Role::progressIndicator},
    {NSAccessibilityRadioButtonRole, Role::radioButton, pressable | checkable},
    {NSAccessibilityRadioGroupRole, Role::radioGroup},
    {NSAccessibilityRowRole, Role::row, pressable | selectable},
    {NSAccessibilityScrollAreaRole, Role::scrollArea},
    {NSAccessibilityScrollBarRole, Role::scrollBar, adjustable},
    {NSAccessibilitySheetRole, Role::sheet},
    {NSAccessibilitySliderRole, Role::slider, adjustable},
    {NSAccessibilitySplitterRole, Role::splitter, adjustable},
    {NSAccessibilityStaticTextRole, Role::staticText, named},
    {NSAccessibilityTabGroupRole, Role::tabGroup},
    {NSAccessibilityTableRole, Role::table},
    {NSAccessibilityTextAreaRole, Role::textArea},
    {NSAccessibilityTextFieldRole, Role::textField},
    {NSAccessibilityToolbarRole, Role::toolbar},
    {NSAccessibilityWindowRole, Role::window},
};

const RoleEntry& entryOf(NSAccessibilityRole name) {
  static constexpr RoleEntry unknown{NSAccessibilityUnknownRole, Role::unknown, pressable};
  const auto* found = std::ranges::find(roles, name, &RoleEntry::name);
  return found == std::end(roles) ? unknown : *found;
}

std::optional<host::AccessibilityRange> rangeOf(const NSAccessibility& element, unsigned traits) {
  const auto value = element.accessibilityValue();
  const auto minimum = element.accessibilityMinValue();
  const auto maximum = element.accessibilityMaxValue();
  const auto* number = std::get_if<double>(&value);
  const auto* least = std::get_if<double>(&minimum);
  const auto* greatest = std::get_if<double>(&maximum);
  if (!number || !least || !greatest) return std::nullopt;
  return host::AccessibilityRange{*number, *least, *greatest, (traits & adjustable) != 0};
}

std::vector<Action> actionsOf(const host::AccessibilityElement& element, unsigned traits) {
  std::vector<Action> actions;
  if (traits & pressable) actions.push_back(Action::press);
  if (traits & adjustable) actions.insert(actions.end(), {Action::increment, Action::decrement});
  if (element.isFocusable) actions.push_back(Action::focus);
  return actions;
}

host::Rect hostFrame(const NSRect& frame) {
  const NSRect turned = NSScreenFlipped(frame);
  return {turned.origin.x, turned.origin.y, turned.size.width, turned.size.height};
}

}  // namespace

host::AccessibilityElement hostElementFrom(const NSAccessibility& element, bool isFocused) {
  const auto& [name, role, traits] = entryOf(element.accessibilityRole());
  const auto value = element.accessibilityValue();
  const auto* text = std::get_if<std::string>(&value);
  const auto* number = std::get_if<double>(&value);
  host::AccessibilityElement result;
  result.role = role;
  result.name = element.accessibilityLabel();
  if (text) ((traits & named) && result.name.empty() ? result.name : result.value) = *text;
  result.help = element.accessibilityHelp();
  result.identifier = element.accessibilityIdentifier();
  result.frame = hostFrame(element.accessibilityFrame());
  result.range = rangeOf(element, traits);
  result.isEnabled = element.isAccessibilityEnabled();
  result.isFocusable = element.isAccessibilityFocusable();
  result.isFocused = isFocused;
  result.isCheckable = (traits & checkable) != 0;
  result.isMixed = result.isCheckable && number && *number == 2;
  result.isChecked = result.isCheckable && number && *number != 0 && !result.isMixed;
  result.isSelectable = (traits & selectable) != 0;
  result.isSelected = result.isSelectable && element.isAccessibilitySelected();
  result.isOffscreen = element.accessibilityVisibleFrame().isEmpty();
  result.actions = actionsOf(result, traits);
  return result;
}

}  // namespace bkuk
