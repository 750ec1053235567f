#include "platform/appkit/NSLayoutConstraint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <unordered_map>

#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/constraints/LayoutPart.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSLayoutConstraint";

using Attribute = NSLayoutAttribute;

enum class Kind { none, horizontal, horizontalBySide, vertical, size };

Kind kindOf(Attribute attribute) {
  switch (attribute) {
    case Attribute::none:
      return Kind::none;
    case Attribute::left:
    case Attribute::right:
      return Kind::horizontalBySide;
    case Attribute::leading:
    case Attribute::trailing:
    case Attribute::centerX:
      return Kind::horizontal;
    case Attribute::width:
    case Attribute::height:
      return Kind::size;
    default:
      return Kind::vertical;
  }
}

// A centre goes with both kinds of sides, which do not go with each other: they part where text runs from
// right to left.
bool canCompare(Attribute a, Attribute b) {
  const bool isHorizontal = kindOf(a) == Kind::horizontal || kindOf(a) == Kind::horizontalBySide;
  if (a == Attribute::centerX) return kindOf(b) == Kind::horizontal || kindOf(b) == Kind::horizontalBySide;
  if (b == Attribute::centerX) return isHorizontal;
  return kindOf(a) == kindOf(b);
}

std::string nameOf(const NSLayoutItem* item) {
  if (!item) return "(gone)";
  auto& object = const_cast<NSLayoutItem*>(item)->layoutObject();
  const auto* view = dynamic_cast<const NSView*>(&object);
  const auto* guide = dynamic_cast<const NSLayoutGuide*>(&object);
  const std::string identifier = view ? view->identifier() : guide ? guide->identifier() : std::string();
  return object.className() + (identifier.empty() ? "" : " \"" + identifier + "\"");
}

std::string_view nameOf(Attribute attribute) {
  static constexpr std::array<std::string_view, 13> names{
      "none",  "left",   "right",   "top",     "bottom",       "leading",      "trailing",
      "width", "height", "centerX", "centerY", "lastBaseline", "firstBaseline"};
  return names[static_cast<std::size_t>(attribute)];
}

// Few constraints have one.
std::unordered_map<const NSLayoutConstraint*, std::string>& identifiers() {
  static auto& all = *new std::unordered_map<const NSLayoutConstraint*, std::string>;
  return all;
}

std::string text(double number) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%g", number);
  return buffer.data();
}

}  // namespace

NSLayoutConstraint::NSLayoutConstraint(NSLayoutItem* item, Attribute attribute, NSLayoutRelation relatedBy,
                                       NSLayoutItem* toItem, Attribute toAttribute, CGFloat multiplier,
                                       CGFloat constant)
    : firstAttribute_(attribute),
      secondAttribute_(toItem ? toAttribute : Attribute::none),
      relation_(relatedBy),
      firstIsGuide_(item && item->isLayoutGuide()),
      secondIsGuide_(toItem && toItem->isLayoutGuide()),
      first_(item ? &item->layoutObject() : nullptr),
      second_(toItem ? &toItem->layoutObject() : nullptr),
      multiplier_(multiplier),
      constant_(constant) {
  if (!item || attribute == Attribute::none) fatal("A constraint needs an item and an attribute", unit);
  const bool hasFitting = toItem ? canCompare(attribute, toAttribute) : toAttribute == Attribute::none;
  if (!hasFitting) fatal("The attributes of a constraint cannot be compared", unit);
  if (!std::isfinite(multiplier) || !std::isfinite(constant))
    fatal("A constraint needs finite numbers", unit);
}

NSLayoutConstraint::~NSLayoutConstraint() {
  leaveItems();
  if (hasIdentifier_) identifiers().erase(this);
}

NSLayoutItem* NSLayoutConstraint::firstItem() const { return layoutItem(first_.peek(), firstIsGuide_); }
NSLayoutItem* NSLayoutConstraint::secondItem() const { return layoutItem(second_.peek(), secondIsGuide_); }

const std::string& NSLayoutConstraint::identifier() const {
  static const auto& none = *new std::string;
  return hasIdentifier_ ? identifiers().at(this) : none;
}

void NSLayoutConstraint::setIdentifier(std::string identifier) {
  hasIdentifier_ = !identifier.empty();
  if (!hasIdentifier_) {
    identifiers().erase(this);
  } else {
    identifiers()[this] = std::move(identifier);
  }
}

void NSLayoutConstraint::activateConstraints(std::span<const Ref<NSLayoutConstraint>> constraints) {
  for (const auto& constraint : constraints) constraint->setActive(true);
}

void NSLayoutConstraint::deactivateConstraints(std::span<const Ref<NSLayoutConstraint>> constraints) {
  for (const auto& constraint : constraints) constraint->setActive(false);
}

void NSLayoutConstraint::setConstant(CGFloat constant) {
  if (!std::isfinite(constant)) fatal("A constraint needs finite numbers", unit);
  if (constant == constant_) return;
  constant_ = constant;
  const auto holder = holder_.lock();
  if (!holder || work_ == Work::none) return;
  if (const auto engine = holder->layoutEngine()) engine->constantDidChange(*this);
}

void NSLayoutConstraint::setPriority(NSLayoutPriority priority) {
  if (!(priority > 0 && priority <= NSLayoutPriorityRequired)) {
    fatal("A priority is above 0 and at most 1000", unit);
  }
  if (priority == priority_) return;
  const auto holder = holder_.lock();
  const bool touchesRequired =
      (priority == NSLayoutPriorityRequired) != (priority_ == NSLayoutPriorityRequired);
  if (holder && touchesRequired) {
    fatal("The priority of an active constraint cannot change between required and not required", unit);
  }
  priority_ = priority;
  if (!holder || work_ == Work::none) return;
  if (const auto engine = holder->layoutEngine()) engine->priorityDidChange(*this);
}

// Activity

NSView* NSLayoutConstraint::viewOf(NSLayoutItem& item) {
  return item.isLayoutGuide() ? static_cast<NSLayoutGuide&>(item).owner_.peek() : &static_cast<NSView&>(item);
}

NSView* NSLayoutConstraint::commonView() const {
  auto* first = firstItem();
  auto* second = secondItem();
  if (!first || (hasSecond() && !second)) return nullptr;
  NSView* a = viewOf(*first);
  if (!hasSecond()) {
    return kindOf(firstAttribute_) == Kind::size || firstIsGuide_ ? a : a->superview_.peek();
  }
  NSView* b = viewOf(*second);
  if (!a || !b) return nullptr;
  if (a == b || b->superview_.refersTo(a)) return a;
  if (a->superview_.refersTo(b)) return b;
  // Level with each other, then upwards together.
  const auto depth = [](const NSView* view) {
    int steps = 0;
    for (; view; view = view->superview_.peek()) ++steps;
    return steps;
  };
  const int difference = depth(a) - depth(b);
  for (int i = 0; i < difference; ++i) a = a->superview_.peek();
  for (int i = 0; i < -difference; ++i) b = b->superview_.peek();
  while (a != b) {
    a = a->superview_.peek();
    b = b->superview_.peek();
  }
  return a;
}

void NSLayoutConstraint::setActive(bool active) {
  if (active == isActive()) return;
  const Ref<NSLayoutConstraint> self(this);
  if (active) {
    activate();
  } else {
    deactivate();
  }
}

// A tree that has no engine gets one when its layout comes to solve constraints.
void NSLayoutConstraint::activate() {
  NSView* holder = commonView();
  if (!holder) fatal("The items of a constraint have no common view: " + description(), unit);
  holder_ = holder;
  auto& held = holder->layoutPart().held;
  place_ = static_cast<std::uint32_t>(held.size());
  held.emplace_back(this);
  enterItems();
  auto& tree = holder->layoutRoot().layoutPart();
  if (tree.engine) return tree.engine->add(*this);
  tree.awaitsEngine = true;
  holder->markLayoutUpwards();
}

void NSLayoutConstraint::deactivate() {
  const auto holder = holder_.lock();
  if (work_ != Work::none) {
    if (const auto engine = holder->layoutEngine()) engine->remove(*this);
  }
  leaveItems();
  holder_ = nullptr;
  auto& held = holder->layoutPart().held;
  held.back()->place_ = place_;
  std::swap(held[place_], held.back());
  held.pop_back();
}

// The holder has the constraint in its list.
void NSLayoutConstraint::enterItems() {
  isListed_ = true;
  auto* first = firstItem();
  auto* second = secondItem();
  for (auto* item : {first, second == first ? nullptr : second}) {
    if (item && (item->isLayoutGuide() || viewOf(*item) != holder_.peek()))
      item->layoutPart().naming.push_back(this);
  }
}

void NSLayoutConstraint::leaveItems() {
  if (!isListed_) return;
  isListed_ = false;
  for (auto* item : {firstItem(), secondItem()}) {
    if (item && item->layoutPart_) std::erase(item->layoutPart_->naming, this);
  }
}

std::string NSLayoutConstraint::description() const {
  const char* sign = relation_ == NSLayoutRelation::equal             ? " = "
                     : relation_ == NSLayoutRelation::lessThanOrEqual ? " <= "
                                                                      : " >= ";
  std::string formula = nameOf(firstItem()) + "." + std::string(nameOf(firstAttribute_)) + sign;
  if (hasSecond()) {
    if (multiplier_ != 1) formula += text(multiplier_) + " * ";
    formula += nameOf(secondItem()) + "." + std::string(nameOf(secondAttribute_));
    if (constant_ != 0) formula += (constant_ < 0 ? " - " : " + ") + text(std::abs(constant_));
  } else {
    formula += text(constant_);
  }
  if (priority_ != NSLayoutPriorityRequired) formula += " @" + text(priority_);
  return hasIdentifier_ ? identifier() + ": " + formula : formula;
}

}  // namespace bkuk
