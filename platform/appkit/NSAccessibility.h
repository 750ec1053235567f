#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/appkit/NSAccessibilityConstants.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

struct AccessibilityPlace;
struct AccessibilityRecord;

/// A number (1 for a mark that is set, 0 for none, 2 for one that is neither), a text, or nothing.
using NSAccessibilityValue = std::variant<std::monostate, double, std::string>;

/// What an assistive client, such as a screen reader, is told of a view, a window or a part of one, and what
/// it may do with it.
///
/// An element of a window is published when `isAccessibilityElement` says so. One that is not is passed over
/// and its children take its place; a hidden one is passed over with all that it holds. Every member is asked
/// when a client wants to know, so an override may simply tell the present truth. In the platform's classes
/// what was set takes the place of what the class would answer. When something changes, post it with
/// `NSAccessibilityPostNotification`; which children there are and whether they are hidden is told by
/// itself.
class NSAccessibility : public NSObject {
 public:
  NSAccessibility();
  ~NSAccessibility() override;

  // What it is

  /// Unknown unless it was set. Valid as long as the element lives.
  [[nodiscard]] virtual NSAccessibilityRole accessibilityRole() const;
  void setAccessibilityRole(NSAccessibilityRole role);
  /// What is spoken first; UTF-8. An empty one is none.
  [[nodiscard]] virtual std::string accessibilityLabel() const;
  void setAccessibilityLabel(std::string label);
  [[nodiscard]] virtual NSAccessibilityValue accessibilityValue() const;
  void setAccessibilityValue(NSAccessibilityValue value);
  /// The ends of a number's range; nothing, as at first, where it has none.
  [[nodiscard]] virtual NSAccessibilityValue accessibilityMinValue() const { return {}; }
  [[nodiscard]] virtual NSAccessibilityValue accessibilityMaxValue() const { return {}; }
  /// A sentence more than the label, for those who ask.
  [[nodiscard]] virtual std::string accessibilityHelp() const;
  void setAccessibilityHelp(std::string help);
  /// Finds the element in tests; never spoken.
  [[nodiscard]] virtual std::string accessibilityIdentifier() const;
  void setAccessibilityIdentifier(std::string identifier);

  // How it stands

  [[nodiscard]] virtual bool isAccessibilityElement() const;
  void setAccessibilityElement(bool isElement);
  /// True unless it was set.
  [[nodiscard]] virtual bool isAccessibilityEnabled() const;
  void setAccessibilityEnabled(bool isEnabled);
  /// Whether it is one of the chosen ones among its siblings.
  [[nodiscard]] virtual bool isAccessibilitySelected() const;
  void setAccessibilitySelected(bool isSelected);
  [[nodiscard]] virtual bool isAccessibilityHidden() const;
  void setAccessibilityHidden(bool isHidden);
  [[nodiscard]] virtual bool isAccessibilityFocused() const { return false; }
  /// Whether `accessibilityPerformFocus` may succeed.
  [[nodiscard]] virtual bool isAccessibilityFocusable() const { return false; }
  /// Where the focus is while it is on this element: the element itself, or a part of it.
  [[nodiscard]] virtual Ref<NSAccessibility> accessibilityFocusedUIElement() const;

  // Where it is

  /// None unless they were set. Clients read views by their places, in rows from the top, each from the
  /// leading side; children that were set, or that a class gives itself, in the order given.
  [[nodiscard]] virtual std::vector<Ref<NSAccessibility>> accessibilityChildren() const;
  /// Keeps the children, and becomes the parent of those that have none.
  void setAccessibilityChildren(std::vector<Ref<NSAccessibility>> children);
  [[nodiscard]] virtual Ref<NSAccessibility> accessibilityParent() const;
  /// Not kept alive.
  void setAccessibilityParent(NSAccessibility* parent);
  /// In screen space.
  [[nodiscard]] virtual NSRect accessibilityFrame() const;
  void setAccessibilityFrame(NSRect frame);
  /// The part that shows, in screen space; empty when it is scrolled away.
  [[nodiscard]] virtual NSRect accessibilityVisibleFrame() const { return accessibilityFrame(); }

  // What can be done with it; each answers whether it was done

  /// What a click does.
  virtual bool accessibilityPerformPress() { return false; }
  virtual bool accessibilityPerformIncrement() { return false; }
  virtual bool accessibilityPerformDecrement() { return false; }
  /// Takes a number over as if the user had set it.
  virtual bool accessibilityPerformSetValue(double) { return false; }
  /// Gives the element the keyboard.
  virtual bool accessibilityPerformFocus() { return false; }

 protected:
  /// What was set.
  [[nodiscard]] const AccessibilityRecord& accessibilityRecord() const;

 private:
  friend class AccessibilityTree;

  AccessibilityRecord& changedRecord();
  AccessibilityPlace& changedPlace();
  void postIfKnown(NSAccessibilityNotificationName name);

  std::unique_ptr<AccessibilityRecord> record_;  // made for the first that is set or published
};

/// Tells assistive clients at once what happened to an element, also when that is a window. Costs nothing
/// while none listens.
void NSAccessibilityPostNotification(NSAccessibility& element, NSAccessibilityNotificationName name);

}  // namespace bkuk
