#include "platform/appkit/NSView.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSAnimationContext.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSTrackingArea.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"
#include "platform/appkit/constraints/LayoutPart.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/drawing/NSShadow.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/Autoresizing.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSView";

}  // namespace

NSView::NSView(NSRect frame) : frame_(frame) {}

NSView::~NSView() {
  layoutTreeWillEnd();
  for (const auto& view : subviews_) {
    view->superview_ = nullptr;
    view->superviewIsFlipped_ = false;
    if (view->layer_) view->layer_->removeFromSuperlayer();
  }
}

void NSView::didInit() { NSResponder::didInit(); }

// Tree

Ref<NSWindow> NSView::window() const { return window_.lock(); }

void NSView::addSubview(Ref<NSView> view) { addSubview(std::move(view), NSViewOrdering::above, nullptr); }

// A view without subviews contains nothing but itself.
bool NSView::wouldContainItself(const NSView& view) const {
  return &view == this || (!view.subviews_.empty() && isDescendantOf(view));
}

void NSView::addSubview(Ref<NSView> view, NSViewOrdering positioned, const NSView* sibling) {
  if (!view) trap("NSView: addSubview without a view");
  if (wouldContainItself(*view))
    fatal("A view cannot be added to itself or to one of its own subviews", unit);
  if (const auto window = view->window_.lock(); window && window->frameView_ == view) {
    fatal("The root of a window's views cannot be moved", unit);
  }
  const Ref<NSView> self(this);
  const Ref<NSView> keepSibling(const_cast<NSView*>(sibling));
  if (view.get() == sibling) return;
  const bool isHere = view->superview_.refersTo(this);
  if (!isHere && view->superview_.isAlive() && view->window_.lock() != window_.lock()) {
    view->removeFromSuperview();
    // Who was told of it may have put one of the two elsewhere, which came later than this call.
    if (view->superview_.isAlive() || wouldContainItself(*view)) return;
  }
  if (const auto old = view->superview_.lock()) {
    if (old != this) view->willLeaveLayoutTree();
    std::erase(old->subviews_, view);
    if (old != this) old->subviewWasTaken(*view);
  }
  subviews_.insert(subviews_.begin() + placeBeside(sibling, positioned), view);
  if (!isHere) takeIn(*view);
  if (view->superview_.refersTo(this)) adoptLayerOfSubview(*view);
  view->markLayoutUpwards();
  view->markTrackingStale();
  AccessibilityTree::childrenDidChange(*this);
  if (!isHere) view->viewDidMoveToSuperview();
}

std::ptrdiff_t NSView::placeBeside(const NSView* sibling, NSViewOrdering positioned) const {
  const auto found = std::ranges::find(subviews_, sibling, &Ref<NSView>::get);
  const bool hasSibling = sibling && found != subviews_.end();
  const bool isAbove = positioned == NSViewOrdering::above;
  if (!hasSibling) return isAbove ? std::ssize(subviews_) : 0;
  return found - subviews_.begin() + (isAbove ? 1 : 0);
}

void NSView::takeIn(NSView& view) {
  view.superview_ = this;
  view.superviewIsFlipped_ = isFlipped();
  view.didEnterLayoutTree();
  view.moveToWindow(window_.lock().get());
}

void NSView::removeFromSuperview() {
  const auto parent = superview_.lock();
  if (!parent) return;
  const Ref<NSView> self(this);
  willLeaveLayoutTree();
  std::erase(parent->subviews_, self);
  superview_ = nullptr;
  superviewIsFlipped_ = false;
  parent->subviewWasTaken(*this);
  AccessibilityTree::childrenDidChange(*parent);
  if (layer_) layer_->removeFromSuperlayer();
  moveToWindow(nullptr);
  dropLayerUnlessWanted();
  viewDidMoveToSuperview();
}

bool NSView::isDescendantOf(const NSView& view) const {
  Ref<const NSView> each(this);
  while (each && each.get() != &view) each = each->superview_.lock();
  return static_cast<bool>(each);
}

void NSView::viewWillMoveToWindow(NSWindow*) {}

// Whoever is told may move or drop any view, so each step takes the tree as it is by then.
void NSView::moveToWindow(NSWindow* window) {
  if (window_.lock() == window) return;
  const Ref<NSWindow> keepWindow(window);
  ++movesInProgress_;
  forTree([](NSView& view) {
    if (const auto old = view.window_.lock()) old->viewWillLeave(view);
  });
  forTree([window](NSView& view) {
    if (view.window_.lock() != window) view.viewWillMoveToWindow(window);
  });
  std::vector<Ref<NSView>> moved;
  forTree([&](NSView& view) {
    if (view.adoptWindow(window)) moved.emplace_back(&view);
  });
  --movesInProgress_;
  for (const auto& view : moved) view->didAdoptWindow(window);
}

// A superview gets its window before its subviews.
bool NSView::belongsTo(const NSWindow* window) const {
  if (const auto parent = superview_.lock()) return parent->window_.lock() == window;
  return !window || window->frameView_ == this;
}

bool NSView::adoptWindow(NSWindow* window) {
  const auto old = window_.lock();
  if (old == window || !belongsTo(window)) return false;
  if (old) old->viewHasLeft(*this);
  window_ = window;
  if (!window) return true;
  window->viewDidEnter(*this);
  makeLayer();
  if (layer_) layer_->setContentsScale(window->backingScaleFactor());
  setNeedsDisplay(true);
  return true;
}

void NSView::didAdoptWindow(NSWindow* window) {
  if (window_.lock() != window) return;
  viewDidMoveToWindow();
  if (!window || window_.lock() != window) return;
  if (shadow_) updateLayerShadow();
  viewDidChangeBackingProperties();
  viewDidChangeEffectiveAppearance();
}

// Geometry

void NSView::setFrame(NSRect frame) {
  if (frame == frame_) return;
  const NSSize oldSize = std::exchange(frame_, frame).size;
  updateLayerGeometry();
  markTrackingStale();
  layoutPropertyDidChange();
  if (frame.size == oldSize) return;
  // Only views with subviews call out: others may set their frame while they are destroyed.
  const Ref<NSView> self(subviews_.empty() ? nullptr : this);
  if (autoresizesSubviews_) resizeSubviews(oldSize);
  setNeedsLayout(true);
  const bool drawsAgain = redrawPolicy_ == NSViewLayerContentsRedrawPolicy::duringViewResize ||
                          redrawPolicy_ == NSViewLayerContentsRedrawPolicy::beforeViewResize;
  if (drawsAgain) setNeedsDisplay(true);
}

void NSView::setBoundsOrigin(NSPoint origin) {
  if (origin == boundsOrigin_) return;
  boundsOrigin_ = origin;
  updateLayerGeometry();
  markTrackingStale();
}

NSView::Placement NSView::placementInSuperview() const {
  const bool isTurned = superview_.isAlive() && superviewIsFlipped_ != isFlipped();
  const CGFloat x = frame_.origin.x - boundsOrigin_.x;
  if (!isTurned) return {{x, frame_.origin.y - boundsOrigin_.y}, 1};
  return {{x, frame_.origin.y + frame_.size.height + boundsOrigin_.y}, -1};
}

NSView::Placement NSView::placementInWindow() const {
  Placement placement = placementInSuperview();
  for (auto each = superview_.lock(); each; each = each->superview_.lock()) {
    const Placement outer = each->placementInSuperview();
    placement = {outer.apply(placement.origin), outer.up * placement.up};
  }
  return placement;
}

NSPoint NSView::convertPointTo(NSPoint point, const NSView* view) const {
  if (view && view->window_.lock() != window_.lock()) fatal("The views are in different windows", unit);
  const NSPoint base = placementInWindow().apply(point);
  return view ? view->placementInWindow().undo(base) : base;
}

NSPoint NSView::convertPointFrom(NSPoint point, const NSView* view) const {
  return view ? view->convertPointTo(point, this) : placementInWindow().undo(point);
}

NSRect NSView::convertRectTo(const NSRect& rect, const NSView* view) const {
  const NSPoint a = convertPointTo({rect.minX(), rect.minY()}, view);
  const NSPoint b = convertPointTo({rect.maxX(), rect.maxY()}, view);
  return NSRect(a.x, a.y, b.x - a.x, b.y - a.y).standardized();
}

NSRect NSView::convertRectFrom(const NSRect& rect, const NSView* view) const {
  const NSPoint a = convertPointFrom({rect.minX(), rect.minY()}, view);
  const NSPoint b = convertPointFrom({rect.maxX(), rect.maxY()}, view);
  return NSRect(a.x, a.y, b.x - a.x, b.y - a.y).standardized();
}

void NSView::resizeSubviews(NSSize oldSize) {
  const auto snapshot = subviews_;
  for (const auto& view : snapshot) {
    if (!view->superview_.refersTo(this) || !view->translatesAutoresizingMaskIntoConstraints()) continue;
    if (view->autoresizingMask_ == NSViewNotSizable) {
      view->layoutPropertyDidChange();  // its constraints may still be those of another mask
      continue;
    }
    view->setFrame(autoresized(view->frame_, view->autoresizingMask_, bounds(), oldSize));
  }
}

NSUserInterfaceLayoutDirection NSView::userInterfaceLayoutDirection() const {
  return direction_ ? *direction_ : NSApplication::shared().userInterfaceLayoutDirection();
}

void NSView::setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection direction) {
  direction_ = direction;
  if (const auto engine = layoutEngine()) engine->directionDidChange();
  setNeedsLayout(true);
  setNeedsDisplay(true);
}

// Events

// Without a superview the point is in the own space.
bool NSView::mayHit(const NSPoint& point) const {
  if (hidden_) return false;
  return superview_.isAlive() ? NSMouseInRect(point, frame_, superviewIsFlipped_)
                              : NSMouseInRect(point, bounds(), isFlipped());
}

// Steps to the next subview behind `index` that the point may hit. Overrides may have taken views away.
bool NSView::stepToCandidate(std::size_t& index, const NSPoint& point) const {
  index = std::min(index, subviews_.size());
  while (index-- > 0) {
    if (subviews_[index]->mayHit(point)) return true;
  }
  return false;
}

// Trees are deep and this is called once a level: what it needs of the stack is kept small.
Ref<NSView> NSView::hitTest(NSPoint point) {
  if (!mayHit(point)) return nullptr;
  point = [this](const NSPoint& place) {
    return superview_.isAlive() ? placementInSuperview().undo(place) : place;
  }(point);
  Ref<NSView> hit;
  for (std::size_t index = subviews_.size(); !hit && stepToCandidate(index, point);) {
    hit = subviews_[index];
    hit = hit->hitTest(point);
  }
  if (!hit) hit = this;
  return hit;
}

Ref<NSResponder> NSView::nextResponder() const {
  if (auto parent = superview_.lock()) return parent;
  return window_.lock();
}

bool NSView::performKeyEquivalent(NSEvent& event) {
  const auto snapshot = subviews_;
  return std::ranges::any_of(snapshot, [&](const auto& view) { return view->performKeyEquivalent(event); });
}

void NSView::setNextKeyView(NSView* view) {
  if (const auto old = nextKeyView_.lock(); old && old->previousKeyView_.refersTo(this)) {
    old->previousKeyView_ = nullptr;
  }
  nextKeyView_ = view;
  if (view) view->previousKeyView_ = this;
}

Ref<NSView> NSView::validKeyView(Ref<NSView> (NSView::*next)() const) const {
  // A loop that does not lead back here ends at a view met before; the slow walker finds it.
  Ref<NSView> view = (this->*next)();
  Ref<NSView> slow = view;
  for (bool advanceSlow = false; view && view.get() != this; advanceSlow = !advanceSlow) {
    if (view->canBecomeKeyView()) return view;
    view = (view.get()->*next)();
    if (advanceSlow) slow = (slow.get()->*next)();
    if (view == slow) break;
  }
  return nullptr;
}

Ref<NSView> NSView::nextValidKeyView() const { return validKeyView(&NSView::nextKeyView); }
Ref<NSView> NSView::previousValidKeyView() const { return validKeyView(&NSView::previousKeyView); }

bool NSView::canBecomeKeyView() const {
  return acceptsFirstResponder() && window_.isAlive() && !isHiddenOrHasHiddenAncestor() &&
         (needsPanelToBecomeKey() || NSApplication::shared().isFullKeyboardAccessEnabled());
}

// Visibility

void NSView::setHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  if (layer_) layer_->setHidden(hidden);
  if (!hidden) markTrackingStale();
  if (const auto window = window_.lock()) window->activityDidChange();
  if (const auto parent = superview_.lock()) AccessibilityTree::childrenDidChange(*parent);
}

bool NSView::isHiddenOrHasHiddenAncestor() const {
  Ref<const NSView> each(this);
  while (each && !each->hidden_) each = each->superview_.lock();
  return static_cast<bool>(each);
}

void NSView::setAlphaValue(CGFloat alpha) {
  alphaValue_ = std::clamp(alpha, 0.0, 1.0);
  if (layer_) layer_->setOpacity(static_cast<float>(alphaValue_));
}

void NSView::setShadow(const Ref<NSShadow>& shadow) {
  shadow_ = shadow ? shadow->copy() : nullptr;
  updateLayerShadow();
}

// Layer and drawing

void NSView::setWantsLayer(bool wants) {
  wantsLayer_ = wants;
  if (!wants) return dropLayerUnlessWanted();
  forTree([](NSView& view) { view.makeLayer(); });
}

Ref<CALayer> NSView::makeBackingLayer() { return make<CALayer>(); }

void NSView::makeLayer() {
  if (layer_) return;
  const Ref<NSView> self(this);
  layer_ = makeBackingLayer();
  if (!layer_) fatal("makeBackingLayer answered no layer; return make<CALayer>() or the superclass's", unit);
  layer_->setDelegate(this);
  layer_->setAnchorPoint({0, 0});
  layer_->setHidden(hidden_);
  layer_->setOpacity(static_cast<float>(alphaValue_));
  if (shadow_) updateLayerShadow();
  layer_->setNeedsDisplay();
  const auto parent = superview_.lock();
  if (parent && parent->layer_) parent->adoptLayerOfSubview(*this);
  updateLayerGeometry();
  for (const auto& view : subviews_) {
    if (view->layer_) adoptLayerOfSubview(*view);
  }
  didMakeBackingLayer();
}

void NSView::dropLayerUnlessWanted() {
  const auto parent = superview_.lock();
  if (!layer_ || wantsLayer_ || window_.isAlive() || (parent && parent->layer_)) return;
  layer_->removeFromSuperlayer();
  layer_->setDelegate(nullptr);
  layer_ = nullptr;
  const auto snapshot = subviews_;
  for (const auto& view : snapshot) view->dropLayerUnlessWanted();
}

void NSView::adoptLayerOfSubview(NSView& view) {
  if (!layer_) {
    // It may come from a superview that has one.
    if (view.layer_) view.layer_->removeFromSuperlayer();
    return view.dropLayerUnlessWanted();
  }
  view.makeLayer();
  // Behind the next sibling's layer, so that layers stand in the order of their views; in front of
  // everything else, so that layers added by hand at the bottom stay there.
  auto next = std::ranges::find(subviews_, Ref<NSView>(&view));
  while (next != subviews_.end() && (next->get() == &view || !(*next)->layer_)) ++next;
  if (next == subviews_.end()) {
    layer_->addSublayer(view.layer_);
  } else {
    layer_->insertSublayerBelow(view.layer_, *(*next)->layer_);
  }
  view.updateLayerGeometry();
}

void NSView::updateLayerGeometry() {
  if (!layer_) return;
  // A layer's flip turns over what is inside it, so only a change of direction flips.
  const auto parent = superview_.lock();
  layer_->setGeometryFlipped(isFlipped() != (parent && parent->isFlipped()));
  layer_->setPosition(frame_.origin);
  layer_->setBounds(bounds());
}

// A layer's opacity multiplies its shadow's colour, so the colour goes without its alpha.
void NSView::updateLayerShadow() {
  if (!layer_) return;
  const auto color = shadow_ && shadow_->shadowColor() ? shadow_->shadowColor()->cgColor() : nullptr;
  layer_->setShadowOpacity(color ? color->alpha() : 0);
  if (!color) return;
  layer_->setShadowColor(color->copy(1));
  layer_->setShadowOffset(shadow_->shadowOffset());
  layer_->setShadowRadius(shadow_->shadowBlurRadius());
}

void NSView::draw(NSRect) {}

void NSView::setNeedsDisplay(bool needsDisplay) {
  needsDisplay_ = needsDisplay;
  if (!needsDisplay) return;
  if (layer_) layer_->setNeedsDisplay();
  if (hasFocusRing_) noteFocusRingMaskChanged();
}

void NSView::scaleDidChange(CGFloat scale) {
  forTree([scale](NSView& view) {
    if (!view.layer_) return;
    view.layer_->setContentsScale(scale);
    view.setNeedsDisplay(true);
    view.viewDidChangeBackingProperties();
  });
}

void NSView::appearanceDidChange() {
  forTree([](NSView& view) {
    if (view.shadow_) view.updateLayerShadow();
    view.viewDidChangeEffectiveAppearance();
    view.setNeedsDisplay(true);
  });
}

void NSView::layoutDirectionDidChange() {
  if (const auto engine = layoutEngine()) engine->directionDidChange();
  forTree([](NSView& view) {
    view.setNeedsLayout(true);
    view.setNeedsDisplay(true);
  });
}

// CALayerDelegate

bool NSView::displayLayer(CALayer&) {
  needsDisplay_ = false;
  if (!wantsUpdateLayer()) return false;
  updateLayer();
  return true;
}

void NSView::drawLayer(CALayer&, CGContext& context) {
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(Ref<CGContext>(&context), isFlipped()));
  const NSRect painted = context.boundingBoxOfClipPath();
  draw(painted.contains(bounds()) ? bounds() : painted.intersection(bounds()));
}

std::optional<Ref<CAAction>> NSView::actionForLayer(CALayer&, std::string_view) {
  if (NSAnimationContext::current().allowsImplicitAnimation()) return std::nullopt;
  return Ref<CAAction>();
}

}  // namespace bkuk
