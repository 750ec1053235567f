#include "platform/appkit/accessibility/AccessibilityTree.h"

#include <unordered_set>
#include <utility>

#include "host/Accessibility.h"
#include "host/Host.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityHostElement.h"
#include "platform/appkit/accessibility/AccessibilityOrder.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"

namespace bkuk {

namespace {

using Kind = host::AccessibilityChange::Kind;

constexpr std::pair<NSAccessibilityNotificationName, Kind> notifications[] = {
    {NSAccessibilityFocusedUIElementChangedNotification, Kind::focus},
    {NSAccessibilityValueChangedNotification, Kind::value},
    {NSAccessibilityTitleChangedNotification, Kind::name},
    {NSAccessibilityCreatedNotification, Kind::created},
    {NSAccessibilityUIElementDestroyedNotification, Kind::destroyed},
    {NSAccessibilityLayoutChangedNotification, Kind::children},
    {NSAccessibilityStateChangedNotification, Kind::state},
};

// Whom to tell, if somebody listens there.
host::Accessibility* listener() {
  auto* host = host::currentIfAny();
  return host && host->accessibility().hasClient() ? &host->accessibility() : nullptr;
}

// The element itself or the nearest around it that is one; none in a place without.
Ref<NSAccessibility> nearestElement(Ref<NSAccessibility> element) {
  while (element && !element->isAccessibilityElement()) element = element->accessibilityParent();
  return element;
}

// None when the element, or what it is part of, is hidden or outside of windows.
Ref<NSWindow> windowShowing(const Ref<NSAccessibility>& element) {
  auto each = element;
  while (each && !each->isAccessibilityHidden()) {
    auto parent = each->accessibilityParent();
    if (!parent) return as<NSWindow>(each);
    each = std::move(parent);
  }
  return nullptr;
}

Ref<NSAccessibility> focusedElement(const NSWindow& window) {
  return nearestElement(window.accessibilityFocusedUIElement());
}

}  // namespace

void NSAccessibilityPostNotification(NSAccessibility& element, NSAccessibilityNotificationName name) {
  for (const auto& [known, kind] : notifications) {
    if (known == name) return AccessibilityTree::shared().post(element, kind);
  }
}

AccessibilityTree& AccessibilityTree::shared() {
  static auto& tree = *new AccessibilityTree;
  return tree;
}

// Changes

void AccessibilityTree::post(NSAccessibility& element, Kind kind) {
  auto* clients = listener();
  if (!clients) return;
  Ref<NSAccessibility> subject(&element);
  if (kind == Kind::focus) subject = nearestElement(element.accessibilityFocusedUIElement());
  if (subject) clients->announce({kind, idOf(*subject)});
}

void AccessibilityTree::postFocus(NSWindow& window) {
  auto* clients = listener();
  if (!clients) return;
  if (const auto element = focusedElement(window)) clients->announce({Kind::focus, idOf(*element)});
}

void AccessibilityTree::markChildren(NSAccessibility& container) {
  const auto [found, isNew] = placesOfChanged_.try_emplace(&container, changedContainers_.size());
  if (!isNew && changedContainers_[found->second].refersTo(&container)) return;
  found->second = changedContainers_.size();
  changedContainers_.emplace_back(&container);
}

// The way from a container up to its element ends where that of another has been.
void AccessibilityTree::tellChangedParents() {
  placesOfChanged_.clear();
  std::unordered_set<Ref<NSAccessibility>> seen;
  std::vector<Weak<NSAccessibility>> parents;
  for (const auto& weak : std::exchange(changedContainers_, {})) {
    auto each = weak.lock();
    while (each && seen.insert(each).second && !each->isAccessibilityElement()) {
      each = each->accessibilityParent();
    }
    const bool isElement = each && each->isAccessibilityElement();
    if (isElement && std::exchange(each->changedRecord().hasToldChildren, false)) parents.emplace_back(each);
  }
  for (const auto& weak : parents) {
    if (const auto parent = weak.lock()) post(*parent, Kind::children);
  }
}

void AccessibilityTree::forget(host::AccessibilityId id) {
  elements_.erase(id);
  if (auto* clients = listener()) clients->announce({Kind::destroyed, id});
}

host::AccessibilityId AccessibilityTree::idOf(NSAccessibility& element) {
  auto& id = element.changedRecord().id;
  if (id == 0) {
    id = ++lastId_;
    elements_.emplace(id, &element);
  }
  return id;
}

// Reading

bool AccessibilityTree::hasSetChildren(const NSAccessibility& element) {
  const auto& place = element.accessibilityRecord().place;
  return place && place->children;
}

Ref<NSAccessibility> AccessibilityTree::published(host::AccessibilityId id) const {
  const auto found = elements_.find(id);
  const auto element = found == elements_.end() ? nullptr : found->second.lock();
  return element && element->isAccessibilityElement() && windowShowing(element) ? element : nullptr;
}

std::optional<host::AccessibilityElement> AccessibilityTree::element(host::AccessibilityId id) {
  const auto element = published(id);
  if (!element) return std::nullopt;
  const auto window = windowShowing(element);
  const bool isFocused = window->isKeyWindow() && focusedElement(*window) == element;
  auto result = hostElementFrom(*element, isFocused || element->isAccessibilityFocused());
  result.isOffscreen |= !window->isVisible();
  return result;
}

host::AccessibilityId AccessibilityTree::parent(host::AccessibilityId id) {
  const auto element = published(id);
  const auto parent = element ? nearestElement(element->accessibilityParent()) : nullptr;
  return parent ? idOf(*parent) : 0;
}

std::vector<host::AccessibilityId> AccessibilityTree::children(host::AccessibilityId id) {
  const auto element = published(id);
  if (!element) return {};
  element->changedRecord().hasToldChildren = true;
  knowsChildren_ = true;
  std::vector<host::AccessibilityId> result;
  for (const auto& child : accessibilityElementsIn(*element)) result.push_back(idOf(*child));
  return result;
}

host::AccessibilityId AccessibilityTree::focused(host::AccessibilityId window) {
  const auto owner = as<NSWindow>(published(window));
  const auto element = owner ? focusedElement(*owner) : nullptr;
  return element ? idOf(*element) : 0;
}

// Acting

Ref<NSAccessibility> AccessibilityTree::usable(host::AccessibilityId id) const {
  auto element = published(id);
  return element && element->isAccessibilityEnabled() ? element : nullptr;
}

bool AccessibilityTree::perform(host::AccessibilityId id, host::AccessibilityAction action) {
  const auto element = usable(id);
  if (!element) return false;
  switch (action) {
    case host::AccessibilityAction::press:
      return element->accessibilityPerformPress();
    case host::AccessibilityAction::increment:
      return element->accessibilityPerformIncrement();
    case host::AccessibilityAction::decrement:
      return element->accessibilityPerformDecrement();
    case host::AccessibilityAction::focus:
      return element->accessibilityPerformFocus();
  }
  return false;
}

bool AccessibilityTree::setValue(host::AccessibilityId id, double value) {
  const auto element = usable(id);
  return element && element->accessibilityPerformSetValue(value);
}

}  // namespace bkuk
