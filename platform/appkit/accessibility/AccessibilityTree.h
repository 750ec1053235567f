#pragma once

#include <unordered_map>
#include <vector>

#include "host/Accessibility.h"
#include "platform/appkit/NSAccessibility.h"

namespace bkuk {

class NSWindow;

/// The elements of all windows as the host reads them, and the way of their changes to the host. An element
/// gets an id when the host first meets it; until then nothing is kept of it.
class AccessibilityTree final : public host::AccessibilityTree {
 public:
  /// Lives until the process ends.
  [[nodiscard]] static AccessibilityTree& shared();

  /// Tells the host of it at once, if anybody listens.
  void post(NSAccessibility& element, host::AccessibilityChange::Kind kind);
  /// As `post` with the element of that window that has the focus.
  void postFocus(NSWindow& window);
  /// To be called when `container` has other children, or others of them are hidden. The host is told by
  /// `tellChildren`, once for all changes, and only if it knows the children before.
  static void childrenDidChange(NSAccessibility& container) {
    if (knowsChildren_) shared().markChildren(container);
  }
  /// The same for the one around it.
  static void childrenOfParentDidChange(const NSAccessibility& child) {
    if (!knowsChildren_) return;
    if (const auto parent = child.accessibilityParent()) shared().markChildren(*parent);
  }
  /// Called at the end of a turn.
  static void tellChildren() {
    if (!shared().changedContainers_.empty()) shared().tellChangedParents();
  }
  [[nodiscard]] static bool hasUntoldChildren() { return !shared().changedContainers_.empty(); }
  /// To be called by an element that goes and has an id.
  void forget(host::AccessibilityId id);

  [[nodiscard]] host::AccessibilityId idOf(NSAccessibility& element);
  /// Whether the application has set which children there are, and their order.
  [[nodiscard]] static bool hasSetChildren(const NSAccessibility& element);

  // host::AccessibilityTree
  [[nodiscard]] std::optional<host::AccessibilityElement> element(host::AccessibilityId id) override;
  [[nodiscard]] host::AccessibilityId parent(host::AccessibilityId id) override;
  [[nodiscard]] std::vector<host::AccessibilityId> children(host::AccessibilityId id) override;
  [[nodiscard]] host::AccessibilityId focused(host::AccessibilityId window) override;
  bool perform(host::AccessibilityId id, host::AccessibilityAction action) override;
  bool setValue(host::AccessibilityId id, double value) override;

 private:
  AccessibilityTree() = default;
  void markChildren(NSAccessibility& container);
  void tellChangedParents();
  [[nodiscard]] Ref<NSAccessibility> published(host::AccessibilityId id) const;
  [[nodiscard]] Ref<NSAccessibility> usable(host::AccessibilityId id) const;

  inline static bool knowsChildren_ = false;  // whether a host has ever asked for any

  host::AccessibilityId lastId_ = 0;
  std::unordered_map<host::AccessibilityId, Weak<NSAccessibility>> elements_;
  std::vector<Weak<NSAccessibility>> changedContainers_;
  std::unordered_map<const NSAccessibility*, std::size_t> placesOfChanged_;  // of each that lives, its last
};

}  // namespace bkuk
