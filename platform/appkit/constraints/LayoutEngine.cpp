#include "platform/appkit/constraints/LayoutEngine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
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

double sane(double value) { return std::isfinite(value) ? std::clamp(value, -farthest, farthest) : 0; }

double stepped(double value) { return std::round(value * frameSteps) / frameSteps; }

LayoutRelation solverRelation(NSLayoutRelation relation) {
  return static_cast<LayoutRelation>(static_cast<int>(relation));
}

bool isByDirection(Attribute attribute) {
  return attribute == Attribute::leading || attribute == Attribute::trailing;
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

LayoutEngine::LayoutEngine(NSView& root, Purpose purpose) : root_(root), purpose_(purpose) {}
LayoutEngine::~LayoutEngine() = default;

void LayoutEngine::setNeedsUpdate() {
  if (std::exchange(needsUpdate_, true) || purpose_ == Purpose::fitting) return;
  root_.markLayoutUpwards();
}

// What changed

void LayoutEngine::add(NSLayoutConstraint& constraint) {
  records_[&constraint] = {};
  waiting_.push_back(&constraint);
  setNeedsUpdate();
}

void LayoutEngine::remove(NSLayoutConstraint& constraint) {
  const auto found = records_.find(&constraint);
  if (found == records_.end()) return;
  if (found->second.state != RecordState::installed) std::erase(waiting_, &constraint);
  if (found->second.state != RecordState::waiting) {
    solver_.remove(found->second.id);
    countConstraint(constraint, -1);
  }
  records_.erase(found);
  setNeedsUpdate();
}

void LayoutEngine::constantDidChange(NSLayoutConstraint& constraint) {
  const auto found = records_.find(&constraint);
  if (found == records_.end() || found->second.state != RecordState::installed) return;
  found->second.state = RecordState::constantChanged;
  waiting_.push_back(&constraint);
  setNeedsUpdate();
}

void LayoutEngine::priorityDidChange(NSLayoutConstraint& constraint) {
  const auto found = records_.find(&constraint);
  if (found == records_.end() || found->second.state == RecordState::waiting) return;
  solver_.setPriority(found->second.id, constraint.priority());
  setNeedsUpdate();
}

void LayoutEngine::itemDidChange(NSLayoutItem& item) {
  const auto found = items_.find(&item);
  // What an item says while it is asked is its answer, whatever it says has changed.
  if (found == items_.end() || &item == placed_ || &item == asked_) return;
  if (found->second.isPlaced) markNeedsFrame(found->second);
  markStale(found->second);
}

void LayoutEngine::alignmentDidChange(NSLayoutItem& item) {
  if (&item == asked_) return;
  itemDidChange(item);
  for (auto* constraint : item.layoutPart().naming) constantDidChange(*constraint);
}

// Leading and trailing go to the other side, so every constraint that names them is another one now.
void LayoutEngine::directionDidChange() {
  for (auto& [constraint, record] : records_) {
    const bool isTurned =
        isByDirection(constraint->firstAttribute()) || isByDirection(constraint->secondAttribute());
    if (!isTurned || record.state == RecordState::waiting) continue;
    solver_.remove(record.id);
    countConstraint(*constraint, -1);
    if (record.state == RecordState::installed) waiting_.push_back(constraint);
    record.state = RecordState::waiting;
  }
  setNeedsUpdate();
}

std::vector<Ref<NSLayoutConstraint>> LayoutEngine::dissolve() {
  std::vector<Ref<NSLayoutConstraint>> all;
  all.reserve(records_.size());
  for (const auto& [constraint, record] : records_) all.emplace_back(constraint);
  records_.clear();
  waiting_.clear();
  items_.clear();
  stale_.clear();
  needFrames_.clear();
  std::ranges::fill(itemsByVariable_, nullptr);
  return all;
}

// Items

LayoutEngine::Item& LayoutEngine::itemFor(NSLayoutItem& item) {
  if (const auto found = items_.find(&item); found != items_.end()) return found->second;
  // The views around it too, the outermost first, each one deeper than the one before.
  std::vector<NSLayoutItem*> chain{&item};
  std::uint32_t depth = 0;
  while (&chain.back()->layoutObject() != &root_) {
    NSView& container = *chain.back()->layoutContainer();
    if (const auto found = items_.find(&container); found != items_.end()) {
      depth = found->second.depth + 1;
      break;
    }
    chain.push_back(&container);
  }
  for (std::size_t i = chain.size(); i-- > 1;) makeItem(*chain[i], depth++);
  return makeItem(item, depth);
}

LayoutEngine::Item& LayoutEngine::makeItem(NSLayoutItem& item, std::uint32_t depth) {
  item.layoutPart();  // by which the item knows that somebody asks for its changes
  auto& made = items_[&item];
  made.item = &item;
  made.depth = depth;
  for (auto* variable : {&made.x, &made.y, &made.width, &made.height}) {
    *variable = solver_.makeVariable();
    itemsByVariable_.resize(std::max<std::size_t>(itemsByVariable_.size(), variable->index + 1));
    itemsByVariable_[variable->index] = &made;
  }
  markStale(made);
  return made;
}

void LayoutEngine::forget(NSLayoutItem& item) {
  const auto found = items_.find(&item);
  if (found == items_.end()) return;
  auto& forgotten = found->second;
  setOwnConstraints(forgotten, {});
  for (const auto variable : {forgotten.x, forgotten.y, forgotten.width, forgotten.height}) {
    solver_.removeVariable(variable);
    itemsByVariable_[variable.index] = nullptr;
  }
  std::erase(stale_, &item);
  std::erase(needFrames_, &forgotten);
  items_.erase(found);
  setNeedsUpdate();
}

void LayoutEngine::markStale(Item& item) {
  if (std::exchange(item.isStale, true)) return;
  stale_.push_back(item.item);
  setNeedsUpdate();
}

void LayoutEngine::markNeedsFrame(Item& item) {
  if (!std::exchange(item.needsFrame, true)) needFrames_.push_back(&item);
}

void LayoutEngine::refreshItems() {
  for (int round = 0; round < mostRounds && !stale_.empty(); ++round) {
    const auto stale = std::exchange(stale_, {});
    for (auto item = stale.rbegin(); item != stale.rend(); ++item) refreshIfStale(*item);
  }
  if (!stale_.empty()) settleRestlessItems();
}

// The item may have left, and be gone, since it was marked.
void LayoutEngine::refreshIfStale(NSLayoutItem* item) {
  const auto found = items_.find(item);
  if (found == items_.end() || !std::exchange(found->second.isStale, false)) return;
  const Ref<NSObject> keep(&item->layoutObject());
  refresh(*item);
}

void LayoutEngine::settleRestlessItems() {
  for (auto* item : std::exchange(stale_, {})) {
    items_.at(item).isStale = false;
    const std::string name = item->layoutObject().className();
    std::fprintf(
        stderr,
        "NSLayoutConstraint: %s is not asked for its size again: views whose sizes are asked for keep "
        "calling invalidateIntrinsicContentSize of each other\n",
        name.c_str());
  }
}

void LayoutEngine::refresh(NSLayoutItem& item) {
  const auto* outer = std::exchange(asked_, &item);
  auto own = ownConstraints(item);
  asked_ = outer;
  const auto found = items_.find(&item);  // the item was asked for its size and may have left
  if (found == items_.end()) return;
  const auto* view = dynamic_cast<NSView*>(&item);
  const bool isPlaced = !view || (!view->translatesAutoresizingMaskIntoConstraints() && view != &root_);
  if (isPlaced && !std::exchange(found->second.isPlaced, isPlaced)) markNeedsFrame(found->second);
  found->second.isPlaced = isPlaced;
  setOwnConstraints(found->second, std::move(own));
}

// Constraints that differ in their constants only stay in the solver, by no more than rounding unchanged.
void LayoutEngine::setOwnConstraints(Item& item, std::vector<OwnConstraint> own) {
  const auto isAlike = [](const OwnConstraint& a, const OwnConstraint& b) {
    const auto isSameTerm = [](const LayoutTerm& s, const LayoutTerm& t) {
      return s.variable == t.variable && std::abs(s.coefficient - t.coefficient) < 1e-9;
    };
    return a.relation == b.relation && a.priority == b.priority &&
           std::ranges::equal(a.expression.terms, b.expression.terms, isSameTerm);
  };
  const bool keeps = std::ranges::equal(item.own, own, isAlike);
  for (std::size_t i = 0; i < item.own.size(); ++i) {
    const auto id = item.own[i].id;
    if (!keeps) {
      solver_.remove(id);
      continue;
    }
    own[i].id = id;
    const double constant = own[i].expression.constant;
    if (std::abs(constant - item.own[i].expression.constant) < 1e-6) {
      own[i].expression.constant = item.own[i].expression.constant;
    } else {
      solver_.setConstant(id, constant);
    }
  }
  if (!keeps) {
    for (auto& each : own) each.id = solver_.add(each.expression, each.relation, each.priority);
  }
  item.own = std::move(own);
}

std::vector<LayoutEngine::OwnConstraint> LayoutEngine::ownConstraints(NSLayoutItem& item) {
  std::vector<OwnConstraint> own;
  auto* view = dynamic_cast<NSView*>(&item);
  if (!view) return own;
  const bool isRoot = view == &root_;
  const bool isFitting = isRoot && purpose_ == Purpose::fitting;
  if (isFitting || (!isRoot && !view->translatesAutoresizingMaskIntoConstraints())) {
    addIntrinsicSize(own, *view);
  } else {
    addFrame(own, *view);
  }
  return own;
}

// A frame as required constraints: each edge keeps the share of the container's growth that the mask gives
// it.
void LayoutEngine::addFrame(std::vector<OwnConstraint>& own, NSView& view) {
  const auto fix = [&own](LayoutVariable variable, double value, double share, LayoutVariable of,
                          double size) {
    auto expression = LayoutExpression().add(variable).add(of, -share).addConstant(share * size - value);
    own.push_back({std::move(expression), LayoutRelation::equal, requiredLayoutPriority});
  };
  const auto& item = itemFor(view);
  const NSRect frame(sane(view.frame().origin.x), sane(view.frame().origin.y), sane(view.frame().size.width),
                     sane(view.frame().size.height));
  if (&view == &root_) {
    fix(item.width, frame.size.width, 0, item.width, 0);
    fix(item.height, frame.size.height, 0, item.height, 0);
    return;
  }
  const auto container = view.superview();
  const auto& outer = itemFor(*container);
  const double outerWidth = sane(container->frame().size.width);
  const double outerHeight = sane(container->frame().size.height);
  const unsigned mask = container->autoresizesSubviews() ? view.autoresizingMask() : 0;
  const Shares x =
      sharesOf(mask & 7, frame.origin.x, frame.size.width, outerWidth - frame.origin.x - frame.size.width);
  const double rest = outerHeight - frame.origin.y - frame.size.height;
  const Shares y = sharesOf((mask >> 3) & 7, frame.origin.y, frame.size.height, rest);
  fix(item.x, frame.origin.x, x[0], outer.width, outerWidth);
  fix(item.width, frame.size.width, x[1], outer.width, outerWidth);
  fix(item.y, container->isFlipped() ? frame.origin.y : rest, container->isFlipped() ? y[0] : y[2],
      outer.height, outerHeight);
  fix(item.height, frame.size.height, y[1], outer.height, outerHeight);
}

void LayoutEngine::addIntrinsicSize(std::vector<OwnConstraint>& own, NSView& view) {
  using Orientation = NSLayoutConstraintOrientation;
  const NSSize size = view.intrinsicContentSize();
  const NSEdgeInsets insets = view.alignmentRectInsets();
  const auto found = items_.find(&view);
  if (found == items_.end()) return;
  const auto wish = [&](LayoutVariable variable, double length, double around, Orientation orientation) {
    if (length < 0 || !std::isfinite(length)) return;
    const auto difference = LayoutExpression().add(variable).addConstant(-sane(length + around));
    own.push_back({difference, LayoutRelation::lessThanOrEqual, view.contentHuggingPriority(orientation)});
    own.push_back({difference, LayoutRelation::greaterThanOrEqual,
                   view.contentCompressionResistancePriority(orientation)});
    own.push_back(
        {LayoutExpression().add(variable), LayoutRelation::greaterThanOrEqual, nonnegativePriority});
  };
  const auto& item = found->second;
  wish(item.width, size.width, insets.left + insets.right, Orientation::horizontal);
  wish(item.height, size.height, insets.top + insets.bottom, Orientation::vertical);
  if (purpose_ == Purpose::frames || &view != &root_) return;
  for (const auto variable : {item.width, item.height}) {
    own.push_back({LayoutExpression().add(variable), LayoutRelation::equal, NSLayoutPriorityFittingSize});
    own.push_back(
        {LayoutExpression().add(variable), LayoutRelation::greaterThanOrEqual, nonnegativePriority});
  }
}

// Constraints

void LayoutEngine::countConstraint(NSLayoutConstraint& constraint, int by) {
  for (auto* item : {constraint.firstItem(), constraint.secondItem()}) {
    if (const auto found = items_.find(item); found != items_.end()) {
      found->second.constraintCount += static_cast<std::uint32_t>(by);
    }
  }
}

void LayoutEngine::installWaiting() {
  std::vector<Ref<NSLayoutConstraint>> waiting;
  for (auto* constraint : std::exchange(waiting_, {})) waiting.emplace_back(constraint);
  for (const auto& constraint : waiting) install(*constraint);
}

void LayoutEngine::install(NSLayoutConstraint& constraint) {
  const auto expression = expressionOf(constraint);
  const auto found = records_.find(&constraint);
  if (found == records_.end()) return;
  auto& record = found->second;
  if (record.state == RecordState::constantChanged) {
    solver_.setConstant(record.id, expression.constant);
  } else {
    record.id = solver_.add(expression, solverRelation(constraint.relation()), constraint.priority());
    countConstraint(constraint, 1);
  }
  record.state = RecordState::installed;
}

LayoutEngine::Metrics LayoutEngine::metricsOf(NSLayoutItem& item) {
  auto* view = dynamic_cast<NSView*>(&item);
  if (!view) return {};
  return {view->alignmentRectInsets(), view->firstBaselineOffsetFromTop(),
          view->lastBaselineDistanceFromBottom()};
}

// The items are asked first, for that calls their code; after it nothing does.
LayoutExpression LayoutEngine::expressionOf(NSLayoutConstraint& constraint) {
  const auto keepFirst = constraint.first_.hold();
  const auto keepSecond = constraint.second_.hold();
  const auto ask = [this](NSLayoutItem* item) {
    const auto* outer = std::exchange(asked_, item);
    const Metrics metrics = item ? metricsOf(*item) : Metrics();
    asked_ = outer;
    return metrics;
  };
  const Metrics firstMetrics = ask(constraint.firstItem());
  const Metrics secondMetrics = ask(constraint.secondItem());
  const auto space = constraint.holder_.lock();
  if (!space || !records_.contains(&constraint)) return {};
  const bool isTurned =
      (isByDirection(constraint.firstAttribute()) || isByDirection(constraint.secondAttribute())) &&
      space->userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  const auto value = [&](NSLayoutItem& item, Attribute attribute, const Metrics& metrics) {
    auto sum = valueOf(item, attribute, metrics, *space);
    if (!isTurned || !isHorizontalPosition(attribute)) return sum;
    return LayoutExpression().add(itemFor(*space).width).add(sum, -1);
  };
  auto expression = value(*constraint.firstItem(), constraint.firstAttribute(), firstMetrics);
  if (auto* second = constraint.secondItem()) {
    expression.add(value(*second, constraint.secondAttribute(), secondMetrics), -constraint.multiplier());
  }
  return expression.addConstant(-constraint.constant());
}

// Measured from the left edge of `space`, where leading and trailing are the edges that they stand for in it.
// A constraint that names one of these is measured from where text begins: who calls turns the value round.
LayoutExpression LayoutEngine::valueOf(NSLayoutItem& item, Attribute attribute, const Metrics& metrics,
                                       const NSView& space) {
  const auto& found = itemFor(item);
  LayoutExpression sum;
  const auto edge = [&](LayoutVariable Item::*origin) {
    for (NSLayoutItem* each = &item; &each->layoutObject() != &space;) {
      sum.add(itemFor(*each).*origin);
      each = each->layoutContainer().get();
    }
  };
  const auto& insets = metrics.insets;
  const bool isTurned = isByDirection(attribute) &&
                        space.userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  if (isTurned) attribute = attribute == Attribute::leading ? Attribute::right : Attribute::left;
  switch (attribute) {
    case Attribute::width:
      return sum.add(found.width).addConstant(-insets.left - insets.right);
    case Attribute::height:
      return sum.add(found.height).addConstant(-insets.top - insets.bottom);
    case Attribute::left:
    case Attribute::leading:
      edge(&Item::x);
      return sum.addConstant(insets.left);
    case Attribute::right:
    case Attribute::trailing:
      edge(&Item::x);
      return sum.add(found.width).addConstant(-insets.right);
    case Attribute::centerX:
      edge(&Item::x);
      return sum.add(found.width, 0.5).addConstant((insets.left - insets.right) / 2);
    case Attribute::top:
      edge(&Item::y);
      return sum.addConstant(insets.top);
    case Attribute::firstBaseline:
      edge(&Item::y);
      return sum.addConstant(insets.top + metrics.firstBaseline);
    case Attribute::bottom:
      edge(&Item::y);
      return sum.add(found.height).addConstant(-insets.bottom);
    case Attribute::lastBaseline:
      edge(&Item::y);
      return sum.add(found.height).addConstant(-insets.bottom - metrics.lastBaseline);
    case Attribute::centerY:
      edge(&Item::y);
      return sum.add(found.height, 0.5).addConstant((insets.top - insets.bottom) / 2);
    case Attribute::none:
      break;
  }
  return sum;
}

void LayoutEngine::reportLeftOut() {
  if (solver_.dropped().empty() && !hasLeftOut_) return;
  hasLeftOut_ = !solver_.dropped().empty();
  for (auto& [constraint, record] : records_) {
    if (record.state == RecordState::waiting) continue;
    const bool isLeftOut = std::ranges::count(solver_.dropped(), record.id) > 0;
    if (std::exchange(record.isLeftOut, isLeftOut) || !isLeftOut || purpose_ == Purpose::fitting) continue;
    reportMistake("NSLayoutConstraint: required constraints contradict each other, left out: " +
                  constraint->description());
  }
}

// Solving

void LayoutEngine::solve() {
  itemFor(root_);
  installWaiting();
  refreshItems();
  needsUpdate_ = !waiting_.empty();
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
    auto* view = dynamic_cast<NSView*>(item.item);
    if (variable != item.height || !view || view->isFlipped()) continue;
    for (const auto& child : view->subviews()) {
      if (const auto found = items_.find(child.get()); found != items_.end()) markNeedsFrame(found->second);
    }
  }
}

std::vector<LayoutEngine::Placement> LayoutEngine::placements() {
  std::vector<Placement> changed;
  for (auto* item : std::exchange(needFrames_, {})) {
    item->needsFrame = false;
    if (!item->isPlaced || item->constraintCount == 0) continue;
    const NSRect frame = frameOf(*item);
    if (auto* guide = dynamic_cast<NSLayoutGuide*>(item->item)) {
      guide->frame_ = frame;
    } else if (const auto view = item->item->layoutView(); view->frame() != frame) {
      changed.push_back({view, frame, item->depth});
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
  const auto container = item.item->layoutContainer();
  const double top = value(item.y);
  if (container->isFlipped()) return {value(item.x), top, width, height};
  const double outerHeight = value(items_.at(container.get()).height);
  return {value(item.x), outerHeight - top - height, width, height};
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
