#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/Geometry.h"

namespace bkuk::host {

/// Names one element of the program for as long as it lives; no other element ever has the same. 0 names
/// nothing.
using AccessibilityId = std::uint64_t;

/// What an element is to its user.
enum class AccessibilityRole {
  unknown,
  button,
  cell,
  checkBox,
  column,
  comboBox,
  group,
  heading,
  image,
  incrementor,
  link,
  list,
  menu,
  menuBar,
  menuItem,
  outline,
  popover,
  popUpButton,
  progressIndicator,
  radioButton,
  radioGroup,
  row,
  scrollArea,
  scrollBar,
  sheet,
  slider,
  splitter,
  staticText,
  tabGroup,
  table,
  textArea,
  textField,
  toolbar,
  window,
};

enum class AccessibilityAction { press, increment, decrement, focus };

/// The number that an element shows or sets.
struct AccessibilityRange {
  double value = 0;
  double minimum = 0;
  double maximum = 0;
  bool isSettable = false;
};

/// What an assistive client may know of one element at this moment. Text is UTF-8.
struct AccessibilityElement {
  AccessibilityRole role = AccessibilityRole::unknown;
  std::string name{};
  std::string value{};  ///< of those whose value is text
  std::string help{};
  std::string identifier{};  ///< for tests, never spoken
  Rect frame{};              ///< in screen points
  std::optional<AccessibilityRange> range{};
  std::vector<AccessibilityAction> actions{};
  bool isEnabled = true;
  bool isFocusable = false;
  bool isFocused = false;
  bool isCheckable = false;
  bool isChecked = false;
  bool isMixed = false;  ///< neither on nor off
  bool isSelectable = false;
  bool isSelected = false;
  bool isOffscreen = false;  ///< scrolled away, or in a window that is not shown
};

/// The elements of the program as their host reads them. Nothing is prepared or kept for it: each answer is
/// worked out when it is asked for. Main thread.
///
/// An id whose element is gone, or is no longer part of a window, gets an absent, empty or false answer.
class AccessibilityTree {
 public:
  virtual ~AccessibilityTree() = default;

  [[nodiscard]] virtual std::optional<AccessibilityElement> element(AccessibilityId id) = 0;
  /// 0 for a window.
  [[nodiscard]] virtual AccessibilityId parent(AccessibilityId id) = 0;
  /// In the order in which they are to be read.
  [[nodiscard]] virtual std::vector<AccessibilityId> children(AccessibilityId id) = 0;
  /// The element of that window that has, or would have, the keyboard; the window itself when no other does.
  [[nodiscard]] virtual AccessibilityId focused(AccessibilityId window) = 0;

  /// What an assistive client asks for; whether it was done. May run any code of the application: must not
  /// be called from inside a call of the library.
  virtual bool perform(AccessibilityId id, AccessibilityAction action) = 0;
  virtual bool setValue(AccessibilityId id, double value) = 0;
};

}  // namespace bkuk::host
