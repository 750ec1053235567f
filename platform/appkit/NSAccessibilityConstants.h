#pragma once

#include <string_view>

namespace bkuk {

/// What an element is to a user who cannot see it. Compared as text; assistive clients are told those below
/// and take every other for unknown.
using NSAccessibilityRole = std::string_view;

inline constexpr NSAccessibilityRole NSAccessibilityUnknownRole = "AXUnknown";
inline constexpr NSAccessibilityRole NSAccessibilityButtonRole = "AXButton";
inline constexpr NSAccessibilityRole NSAccessibilityCellRole = "AXCell";
inline constexpr NSAccessibilityRole NSAccessibilityCheckBoxRole = "AXCheckBox";
inline constexpr NSAccessibilityRole NSAccessibilityColumnRole = "AXColumn";
inline constexpr NSAccessibilityRole NSAccessibilityComboBoxRole = "AXComboBox";
inline constexpr NSAccessibilityRole NSAccessibilityGroupRole = "AXGroup";
inline constexpr NSAccessibilityRole NSAccessibilityHeadingRole = "AXHeading";
inline constexpr NSAccessibilityRole NSAccessibilityImageRole = "AXImage";
inline constexpr NSAccessibilityRole NSAccessibilityIncrementorRole = "AXIncrementor";
inline constexpr NSAccessibilityRole NSAccessibilityLinkRole = "AXLink";
inline constexpr NSAccessibilityRole NSAccessibilityListRole = "AXList";
inline constexpr NSAccessibilityRole NSAccessibilityMenuRole = "AXMenu";
inline constexpr NSAccessibilityRole NSAccessibilityMenuBarRole = "AXMenuBar";
inline constexpr NSAccessibilityRole NSAccessibilityMenuItemRole = "AXMenuItem";
inline constexpr NSAccessibilityRole NSAccessibilityOutlineRole = "AXOutline";
inline constexpr NSAccessibilityRole NSAccessibilityPopoverRole = "AXPopover";
inline constexpr NSAccessibilityRole NSAccessibilityPopUpButtonRole = "AXPopUpButton";
inline constexpr NSAccessibilityRole NSAccessibilityProgressIndicatorRole = "AXProgressIndicator";
inline constexpr NSAccessibilityRole NSAccessibilityRadioButtonRole = "AXRadioButton";
inline constexpr NSAccessibilityRole NSAccessibilityRadioGroupRole = "AXRadioGroup";
inline constexpr NSAccessibilityRole NSAccessibilityRowRole = "AXRow";
inline constexpr NSAccessibilityRole NSAccessibilityScrollAreaRole = "AXScrollArea";
inline constexpr NSAccessibilityRole NSAccessibilityScrollBarRole = "AXScrollBar";
inline constexpr NSAccessibilityRole NSAccessibilitySheetRole = "AXSheet";
inline constexpr NSAccessibilityRole NSAccessibilitySliderRole = "AXSlider";
inline constexpr NSAccessibilityRole NSAccessibilitySplitterRole = "AXSplitter";
inline constexpr NSAccessibilityRole NSAccessibilityStaticTextRole = "AXStaticText";
inline constexpr NSAccessibilityRole NSAccessibilityTabGroupRole = "AXTabGroup";
inline constexpr NSAccessibilityRole NSAccessibilityTableRole = "AXTable";
inline constexpr NSAccessibilityRole NSAccessibilityTextAreaRole = "AXTextArea";
inline constexpr NSAccessibilityRole NSAccessibilityTextFieldRole = "AXTextField";
inline constexpr NSAccessibilityRole NSAccessibilityToolbarRole = "AXToolbar";
inline constexpr NSAccessibilityRole NSAccessibilityWindowRole = "AXWindow";

/// What happened to an element. Names other than those below are told to nobody.
using NSAccessibilityNotificationName = std::string_view;

inline constexpr NSAccessibilityNotificationName NSAccessibilityFocusedUIElementChangedNotification =
    "AXFocusedUIElementChanged";
inline constexpr NSAccessibilityNotificationName NSAccessibilityValueChangedNotification = "AXValueChanged";
/// The label.
inline constexpr NSAccessibilityNotificationName NSAccessibilityTitleChangedNotification = "AXTitleChanged";
inline constexpr NSAccessibilityNotificationName NSAccessibilityCreatedNotification = "AXCreated";
inline constexpr NSAccessibilityNotificationName NSAccessibilityUIElementDestroyedNotification =
    "AXUIElementDestroyed";
/// Which children the element has.
inline constexpr NSAccessibilityNotificationName NSAccessibilityLayoutChangedNotification = "AXLayoutChanged";
/// Whether the element is enabled or selected.
inline constexpr NSAccessibilityNotificationName NSAccessibilityStateChangedNotification = "AXStateChanged";

}  // namespace bkuk
