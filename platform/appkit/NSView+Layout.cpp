#include "platform/appkit/NSView.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSView+MarkedWalk.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/constraints/LayoutPart.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

// A layout that marks its own tree again each time it runs goes on in the next turn, so that events get
// through.
constexpr int mostRounds = 10;

}  // namespace

// The pass

void NSView::setNeedsLayout(bool needsLayout) {
  needsLayout_ = needsLayout;
  if (needsLayout) markLayoutUpwards();
}

void NSView::markLayoutUpwards() {
  markUpwards(&Subviews::toLayOut, &NSView::subtreeNeedsLayout_);
  if (auto* window = window_.peek()) window->setNeedsCommit();
}

bool NSView::subtreeNeedsPass() {
  if (subtreeNeedsLayout_ || subtreeTrackingIsStale_) return true;
  const Ref<LayoutEngine> engine = layoutEngine();
  return engine && engine->needsUpdate();
}

void NSView::layoutSubtreeIfNeeded() {
  const Ref<NSView> self(this);
  for (int round = 0; round < mostRounds; ++round) {
    updateConstraints();
    layoutMarkedViews();
    const Ref<LayoutEngine> engine = restoredLayoutEngine();
    if (!engine || !engine->needsUpdate()) return;
  }
}

void NSView::updateConstraints() {
  const Ref<LayoutEngine> engine = restoredLayoutEngine();
  if (engine && engine->needsUpdate()) engine->update();
}

void NSView::layoutMarkedViews() {
  if (!layOutIfMarked()) return;
  MarkedWalk walk(&Subviews::toLayOut);
  walk.enter(*this);
  while (const auto view = walk.next()) {
    if (view->layOutIfMarked()) walk.enter(*view);
  }
}

// False when nothing is marked, here and below.
bool NSView::layOutIfMarked() {
  if (!takeMark(&Subviews::toLayOut, &NSView::subtreeNeedsLayout_)) return false;
  if (std::exchange(needsLayout_, false)) layout();
  return true;
}

// A layout that came first may have changed the constraints on what is in here.
void NSView::layout() {
  if (layoutPart_) updateConstraints();
}

// Engines

// The window is the quick way, but not for views that are about to leave it and have it still.
NSView& NSView::layoutRoot() {
  if (const auto* window = window_.peek(); window && movesInProgress_ == 0) return *window->frameView_;
  NSView* root = this;
  while (auto* parent = root->superview_.peek()) root = parent;
  return *root;
}

Ref<LayoutEngine> NSView::layoutEngine() {
  const auto& part = layoutRoot().layoutPart_;
  return part ? part->engine : nullptr;
}

// Made now where there are constraints to solve.
Ref<LayoutEngine> NSView::restoredLayoutEngine() {
  const auto& part = layoutRoot().layoutPart_;
  return part && part->awaitsEngine ? Ref<LayoutEngine>(&madeLayoutEngine()) : layoutEngine();
}

LayoutEngine& NSView::madeLayoutEngine() {
  NSView& root = layoutRoot();
  auto& part = root.layoutPart();
  part.awaitsEngine = false;
  if (part.engine) return *part.engine;
  part.engine = make<LayoutEngine>(root);
  for (const auto& constraint : root.heldConstraints()) part.engine->add(*constraint);
  return *part.engine;
}

std::vector<Ref<NSLayoutConstraint>> NSView::heldConstraints() {
  std::vector<Ref<NSLayoutConstraint>> held;
  forLayoutParts(
      [&](NSView&, LayoutPart& part) { held.insert(held.end(), part.held.begin(), part.held.end()); });
  return held;
}

template <typename Visit>
void NSView::forLayoutParts(Visit&& visit) {
  std::vector<NSView*> waiting{this};
  while (!waiting.empty()) {
    NSView& view = *waiting.back();
    waiting.pop_back();
    if (view.layoutPart_) visit(view, *view.layoutPart_);
    for (const auto& subview : view.subviews()) waiting.push_back(subview.get());
  }
}

// The tree

// Constraints to the outside end; those within go along.
void NSView::willLeaveLayoutTree() {
  NSView& root = layoutRoot();
  if (&root == this || !root.layoutPart_) return;
  const Ref<LayoutEngine> engine = root.layoutPart_->engine;
  if (!engine && !root.layoutPart_->awaitsEngine) return;
  const auto held = heldConstraints();
  for (const auto& constraint : held) constraint->isWithin_ = true;
  std::vector<Ref<NSLayoutConstraint>> crossing;
  std::vector<NSLayoutItem*> items;
  const auto collect = [&](NSLayoutItem& item) {
    items.push_back(&item);
    if (!item.layoutPart_) return;
    for (auto* constraint : item.layoutPart_->naming) {
      if (!constraint->isWithin_) crossing.emplace_back(constraint);
    }
  };
  forTree([&](NSView& view) {
    collect(view);
    if (!view.layoutPart_) return;
    for (const auto& guide : view.layoutPart_->guides) collect(*guide);
  });
  for (const auto& constraint : held) constraint->isWithin_ = false;
  for (const auto& constraint : crossing) constraint->setActive(false);
  if (!held.empty()) layoutPart().awaitsEngine = true;
  if (!engine) return;
  // The innermost first, on which the least depends.
  for (auto constraint = held.rbegin(); constraint != held.rend(); ++constraint) engine->remove(**constraint);
  // Views within before those around them, by whose variables their frames are told.
  for (auto item = items.rbegin(); item != items.rend(); ++item) engine->forget(**item);
}

void NSView::didEnterLayoutTree() {
  if (!layoutPart_) return;
  const auto own = std::exchange(layoutPart_->engine, nullptr);
  const bool awaitsEngine = std::exchange(layoutPart_->awaitsEngine, false);
  if (!own && !awaitsEngine) return;
  if (own) own->disband();
  auto& tree = layoutRoot().layoutPart();
  if (!tree.engine) {
    tree.awaitsEngine = true;
    return;
  }
  for (const auto& constraint : heldConstraints()) tree.engine->add(*constraint);
}

void NSView::layoutTreeWillEnd() {
  if (!layoutPart_ || (!layoutPart_->engine && !layoutPart_->awaitsEngine)) return;
  if (layoutPart_->engine) layoutPart_->engine->disband();
  for (const auto& view : subviews()) {
    auto& part = view->layoutPart();
    part.awaitsEngine = true;
    part.engine = nullptr;
  }
}

void NSView::layoutPropertyDidChange() {
  if (!layoutPart_) return;
  if (const auto engine = layoutEngine()) engine->itemDidChange(*this);
}

// What constraints ask for

bool NSView::translatesAutoresizingMaskIntoConstraints() const {
  return !layoutPart_ || layoutPart_->translatesAutoresizingMask;
}

void NSView::setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
  if (translates == translatesAutoresizingMaskIntoConstraints()) return;
  layoutPart().translatesAutoresizingMask = translates;
  layoutPropertyDidChange();
}

NSSize NSView::intrinsicContentSize() const { return {NSViewNoIntrinsicMetric, NSViewNoIntrinsicMetric}; }

void NSView::invalidateIntrinsicContentSize() {
  if (!layoutPart_) return;
  if (const auto engine = layoutEngine()) engine->alignmentDidChange(*this);
}

NSLayoutPriority NSView::contentHuggingPriority(NSLayoutConstraintOrientation orientation) const {
  return layoutPart_ ? layoutPart_->hugging[static_cast<std::size_t>(orientation)]
                     : NSLayoutPriorityDefaultLow;
}

void NSView::setContentHuggingPriority(NSLayoutPriority priority, NSLayoutConstraintOrientation orientation) {
  layoutPart().hugging[static_cast<std::size_t>(orientation)] = priority;
  layoutPropertyDidChange();
}

NSLayoutPriority NSView::contentCompressionResistancePriority(
    NSLayoutConstraintOrientation orientation) const {
  return layoutPart_ ? layoutPart_->compressionResistance[static_cast<std::size_t>(orientation)]
                     : NSLayoutPriorityDefaultHigh;
}

void NSView::setContentCompressionResistancePriority(NSLayoutPriority priority,
                                                     NSLayoutConstraintOrientation orientation) {
  layoutPart().compressionResistance[static_cast<std::size_t>(orientation)] = priority;
  layoutPropertyDidChange();
}

NSSize NSView::fittingSize() const {
  auto& self = const_cast<NSView&>(*this);  // the engine may set frames, but does not for this
  const auto engine = make<LayoutEngine>(self, LayoutEngine::Purpose::fitting);
  for (const auto& constraint : self.heldConstraints()) engine->add(*constraint);
  return engine->solvedSize();
}

// Constraints and guides

std::vector<Ref<NSLayoutConstraint>> NSView::constraints() const {
  return layoutPart_ ? layoutPart_->held : std::vector<Ref<NSLayoutConstraint>>();
}

void NSView::addLayoutGuide(Ref<NSLayoutGuide> guide) {
  if (!guide) trap("NSView: addLayoutGuide without a guide; make one with make<NSLayoutGuide>()");
  if (guide->owner_.refersTo(this)) return;
  if (const auto old = guide->owningView()) old->removeLayoutGuide(*guide);
  guide->owner_ = this;
  layoutPart().guides.push_back(std::move(guide));
}

void NSView::removeLayoutGuide(NSLayoutGuide& guide) {
  const Ref<NSLayoutGuide> keep(&guide);
  if (!guide.owner_.refersTo(this)) return;
  if (guide.layoutPart_) {
    const std::vector<Ref<NSLayoutConstraint>> naming(guide.layoutPart_->naming.begin(),
                                                      guide.layoutPart_->naming.end());
    NSLayoutConstraint::deactivateConstraints(naming);
  }
  if (const auto engine = layoutEngine()) engine->forget(guide);
  std::erase(layoutPart_->guides, keep);
  guide.owner_ = nullptr;
}

std::vector<Ref<NSLayoutGuide>> NSView::layoutGuides() const {
  return layoutPart_ ? layoutPart_->guides : std::vector<Ref<NSLayoutGuide>>();
}

}  // namespace bkuk
