#include "platform/appkit/accessibility/AccessibilityOrder.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"
#include "platform/appkit/window/ViewOrder.h"

namespace bkuk {

namespace {

using Elements = std::vector<Ref<NSAccessibility>>;

bool isRightToLeft(const NSAccessibility& container) {
  const auto* window = dynamic_cast<const NSWindow*>(&container);
  const auto* view = window ? window->contentView().get() : dynamic_cast<const NSView*>(&container);
  return view && view->userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
}

// Whether the order of the children is that of the views, which says nothing but what is in front.
bool isOrderOfViews(const NSAccessibility& container, const Elements& children) {
  if (AccessibilityTree::hasSetChildren(container)) return false;
  if (dynamic_cast<const NSWindow*>(&container)) return true;
  const auto* view = dynamic_cast<const NSView*>(&container);
  return view && std::ranges::equal(children, view->subviews());
}

// What stands at one place: one element, or those of a container that says their order itself.
struct Group {
  NSRect place;
  Elements elements;
};

// A container that is being read, within the one before it.
struct Level {
  NSRect place;
  bool isByPlace;
  Elements waiting;  // the next one last
  std::vector<Group> groups;
};

Level levelOf(const NSAccessibility& container, const NSRect& place) {
  const auto children = container.accessibilityChildren();
  return {place, isOrderOfViews(container, children), {children.rbegin(), children.rend()}, {}};
}

Elements sorted(std::vector<Group> groups, bool isByPlace, bool isRightToLeft) {
  if (isByPlace) {
    std::vector<NSRect> places;
    places.reserve(groups.size());
    for (const auto& group : groups) places.push_back(group.place);
    std::vector<Group> inOrder;
    inOrder.reserve(groups.size());
    for (const auto index : NSReadingOrder(places, isRightToLeft)) {
      inOrder.push_back(std::move(groups[index]));
    }
    groups = std::move(inOrder);
  }
  if (groups.size() == 1) return std::move(groups.front().elements);
  Elements result;
  for (auto& group : groups) {
    result.insert(result.end(), group.elements.begin(), group.elements.end());
  }
  return result;
}

// Views that leave the order to their places share one level.
void read(NSAccessibility& child, std::vector<Level>& levels) {
  auto& level = levels.back();
  if (child.isAccessibilityHidden()) return;
  const NSRect place = child.accessibilityFrame();
  if (child.isAccessibilityElement()) return level.groups.push_back({place, {&child}});
  auto inside = levelOf(child, place);
  if (!level.isByPlace || !inside.isByPlace) return levels.push_back(std::move(inside));
  level.waiting.insert(level.waiting.end(), inside.waiting.begin(), inside.waiting.end());
}

}  // namespace

Elements accessibilityElementsIn(const NSAccessibility& container) {
  const bool isTurned = isRightToLeft(container);
  std::vector<Level> levels{levelOf(container, {})};
  while (true) {
    auto& level = levels.back();
    if (!level.waiting.empty()) {
      const Ref<NSAccessibility> child = std::move(level.waiting.back());
      level.waiting.pop_back();
      read(*child, levels);
      continue;
    }
    auto elements = sorted(std::move(level.groups), level.isByPlace, isTurned);
    const NSRect place = level.place;
    levels.pop_back();
    if (levels.empty()) return elements;
    levels.back().groups.push_back({place, std::move(elements)});
  }
}

}  // namespace bkuk
