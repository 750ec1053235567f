#include "platform/appkit/constraints/LayoutEngine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <utility>

#include "platform/appkit/NSView.h"
#include "platform/appkit/constraints/LayoutPart.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

using Attribute = NSLayoutAttribute;

// An intrinsic size may be undercut as far as to nothing before a wish of this priority gives way.
constexpr double nonnegativePriority = 999;
// Frames come without the last bits, in which a solution has its rounding.
constexpr double frameSteps = 1 << 16;
constexpr double farthest = 1e7;
// How often items that change each other's wishes are asked for them in one pass.
constexpr int mostRounds = 10;
// The place of a constraint that was taken from those that wait and is about to be installed.
constexpr auto taken = std::numeric_limits<std::uint32_t>::max();

double sane(double value) { return std::isfinite(value) ? std::clamp(value, -farthest, farthest) : 0; }

double stepped(double value) { return std::round(value * frameSteps) / frameSteps; }

LayoutRelation solverRelation(NSLayoutRelation relation) {
  return static_cast<LayoutRelation>(static_cast<int>(relation));
}

bool isByDirection(Attribute attribute) {
  return attribute == Attribute::leading || attribute == Attribute::trailing;
}

bool isBaseline(Attribute attribute) {
  return attribute == Attribute::firstBaseline || attribute == Attribute::lastBaseline;
}

bool isHorizontalPosition(Attribute attribute) {
  return attribute == Attribute::left || attribute == Attribute::right || attribute == Attribute::centerX ||
         isByDirection(attribute);
}

/// What of a container's growth goes to the margin before a view, to its extent and to the margin behind.
using Shares = std::array<double, 3>;

Shares sharesOf(unsigned mask, double before, double extent, double behind) {
  const Shares lengths{before, extent, behind};
  double flexible = 0;
  int count = 0;
  for (unsigned i = 0; i < 3; ++i) {
    if (!(mask & (1U << i))) continue;
    flexible += lengths[i];
    ++count;
  }
  if (count == 0) return {0, 0, 1};
  Shares shares{};
  for (unsigned i = 0; i < 3; ++i) {
    if (mask & (1U << i)) shares[i] = flexible == 0 ? 1.0 / count : lengths[i] / flexible;
  }
  return shares;
}

}  // namespace

/// What a constraint asks an item for.
struct LayoutEngine::Metrics {
  NSEdgeInsets insets;
  double firstBaseline = 0;
  double lastBaseline = 0;
};

bool EngineItem::Own::isAlike(const Own& other) const {
  return variable == other.variable && of == other.of && std::abs(share - other.share) < 1e-9 &&
         relation == other.relation && priority == other.priority;
}

LayoutEngine::LayoutEngine(NSView& root, Purpose purpose) : root_(root), purpose_(purpose) {}
LayoutEngine::~LayoutEngine() = default;

void LayoutEngine::setNeedsUpdate() {
  if (std::exchange(needsUpdate_, true) || purpose_ == Purpose::fitting) return;
  root_.markLayoutUpwards();
}

// Constraints come and go. What is noted of one stands in it, but for an engine that only looks for a size.

void LayoutEngine::add(NSLayoutConstraint& constraint) {
  if (purpose_ == Purpose::frames) {
    constraint.work_ = NSLayoutConstraint::Work::waiting;
    constraint.engineIndex_ = static_cast<std::uint32_t>(waiting_.size());
  }
  waiting_.push_back(&constraint);
  setNeedsUpdate();
}

void LayoutEngine::remove(NSLayoutConstraint& constraint) {
  const bool waits =
      constraint.work_ == NSLayoutConstraint::Work::waiting && constraint.engineIndex_ != taken;
  if (waits) waiting_[constraint.engineIndex_] = nullptr;
  takeOut(constraint);
  constraint.work_ = NSLayoutConstraint::Work::none;
  setNeedsUpdate();
}

// Of the solver, if it is there.
void LayoutEngine::takeOut(NSLayoutConstraint& constraint) {
  if (constraint.work_ != NSLayoutConstraint::Work::installed &&
      constraint.work_ != NSLayoutConstraint::Work::constantChanged)
    return;
  solver_.remove(constraint.engineIndex_);
  constraintsById_[constraint.engineIndex_] = nullptr;
  std::erase(leftOut_, &constraint);
  countConstraint(constraint, -1);
}

void LayoutEngine::constantDidChange(NSLayoutConstraint& constraint) {
  if (constraint.work_ != NSLayoutConstraint::Work::installed) return;
  constraint.work_ = NSLayoutConstraint::Work::constantChanged;
  constantsChanged_.push_back(constraint.engineIndex_);
  setNeedsUpdate();
}

void LayoutEngine::priorityDidChange(NSLayoutConstraint& constraint) {
  if (constraint.work_ != NSLayoutConstraint::Work::installed &&
      constraint.work_ != NSLayoutConstraint::Work::constantChanged)
    return;
  solver_.setPriority(constraint.engineIndex_, constraint.priority());
  setNeedsUpdate();
}

void LayoutEngine::itemDidChange(NSLayoutItem& item) {
  auto* found = find(&item);
  // What an item says while it is asked is its answer, whatever it says has changed.
  if (!found || &item == placed_ || &item == askedItem_) return;
  if (found->isPlaced) markNeedsFrame(*found);
  markStale(*found);
}

void LayoutEngine::alignmentDidChange(NSLayoutItem& item) {
  if (&item == askedItem_) return;
  itemDidChange(item);
  for (auto* constraint : item.layoutPart().naming) constantDidChange(*constraint);
  for (const auto& constraint : item.layoutPart().held) {
    if (constraint->firstItem() == &item || constraint->secondItem() == &item) constantDidChange(*constraint);
  }
}

// Leading and trailing go to the other side, so every constraint that names them is another one now.
void LayoutEngine::directionDidChange() {
  for (std::size_t i = 0; i < constraintsById_.size(); ++i) {
    auto* constraint = constraintsById_[i];
    const bool isTurned = constraint && (isByDirection(constraint->firstAttribute()) ||
                                         isByDirection(constraint->secondAttribute()));
    if (!isTurned) continue;
    takeOut(*constraint);
    add(*constraint);
  }
  setNeedsUpdate();
}

void LayoutEngine::disband() {
  for (auto* constraint : constraintsById_) {
    if (constraint) constraint->work_ = NSLayoutConstraint::Work::none;
  }
  for (auto* constraint : waiting_) {
    if (constraint) constraint->work_ = NSLayoutConstraint::Work::none;
  }
  for (auto& item : items_) {
    if (item.item) link(*item.item, nullptr);
    item.item = nullptr;
    item.isStale = item.needsFrame = false;
  }
  constraintsById_.clear();
  waiting_.clear();
  constantsChanged_.clear();
  leftOut_.clear();
  std::ranges::fill(itemsByVariable_, nullptr);
}

// Items

LayoutEngine::Item* LayoutEngine::find(const NSLayoutItem* item) const {
  if (!item) return nullptr;
  if (purpose_ == Purpose::frames) return item->layoutPart_ ? item->layoutPart_->engineItem : nullptr;
  const auto found = fittingItems_.find(item);
  return found == fittingItems_.end() ? nullptr : found->second;
}

void LayoutEngine::link(NSLayoutItem& item, Item* known) {
  if (purpose_ == Purpose::frames) {
    item.layoutPart().engineItem = known;
  } else {
    fittingItems_[&item] = known;
  }
}

LayoutEngine::Item& LayoutEngine::itemFor(NSLayoutItem& item) {
  if (auto* found = find(&item)) return *found;
  // The views around it too, the outermost first.
  std::vector<NSLayoutItem*> chain{&item};
  Item* container = nullptr;
  while (!container && &chain.back()->layoutObject() != &root_) {
    NSView& outer = *chain.back()->layoutContainer();
    container = find(&outer);
    if (!container) chain.push_back(&outer);
  }
  for (; !chain.empty(); chain.pop_back()) container = &makeItem(*chain.back(), container);
  return *container;
}

LayoutEngine::Item& LayoutEngine::makeItem(NSLayoutItem& item, Item* container) {
  if (unusedItems_.empty()) unusedItems_.push_back(&items_.emplace_back());
  Item& made = *unusedItems_.back();
  unusedItems_.pop_back();
  item.layoutPart();  // by which the item knows that somebody asks for its changes
  link(item, &made);
  made.item = &item;
  made.view = item.isLayoutGuide() ? nullptr : item.layoutView().get();
  made.container = container;
  made.depth = container ? container->depth + 1 : 0;
  for (auto* variable : {&made.x, &made.y, &made.width, &made.height}) {
    *variable = solver_.makeVariable();
    itemsByVariable_.resize(std::max<std::size_t>(itemsByVariable_.size(), variable->index + 1));
    itemsByVariable_[variable->index] = &made;
  }
  markStale(made);
  return made;
}

// Lists of what is to be done keep the place and find that there is nothing to do.
void LayoutEngine::forget(NSLayoutItem& item) {
  auto* found = find(&item);
  if (!found) return;
  auto& forgotten = *found;
  for (const auto& own : std::exchange(forgotten.own, {})) solver_.remove(own.id);
  for (const auto variable : {forgotten.x, forgotten.y, forgotten.width, forgotten.height}) {
    solver_.removeVariable(variable);
    itemsByVariable_[variable.index] = nullptr;
  }
  link(item, nullptr);
  forgotten.item = nullptr;
  forgotten.constraintCount = 0;
  forgotten.isPlaced = forgotten.isStale = forgotten.needsFrame = false;
  unusedItems_.push_back(&forgotten);
  setNeedsUpdate();
}

void LayoutEngine::markStale(Item& item) {
  if (std::exchange(item.isStale, true)) return;
  stale_.push_back(&item);
  setNeedsUpdate();
}

void LayoutEngine::markNeedsFrame(Item& item) {
  if (!std::exchange(item.needsFrame, true)) needFrames_.push_back(&item);
}

void LayoutEngine::refreshItems() {
  for (int round = 0; round < mostRounds && !stale_.empty(); ++round) {
    const auto stale = std::exchange(stale_, {});
    for (auto item = stale.rbegin(); item != stale.rend(); ++item) {
      if (std::exchange((*item)->isStale, false)) refresh(**item);
    }
  }
  if (!stale_.empty()) settleRestlessItems();
}

void LayoutEngine::settleRestlessItems() {
  for (auto* item : std::exchange(stale_, {})) {
    if (!std::exchange(item->isStale, false)) continue;
    const std::string name = item->item->layoutObject().className();
    std::fprintf(
        stderr,
        "NSLayoutConstraint: %s is not asked for its size again: views whose sizes are asked for keep "
        "calling invalidateIntrinsicContentSize of each other\n",
        name.c_str());
  }
}

void LayoutEngine::refresh(Item& known) {
  auto& item = *known.item;
  const Ref<NSObject> keep(&item.layoutObject());
  const auto* outer = std::exchange(askedItem_, &item);
  askForOwnConstraints(item);
  askedItem_ = outer;
  if (known.item != &item) return;  // it was asked for its size and has left
  const auto* view = known.view;
  const bool isPlaced = !view || (!view->translatesAutoresizingMaskIntoConstraints() && view != &root_);
  if (isPlaced && !known.isPlaced) markNeedsFrame(known);
  known.isPlaced = isPlaced;
  setOwnConstraints(known);
}

// Constraints that differ in their constants only stay in the solver, by no more than rounding unchanged.
void LayoutEngine::setOwnConstraints(Item& item) {
  const auto isAlike = [](const Own& a, const Own& b) { return a.isAlike(b); };
  if (std::ranges::equal(item.own, asked_, isAlike)) {
    for (std::size_t i = 0; i < asked_.size(); ++i) {
      const double constant = asked_[i].constant;
      if (std::abs(constant - item.own[i].constant) < 1e-6) continue;
      item.own[i].constant = constant;
      solver_.setConstant(item.own[i].id, constant);
    }
    return;
  }
  for (const auto& own : item.own) solver_.remove(own.id);
  item.own.assign(asked_.begin(), asked_.end());
  for (auto& own : item.own) {
    expression_.terms.assign(1, {own.variable, 1});
    expression_.constant = own.constant;
    expression_.add(own.of, -own.share);
    own.id = solver_.add(expression_, own.relation, own.priority);
  }
}

// Answers in `asked_`.
void LayoutEngine::askForOwnConstraints(NSLayoutItem& item) {
  asked_.clear();
  if (item.isLayoutGuide()) return;
  auto& view = static_cast<NSView&>(item);
  const bool isRoot = &view == &root_;
  const bool isFitting = isRoot && purpose_ == Purpose::fitting;
  if (isFitting || (!isRoot && !view.translatesAutoresizingMaskIntoConstraints())) {
    addIntrinsicSize(view);
  } else {
    addFrame(view);
  }
}

// A frame as required constraints: each edge keeps the share of the container's growth that the mask gives
// it.
void LayoutEngine::addFrame(NSView& view) {
  const auto fix = [this](LayoutVariable variable, double value, double share, LayoutVariable of,
                          double size) {
    asked_.push_back({.variable = variable, .of = of, .share = share, .constant = share * size - value});
  };
  const auto& item = itemFor(view);
  const NSRect frame(sane(view.frame().origin.x), sane(view.frame().origin.y), sane(view.frame().size.width),
                     sane(view.frame().size.height));
  if (&view == &root_) {
    fix(item.width, frame.size.width, 0, item.width, 0);
    fix(item.height, frame.size.height, 0, item.height, 0);
    return;
  }
  const auto& outer = *item.container;
  const auto& container = *outer.view;
  const double outerWidth = sane(container.frame().size.width);
  const double outerHeight = sane(container.frame().size.height);
  const unsigned mask = container.autoresizesSubviews() ? view.autoresizingMask() : 0;
  const Shares x =
      sharesOf(mask & 7, frame.origin.x, frame.size.width, outerWidth - frame.origin.x - frame.size.width);
  const double rest = outerHeight - frame.origin.y - frame.size.height;
  const Shares y = sharesOf((mask >> 3) & 7, frame.origin.y, frame.size.height, rest);
  const bool isFlipped = container.isFlipped();
  fix(item.x, frame.origin.x, x[0], outer.width, outerWidth);
  fix(item.width, frame.size.width, x[1], outer.width, outerWidth);
  fix(item.y, isFlipped ? frame.origin.y : rest, isFlipped ? y[0] : y[2], outer.height, outerHeight);
  fix(item.height, frame.size.height, y[1], outer.height, outerHeight);
}

void LayoutEngine::addIntrinsicSize(NSView& view) {
  using Orientation = NSLayoutConstraintOrientation;
  constexpr auto atLeast = LayoutRelation::greaterThanOrEqual;
  const NSSize size = view.intrinsicContentSize();
  const NSEdgeInsets insets = view.alignmentRectInsets();
  asked_.clear();  // the view's code may have made others be asked
  const auto* item = find(&view);
  if (!item) return;
  const auto add = [this](LayoutVariable variable, double value, LayoutRelation relation, double priority) {
    asked_.push_back({.variable = variable,
                      .of = variable,
                      .constant = -value,
                      .priority = priority,
                      .relation = relation});
  };
  const auto wish = [&](LayoutVariable variable, double length, double around, Orientation orientation) {
    if (length < 0 || !std::isfinite(length)) return;
    const double value = sane(length + around);
    add(variable, value, LayoutRelation::lessThanOrEqual, view.contentHuggingPriority(orientation));
    add(variable, value, atLeast, view.contentCompressionResistancePriority(orientation));
    add(variable, 0, atLeast, nonnegativePriority);
  };
  wish(item->width, size.width, insets.left + insets.right, Orientation::horizontal);
  wish(item->height, size.height, insets.top + insets.bottom, Orientation::vertical);
  if (purpose_ == Purpose::frames || &view != &root_) return;
  for (const auto variable : {item->width, item->height}) {
    add(variable, 0, LayoutRelation::equal, NSLayoutPriorityFittingSize);
    add(variable, 0, atLeast, nonnegativePriority);
  }
}

// Constraints

void LayoutEngine::countConstraint(NSLayoutConstraint& constraint, int by) {
  for (auto* item : {constraint.firstItem(), constraint.secondItem()}) {
    if (auto* found = find(item)) found->constraintCount += static_cast<std::uint32_t>(by);
  }
}

void LayoutEngine::installWaiting() {
  std::vector<Ref<NSLayoutConstraint>> waiting;
  waiting.reserve(waiting_.size());
  for (auto* constraint : std::exchange(waiting_, {})) {
    if (!constraint) continue;
    waiting.emplace_back(constraint);
    if (purpose_ == Purpose::frames) constraint->engineIndex_ = taken;
  }
  for (const auto& constraint : waiting) install(*constraint);
  for (const auto id : std::exchange(constantsChanged_, {})) {
    const Ref<NSLayoutConstraint> constraint(id < constraintsById_.size() ? constraintsById_[id] : nullptr);
    const bool isChanged = constraint && constraint->work_ == NSLayoutConstraint::Work::constantChanged;
    if (!isChanged || !readExpression(*constraint)) continue;
    constraint->work_ = NSLayoutConstraint::Work::installed;
    solver_.setConstant(id, expression_.constant);
  }
}

void LayoutEngine::install(NSLayoutConstraint& constraint) {
  const bool isHere =
      purpose_ == Purpose::fitting ||
      (constraint.work_ == NSLayoutConstraint::Work::waiting && constraint.engineIndex_ == taken);
  if (!isHere || !readExpression(constraint)) return;
  const auto id = solver_.add(expression_, solverRelation(constraint.relation()), constraint.priority());
  countConstraint(constraint, 1);
  if (purpose_ == Purpose::fitting) return;
  constraint.engineIndex_ = id;
  constraint.work_ = NSLayoutConstraint::Work::installed;
  constraintsById_.resize(std::max<std::size_t>(constraintsById_.size(), id + 1));
  constraintsById_[id] = &constraint;
}

LayoutEngine::Metrics LayoutEngine::metricsOf(NSLayoutItem* item, Attribute attribute) {
  if (!item || item->isLayoutGuide()) return {};
  const auto& view = static_cast<const NSView&>(*item);
  const auto* outer = std::exchange(askedItem_, item);
  Metrics metrics{.insets = view.alignmentRectInsets()};
  if (isBaseline(attribute)) {
    metrics.firstBaseline = view.firstBaselineOffsetFromTop();
    metrics.lastBaseline = view.lastBaselineDistanceFromBottom();
  }
  askedItem_ = outer;
  return metrics;
}

// Into `expression_`. The items are asked first, for that calls their code; after it nothing does. False when
// that code took the constraint away.
bool LayoutEngine::readExpression(NSLayoutConstraint& constraint) {
  const Attribute firstAttribute = constraint.firstAttribute();
  const Attribute secondAttribute = constraint.secondAttribute();
  const auto keepFirst = constraint.first_.lock();
  const auto keepSecond = constraint.second_.lock();
  const auto work = constraint.work_;
  const auto index = constraint.engineIndex_;
  const Metrics firstMetrics = metricsOf(constraint.firstItem(), firstAttribute);
  const Metrics secondMetrics = metricsOf(constraint.secondItem(), secondAttribute);
  const auto* holder = constraint.holder_.peek();
  const bool isHere = constraint.work_ == work && constraint.engineIndex_ == index;
  if (!holder || !isHere) return false;
  const bool isByText = isByDirection(firstAttribute) || isByDirection(secondAttribute);
  const bool isRightToLeft =
      isByText && holder->userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  auto& first = itemFor(*constraint.firstItem());
  auto* second = constraint.secondItem() ? &itemFor(*constraint.secondItem()) : nullptr;
  const auto& space = *find(holder);
  expression_.terms.clear();
  expression_.constant = -constraint.constant();
  addValue(first, firstAttribute, firstMetrics, space, isRightToLeft, 1);
  if (second) {
    addValue(*second, secondAttribute, secondMetrics, space, isRightToLeft, -constraint.multiplier());
  }
  return true;
}

// Measured from the left edge of `space`, where leading and trailing are the edges that they stand for in it.
// In a constraint that names one of these where text begins on the right, from the right edge.
void LayoutEngine::addValue(Item& item, Attribute attribute, const Metrics& metrics, const Item& space,
                            bool isRightToLeft, double factor) {
  if (isRightToLeft && isHorizontalPosition(attribute)) {
    expression_.add(space.width, factor);
    factor = -factor;
  }
  const bool isTurned = isRightToLeft && isByDirection(attribute);
  if (isTurned) attribute = attribute == Attribute::leading ? Attribute::right : Attribute::left;
  const auto add = [&](LayoutVariable variable, double share, double constant) {
    if (share != 0) expression_.add(variable, share * factor);
    expression_.addConstant(constant * factor);
  };
  const auto addEdge = [&](LayoutVariable Item::*origin, LayoutVariable extent, double share,
                           double constant) {
    for (const Item* each = &item; each != &space; each = each->container) {
      expression_.add(each->*origin, factor);
    }
    add(extent, share, constant);
  };
  const auto& insets = metrics.insets;
  switch (attribute) {
    case Attribute::width:
      return add(item.width, 1, -insets.left - insets.right);
    case Attribute::height:
      return add(item.height, 1, -insets.top - insets.bottom);
    case Attribute::left:
    case Attribute::leading:
      return addEdge(&Item::x, item.width, 0, insets.left);
    case Attribute::right:
    case Attribute::trailing:
      return addEdge(&Item::x, item.width, 1, -insets.right);
    case Attribute::centerX:
      return addEdge(&Item::x, item.width, 0.5, (insets.left - insets.right) / 2);
    case Attribute::top:
      return addEdge(&Item::y, item.height, 0, insets.top);
    case Attribute::firstBaseline:
      return addEdge(&Item::y, item.height, 0, insets.top + metrics.firstBaseline);
    case Attribute::bottom:
      return addEdge(&Item::y, item.height, 1, -insets.bottom);
    case Attribute::lastBaseline:
      return addEdge(&Item::y, item.height, 1, -insets.bottom - metrics.lastBaseline);
    case Attribute::centerY:
      return addEdge(&Item::y, item.height, 0.5, (insets.top - insets.bottom) / 2);
    case Attribute::none:
      break;
  }
}

void LayoutEngine::reportLeftOut() {
  if (purpose_ == Purpose::fitting || (solver_.dropped().empty() && leftOut_.empty())) return;
  std::vector<const NSLayoutConstraint*> leftOut;
  for (const auto id : solver_.dropped()) {
    const auto* constraint = id < constraintsById_.size() ? constraintsById_[id] : nullptr;
    if (constraint) leftOut.push_back(constraint);
  }
  std::swap(leftOut, leftOut_);
  for (const auto* constraint : leftOut_) {
    if (std::ranges::count(leftOut, constraint) > 0) continue;
    reportMistake("NSLayoutConstraint: required constraints contradict each other, left out: " +
                  constraint->description());
  }
}

// Solving

void LayoutEngine::solve() {
  itemFor(root_);
  installWaiting();
  refreshItems();
  needsUpdate_ = !waiting_.empty() || !constantsChanged_.empty();
  solver_.solve();
  reportLeftOut();
}

CGSize LayoutEngine::solvedSize() {
  solve();
  const auto& root = itemFor(root_);
  return {std::max(0.0, stepped(solver_.value(root.width))),
          std::max(0.0, stepped(solver_.value(root.height)))};
}

void LayoutEngine::update() {
  const Ref<LayoutEngine> self(this);
  const Ref<NSView> keepRoot(&root_);
  solve();
  noteChangedItems();
  const auto changed = placements();
  place(changed);
}

// In a view whose y runs up, what hangs at its top moves with its height.
void LayoutEngine::noteChangedItems() {
  for (const auto variable : solver_.changes()) {
    if (!itemsByVariable_[variable.index]) continue;  // it has left
    auto& item = *itemsByVariable_[variable.index];
    markNeedsFrame(item);
    if (variable != item.height || !item.view || item.view->isFlipped()) continue;
    for (const auto& child : item.view->subviews()) {
      if (auto* found = find(child.get())) markNeedsFrame(*found);
    }
  }
}

std::vector<LayoutEngine::Placement> LayoutEngine::placements() {
  std::vector<Placement> changed;
  for (auto* item : std::exchange(needFrames_, {})) {
    const bool isToPlace = std::exchange(item->needsFrame, false);
    if (!isToPlace || !item->isPlaced || item->constraintCount == 0) continue;
    const NSRect frame = frameOf(*item);
    if (!item->view) {
      static_cast<NSLayoutGuide*>(item->item)->frame_ = frame;
    } else if (item->view->frame() != frame) {
      changed.push_back({item->view, frame, item->depth});
    }
  }
  const auto isOuter = [](const Placement& a, const Placement& b) { return a.depth < b.depth; };
  if (!std::ranges::is_sorted(changed, isOuter)) std::ranges::stable_sort(changed, isOuter);
  return changed;
}

NSRect LayoutEngine::frameOf(const Item& item) const {
  const auto value = [this](LayoutVariable variable) { return stepped(sane(solver_.value(variable))); };
  const double width = std::max(0.0, value(item.width));
  const double height = std::max(0.0, value(item.height));
  const double top = value(item.y);
  if (item.container->view->isFlipped()) return {value(item.x), top, width, height};
  return {value(item.x), value(item.container->height) - top - height, width, height};
}

void LayoutEngine::place(const std::vector<Placement>& placements) {
  for (const auto& [view, frame, depth] : placements) {
    const auto container = view->superview();
    if (!container) continue;
    placed_ = view.get();
    view->setFrame(frame);
    placed_ = nullptr;
    container->setNeedsLayout(true);
  }
}

}  // namespace bkuk
