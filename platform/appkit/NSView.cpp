#include "platform/appkit/NSView.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSAnimationContext.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSView+Parts.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"
#include "platform/appkit/constraints/LayoutPart.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/Autoresizing.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSView";

}  // namespace

NSView::NSView(NSRect frame) : frame_(frame) {}

NSView::~NSView() {
  layoutTreeWillEnd();
  const auto& views = subviews();
  // From the end, where layers leave at no cost.
  for (auto next = views.rbegin(); next != views.rend(); ++next) {
    NSView& view = **next;
    view.superview_ = nullptr;
    view.superviewIsFlipped_ = false;
    view.layoutPlace_ = view.trackingPlace_ = notMarked;
    if (view.layer_) view.layer_->removeFromSuperlayer();
  }
}

const NSView::Extras& NSView::extras() const {
  static const auto& none = *new Extras;
  return extras_ ? *extras_ : none;
}

NSView::Extras& NSView::ownExtras() {
  if (!extras_) extras_ = std::make_unique<Extras>();
  return *extras_;
}

const std::string& NSView::identifier() const { return extras().identifier; }

void NSView::setIdentifier(std::string identifier) { ownExtras().identifier = std::move(identifier); }

void NSView::didInit() { NSResponder::didInit(); }

// Tree

const std::vector<Ref<NSView>>& NSView::subviews() const {
  static const auto& none = *new std::vector<Ref<NSView>>;
  return subviews_ ? subviews_->list.all() : none;
}

Ref<NSWindow> NSView::window() const { return window_.lock(); }

void NSView::addSubview(Ref<NSView> view) { addSubview(std::move(view), NSViewOrdering::above, nullptr); }

// A view without subviews contains nothing but itself.
bool NSView::wouldContainItself(const NSView& view) const {
  return &view == this || (!view.subviews().empty() && isDescendantOf(view));
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
    old->subviews_->erase(*view);
    if (old != this) old->subviewWasTaken(*view);
  }
  insertSubview(view, positioned, sibling);
  if (!isHere) takeIn(*view);
  const bool isInPlace = !isHere && view->layer_ && view->layer_->superlayer() == layer_;
  if (view->superview_.refersTo(this) && !isInPlace) adoptLayerOfSubview(*view);
  view->markLayoutUpwards();
  view->markTrackingStale();
  AccessibilityTree::childrenDidChange(*this);
  if (!isHere) view->viewDidMoveToSuperview();
}

void NSView::insertSubview(const Ref<NSView>& view, NSViewOrdering positioned, const NSView* sibling) {
  if (!subviews_) subviews_ = std::make_unique<Subviews>();
  subviews_->insert(view, placeBeside(sibling, positioned));
}

std::size_t NSView::placeBeside(const NSView* sibling, NSViewOrdering positioned) const {
  const bool hasSibling = sibling && sibling->superview_.refersTo(this);
  const bool isAbove = positioned == NSViewOrdering::above;
  if (!hasSibling) return isAbove ? subviews_->list.size() : 0;
  return subviews_->list.indexOf(*sibling) + (isAbove ? 1 : 0);
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
  parent->subviews_->erase(*this);
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
  const NSView* each = this;
  while (each && each != &view) each = each->superview_.peek();
  return each != nullptr;
}

void NSView::viewWillMoveToWindow(NSWindow*) {}

// Whoever is told may move or drop any view, so each step takes the tree as it is by then.
void NSView::moveToWindow(NSWindow* window) {
  if (window_.peek() == window) return;
  const Ref<NSWindow> keepWindow(window);
  ++movesInProgress_;
  if (window_.isAlive()) {
    forTree([](NSView& view) {
      if (const auto old = view.window_.lock()) old->viewWillLeave(view);
    });
  }
  forTree([window](NSView& view) {
    if (view.window_.peek() != window) view.viewWillMoveToWindow(window);
  });
  std::vector<Ref<NSView>> moved;
  forTree([&](NSView& view) {
    if (view.adoptWindow(window)) moved.emplace_back(&view);
  });
  --movesInProgress_;
  const auto* parent = superview_.peek();
  if (parent && !parent->layersArePending_) makePendingLayers();
  for (const auto& view : moved) view->didAdoptWindow(window);
}

// A superview gets its window before its subviews.
bool NSView::belongsTo(const NSWindow* window) const {
  if (const auto* parent = superview_.peek()) return parent->window_.peek() == window;
  return !window || window->frameView_ == this;
}

bool NSView::adoptWindow(NSWindow* window) {
  const auto old = window_.lock();
  if (old == window || !belongsTo(window)) return false;
  if (old) old->viewHasLeft(*this);
  window_ = window;
  layersArePending_ = window != nullptr;
  if (!window) return true;
  window->viewDidEnter(*this);
  if (layer_) layer_->setContentsScale(window->backingScaleFactor());
  setNeedsDisplay(true);
  return true;
}

void NSView::didAdoptWindow(NSWindow* window) {
  if (window_.peek() != window) return;
  viewDidMoveToWindow();
  if (!window || window_.peek() != window) return;
  if (extras().shadow) updateLayerShadow();
  viewDidChangeBackingProperties();
  viewDidChangeEffectiveAppearance();
}

// Geometry

void NSView::setFrame(NSRect frame) {
  if (frame == frame_) return;
  const NSSize oldSize = std::exchange(frame_, frame).size;
  if (const auto* parent = superview_.peek()) parent->subviews_->frameDidChange(*this);
  updateLayerGeometry();
  markTrackingStale();
  layoutPropertyDidChange();
  if (frame.size == oldSize) return;
  // Only views with subviews call out: others may set their frame while they are destroyed.
  const Ref<NSView> self(subviews().empty() ? nullptr : this);
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
  for (const auto* each = superview_.peek(); each; each = each->superview_.peek()) {
    const Placement outer = each->placementInSuperview();
    placement = {outer.apply(placement.origin), outer.up * placement.up};
  }
  return placement;
}

NSRect NSView::Placement::apply(const NSRect& rect) const {
  const NSPoint a = apply(NSPoint{rect.minX(), rect.minY()});
  const NSPoint b = apply(NSPoint{rect.maxX(), rect.maxY()});
  return NSRect(a.x, a.y, b.x - a.x, b.y - a.y).standardized();
}

NSRect NSView::Placement::undo(const NSRect& rect) const {
  const NSPoint a = undo(NSPoint{rect.minX(), rect.minY()});
  const NSPoint b = undo(NSPoint{rect.maxX(), rect.maxY()});
  return NSRect(a.x, a.y, b.x - a.x, b.y - a.y).standardized();
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
  if (view && view->window_.lock() != window_.lock()) fatal("The views are in different windows", unit);
  const NSRect base = placementInWindow().apply(rect);
  return view ? view->placementInWindow().undo(base) : base;
}

NSRect NSView::convertRectFrom(const NSRect& rect, const NSView* view) const {
  return view ? view->convertRectTo(rect, this) : placementInWindow().undo(rect);
}

void NSView::resizeSubviews(NSSize oldSize) {
  const auto snapshot = subviews();
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
  const auto& direction = extras().direction;
  return direction ? *direction : NSApplication::shared().userInterfaceLayoutDirection();
}

void NSView::setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection direction) {
  ownExtras().direction = direction;
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
  if (!subviews_) return false;
  const auto& views = subviews_->list.all();
  index = std::min(index, views.size());
  const bool areFew = views.size() < 32;
  while (index > 0) {
    index = areFew ? index - 1 : subviews_->lastAt(point, index);
    if (index == Subviews::none) return false;
    if (views[index]->mayHit(point)) return true;
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
  for (std::size_t index = subviews().size(); !hit && stepToCandidate(index, point);) {
    hit = subviews()[index];
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
  const auto snapshot = subviews();
  return std::ranges::any_of(snapshot, [&](const auto& view) { return view->performKeyEquivalent(event); });
}

Ref<NSView> NSView::nextKeyView() const { return extras().nextKeyView.lock(); }
Ref<NSView> NSView::previousKeyView() const { return extras().previousKeyView.lock(); }

void NSView::setNextKeyView(NSView* view) {
  auto& next = ownExtras().nextKeyView;
  if (const auto* old = next.peek(); old && old->extras().previousKeyView.refersTo(this)) {
    old->extras_->previousKeyView = nullptr;
  }
  next = view;
  if (view) view->ownExtras().previousKeyView = this;
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
  AccessibilityTree::childrenOfParentDidChange(*this);
}

bool NSView::isHiddenOrHasHiddenAncestor() const {
  const NSView* each = this;
  while (each && !each->hidden_) each = each->superview_.peek();
  return each != nullptr;
}

CGFloat NSView::alphaValue() const { return extras().alphaValue; }

void NSView::setAlphaValue(CGFloat alpha) {
  ownExtras().alphaValue = std::clamp(alpha, 0.0, 1.0);
  if (layer_) layer_->setOpacity(static_cast<float>(alphaValue()));
}

const Ref<NSShadow>& NSView::shadow() const { return extras().shadow; }

void NSView::setShadow(const Ref<NSShadow>& shadow) {
  ownExtras().shadow = shadow ? shadow->copy() : nullptr;
  updateLayerShadow();
}

// Layer and drawing

void NSView::setWantsLayer(bool wants) {
  wantsLayer_ = wants;
  if (!wants) return dropLayerUnlessWanted();
  const Ref<NSView> self(this);
  makeLayer();
  forTree([](NSView& view) { view.layersArePending_ = true; });
  makePendingLayersBelow();
}

Ref<CALayer> NSView::makeBackingLayer() { return make<CALayer>(); }

void NSView::makeLayer() {
  if (layer_) return;
  const Ref<NSView> self(this);
  createLayer();
  const auto parent = superview_.lock();
  if (parent && parent->layer_) parent->putLayerOfSubview(*this, parent->layerInFrontOf(*this));
  fillLayer();
}

void NSView::createLayer() {
  // Who makes it may ask for it.
  const bool werePending = std::exchange(layersArePending_, false);
  layer_ = makeBackingLayer();
  layersArePending_ = werePending && window_.isAlive();
  if (!layer_) fatal("makeBackingLayer answered no layer; return make<CALayer>() or the superclass's", unit);
  layer_->setDelegate(this);
  layer_->setAnchorPoint({0, 0});
  layer_->setHidden(hidden_);
  layer_->setOpacity(static_cast<float>(alphaValue()));
  if (const auto* window = window_.peek()) layer_->setContentsScale(window->backingScaleFactor());
  if (shadow()) updateLayerShadow();
  layer_->setNeedsDisplay();
}

void NSView::fillLayer() {
  updateLayerGeometry();
  if (subviews_) {
    const auto snapshot = subviews();
    for (const auto& view : snapshot) {
      if (layer_ && view->layer_) adoptLayerOfSubview(*view);
    }
  }
  didMakeBackingLayer();
}

const Ref<CALayer>& NSView::layer() const {
  if (layersArePending_) const_cast<NSView*>(this)->makePendingLayers();
  return layer_;
}

// Those of the superviews come first, alone. A view that is being destroyed may ask, and gets none.
void NSView::makePendingLayers() {
  if (!layersArePending_ || !Weak<NSView>(this).isAlive()) return;
  const Ref<NSView> self(this);
  std::vector<Ref<NSView>> around;
  for (Ref<NSView> each(this); each && !each->layer_; each = each->superview_.lock()) around.push_back(each);
  for (auto view = around.rbegin(); view != around.rend(); ++view) {
    if ((*view)->window_.isAlive()) (*view)->makeLayer();
  }
  if (const auto window = window_.lock()) window->viewsHaveLayers();
  makePendingLayersBelow();
}

void NSView::makePendingLayersBelow() {
  std::vector<Ref<NSView>> waiting{this};
  while (!waiting.empty()) {
    const Ref<NSView> view = std::move(waiting.back());
    waiting.pop_back();
    if (!std::exchange(view->layersArePending_, false) || !view->layer_) continue;
    const auto inside = view->subviews();
    // The layers that are there already stand in front of what comes before them.
    std::size_t next = 0;
    for (std::size_t i = 0; i < inside.size(); ++i) {
      auto& subview = *inside[i];
      if (subview.layer_ || !subview.superview_.refersTo(view.get())) continue;
      next = std::max(next, i + 1);
      subview.createLayer();
      // Whoever was told of it may have put the views elsewhere.
      if (!view->layer_ || !subview.layer_ || !subview.superview_.refersTo(view.get())) continue;
      while (next < inside.size() && !inside[next]->layer_) ++next;
      view->putLayerOfSubview(subview, next < inside.size() ? inside[next]->layer_.get() : nullptr);
      subview.fillLayer();
    }
    waiting.insert(waiting.end(), inside.rbegin(), inside.rend());
  }
}

void NSView::dropLayerUnlessWanted() {
  const auto parent = superview_.lock();
  if (!layer_ || wantsLayer_ || window_.isAlive() || (parent && parent->layer_)) return;
  layer_->removeFromSuperlayer();
  layer_->setDelegate(nullptr);
  layer_ = nullptr;
  const auto snapshot = subviews();
  for (const auto& view : snapshot) view->dropLayerUnlessWanted();
}

void NSView::adoptLayerOfSubview(NSView& view) {
  if (!layer_) {
    // It may come from a superview that has one.
    if (view.layer_) view.layer_->removeFromSuperlayer();
    return view.dropLayerUnlessWanted();
  }
  if (view.layer_) {
    putLayerOfSubview(view, layerInFrontOf(view));
  } else if (!layersArePending_) {
    view.makeLayer();
  }
  if (!layersArePending_) view.makePendingLayers();
}

// Behind the next sibling's layer, so that layers stand in the order of their views; in front of everything
// else, so that layers added by hand at the bottom stay there.
void NSView::putLayerOfSubview(NSView& view, const CALayer* next) {
  if (next) {
    layer_->insertSublayerBelow(view.layer_, *next);
  } else {
    layer_->addSublayer(view.layer_);
  }
  view.updateLayerGeometry();
}

const CALayer* NSView::layerInFrontOf(const NSView& view) const {
  const auto& views = subviews();
  auto next = subviews_->list.indexOf(view) + 1;
  while (next < views.size() && !views[next]->layer_) ++next;
  return next < views.size() ? views[next]->layer_.get() : nullptr;
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
  const auto& shadow = extras().shadow;
  const auto color = shadow && shadow->shadowColor() ? shadow->shadowColor()->cgColor() : nullptr;
  layer_->setShadowOpacity(color ? color->alpha() : 0);
  if (!color) return;
  layer_->setShadowColor(color->copy(1));
  layer_->setShadowOffset(shadow->shadowOffset());
  layer_->setShadowRadius(shadow->shadowBlurRadius());
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
    if (view.layer_) view.layer_->setContentsScale(scale);
    view.setNeedsDisplay(true);
    view.viewDidChangeBackingProperties();
  });
}

void NSView::appearanceDidChange() {
  forTree([](NSView& view) {
    if (view.shadow()) view.updateLayerShadow();
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
