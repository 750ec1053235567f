#include "platform/appkit/NSLayoutConstraint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

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

std::string text(double number) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%g", number);
  return buffer.data();
}

}  // namespace

NSLayoutConstraint::NSLayoutConstraint(NSLayoutItem* item, Attribute attribute, NSLayoutRelation relatedBy,
                                       NSLayoutItem* toItem, Attribute toAttribute, CGFloat multiplier,
                                       CGFloat constant)
    : first_(item),
      second_(toItem),
      firstAttribute_(attribute),
      secondAttribute_(toItem ? toAttribute : Attribute::none),
      relation_(relatedBy),
      multiplier_(multiplier),
      constant_(constant) {
  if (!item || attribute == Attribute::none) fatal("A constraint needs an item and an attribute", unit);
  const bool hasFitting = toItem ? canCompare(attribute, toAttribute) : toAttribute == Attribute::none;
  if (!hasFitting) fatal("The attributes of a constraint cannot be compared", unit);
  if (!std::isfinite(multiplier) || !std::isfinite(constant))
    fatal("A constraint needs finite numbers", unit);
}

NSLayoutConstraint::~NSLayoutConstraint() { leaveItems(); }

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
  if (const auto holder = holder_.lock()) holder->madeLayoutEngine().constantDidChange(*this);
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
  if (holder) holder->madeLayoutEngine().priorityDidChange(*this);
}

// Activity

Ref<NSView> NSLayoutConstraint::commonView() const {
  const auto keepFirst = first_.hold();
  const auto keepSecond = second_.hold();
  if (!keepFirst || (hasSecond() && !keepSecond)) return nullptr;
  auto& first = *first_.item();
  if (!hasSecond())
    return kindOf(firstAttribute_) == Kind::size ? first.layoutView() : first.layoutContainer();
  Ref<NSView> a = first.layoutView();
  Ref<NSView> b = second_.item()->layoutView();
  if (a == b || b->superview() == a) return a;
  if (a->superview() == b) return b;
  // Level with each other, then upwards together.
  const auto depth = [](Ref<NSView> view) {
    int steps = 0;
    for (; view; view = view->superview()) ++steps;
    return steps;
  };
  const int difference = depth(a) - depth(b);
  for (int i = 0; i < difference; ++i) a = a->superview();
  for (int i = 0; i < -difference; ++i) b = b->superview();
  while (a != b) {
    a = a->superview();
    b = b->superview();
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

void NSLayoutConstraint::activate() {
  const auto holder = commonView();
  if (!holder) fatal("The items of a constraint have no common view: " + description(), unit);
  holder_ = holder;
  holder->layoutPart().held.push_back(this);
  first_.item()->layoutPart().naming.push_back(this);
  if (auto* second = second_.item(); second && second != first_.item()) {
    second->layoutPart().naming.push_back(this);
  }
  holder->madeLayoutEngine().add(*this);
}

void NSLayoutConstraint::deactivate() {
  const auto holder = holder_.lock();
  if (const auto engine = holder->layoutEngine()) engine->remove(*this);
  leaveItems();
  holder_ = nullptr;
  auto& held = holder->layoutPart().held;
  held.erase(std::ranges::find(held, this, &Ref<NSLayoutConstraint>::get));
}

void NSLayoutConstraint::leaveItems() {
  for (const auto* reference : {&first_, &second_}) {
    const auto keep = reference->hold();
    if (keep && reference->item()->layoutPart_) std::erase(reference->item()->layoutPart_->naming, this);
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
  return identifier_.empty() ? formula : identifier_ + ": " + formula;
}

}  // namespace bkuk
