#include "platform/appkit/NSWindow.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "host/Desktop.h"
#include "host/FrameClamp.h"
#include "host/Host.h"
#include "host/KeyCodes.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSCursor.h"
#include "platform/appkit/NSScreen.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"
#include "platform/appkit/window/FocusRing.h"
#include "platform/appkit/window/HostEvents.h"
#include "platform/appkit/window/ViewOrder.h"
#include "platform/appkit/window/WindowFrameView.h"
#include "platform/appkit/window/WindowMouseRouter.h"
#include "platform/appkit/window/WindowTracking.h"
#include "platform/foundation/CGRoundedUp.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/quartzcore/CATransaction.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSWindow";
// Responders that hand the keyboard to each other as they are told of it go no further than this.
constexpr int mostFocusChanges = 16;

host::Rect hostRect(const NSRect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

// The frame nearest to the wanted one that a desktop can show.
NSRect clamped(const NSRect& rect) {
  const auto frame = host::clampedFrame(hostRect(rect));
  return {frame.x, frame.y, frame.width, frame.height};
}

}  // namespace

class NSWindow::HostClient : public host::WindowClient {
 public:
  explicit HostClient(NSWindow& window) : window_(&window) {}
  void handleEvent(const host::WindowEvent& event) override {
    if (const auto window = window_.lock()) window->handle(event);
  }
  host::AccessibilityId accessibilityElement() override {
    const auto window = window_.lock();
    return window ? AccessibilityTree::shared().idOf(*window) : 0;
  }

 private:
  Weak<NSWindow> window_;
};

NSWindow::NSWindow(NSRect contentRect, NSWindowStyleMask styleMask, NSBackingStoreType, bool)
    : styleMask_(styleMask),
      frame_(clamped(contentRect)),
      mouse_(std::make_unique<WindowMouseRouter>(*this)),
      tracking_(std::make_unique<WindowTracking>(*this)),
      focusRing_(std::make_unique<FocusRing>(*this)),
      client_(std::make_unique<HostClient>(*this)) {}

NSWindow::~NSWindow() = default;

void NSWindow::didInit() {
  NSResponder::didInit();
  NSApplication::shared().addWindow(*this);
  frameView_ = make<WindowFrameView>(*this);
  frameView_->moveToWindow(this);
  renderer_.setChangeHandler([this] { setNeedsCommit(); });
  adoptScale();
  setContentView(nullptr);
}

// Content

void NSWindow::setContentView(Ref<NSView> view) {
  if (!view) view = make<NSView>();
  if (view == contentView_) return;
  const Ref<NSWindow> self(this);
  if (const auto old = std::exchange(contentView_, view)) old->removeFromSuperview();
  if (contentView_ != view) return;  // who was told of it has set another
  view->setTranslatesAutoresizingMaskIntoConstraints(true);
  view->setFrame(frameView_->bounds());
  view->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
  frameView_->addSubview(view);
  if (contentView_ == view && view->superview() != frameView_) contentViewWasTaken();
}

void NSWindow::viewsHaveLayers() { renderer_.setLayer(frameView_->layer_); }

void NSWindow::contentViewWasTaken() {
  contentView_ = nullptr;
  setContentView(nullptr);
}

void NSWindow::setTitle(std::string title) {
  title_ = std::move(title);
  if (hostWindow_) hostWindow_->setTitle(title_);
  NSAccessibilityPostNotification(*this, NSAccessibilityTitleChangedNotification);
}

void NSWindow::setBackgroundColor(Ref<NSColor> color) {
  backgroundColor_ = std::move(color);
  frameView_->setNeedsDisplay(true);
}

void NSWindow::setAlphaValue(CGFloat alpha) {
  alphaValue_ = std::isnan(alpha) ? 1 : std::clamp(alpha, 0.0, 1.0);
  if (hostWindow_) hostWindow_->setOpacity(alphaValue_);
}

// Geometry

void NSWindow::setFrame(NSRect frame, bool display) {
  const Ref<NSWindow> self(this);
  const NSRect wanted = clamped(frame);
  if (hostWindow_) hostWindow_->setFrame(hostRect(NSScreenFlipped(wanted)));
  adoptFrame(wanted);
  if (display) displayIfNeeded();
}

void NSWindow::setContentSize(NSSize size) {
  // The upper edge stays where the user has it.
  setFrame({frame_.origin.x, frame_.origin.y + frame_.size.height - size.height, size.width, size.height});
}

void NSWindow::setContentSizeLimits(NSSize minimum, NSSize maximum) {
  minimumSize_ = minimum;
  maximumSize_ = maximum;
  if (hostWindow_) {
    hostWindow_->setSizeLimits({minimum.width, minimum.height}, {maximum.width, maximum.height});
  }
}

void NSWindow::center() {
  const NSRect area = NSScreen::main().visibleFrame;
  setFrame({std::round(area.midX() - frame_.size.width / 2), std::round(area.midY() - frame_.size.height / 2),
            frame_.size.width, frame_.size.height});
}

NSPoint NSWindow::convertPointToScreen(NSPoint point) const {
  return {point.x + frame_.origin.x, point.y + frame_.origin.y};
}

NSPoint NSWindow::convertPointFromScreen(NSPoint point) const {
  return {point.x - frame_.origin.x, point.y - frame_.origin.y};
}

CGFloat NSWindow::backingScaleFactor() const {
  return hostWindow_ ? hostWindow_->scale() : NSScreen::main().backingScaleFactor;
}

void NSWindow::adoptFrame(NSRect frame) {
  const NSRect old = std::exchange(frame_, frame);
  if (frame.origin != old.origin) {
    moveChildren({frame.origin.x - old.origin.x, frame.origin.y - old.origin.y});
  }
  if (frame.size == old.size) return;
  frameView_->setFrame({{}, frame.size});
  adoptScale();
  NSNotificationCenter::default_().post(NSWindowDidResizeNotification, this);
}

void NSWindow::adoptScale() {
  const CGFloat scale = backingScaleFactor();
  const auto pixels = [scale](CGFloat points) {
    return std::min(static_cast<int>(CGRoundedUp(points * scale)), host::Bitmap::maxSide);
  };
  const auto size = hostWindow_ ? hostWindow_->pixelSize()
                                : host::PixelSize{pixels(frame_.size.width), pixels(frame_.size.height)};
  const bool scaleChanged = scale != renderer_.scale();
  if (scaleChanged) focusRing_->setNeedsUpdate();
  renderer_.setSize(size, scale);
  if (scaleChanged) frameView_->scaleDidChange(scale);
  setNeedsCommit();
}

void NSWindow::moveChildren(NSPoint by) {
  const auto snapshot = children_;
  for (const auto& child : snapshot) child->setFrame(NSOffsetRect(child->frame(), by.x, by.y));
}

// Order and keys

void NSWindow::makeHostWindow() {
  if (hostWindow_) return;
  const auto has = [this](NSWindowStyleMask bit) { return (styleMask_ & bit) != 0; };
  const auto parent = parent_.lock();
  host::WindowOptions options;
  options.titled = has(NSWindowStyleMaskTitled);
  options.closable = has(NSWindowStyleMaskClosable);
  options.miniaturizable = has(NSWindowStyleMaskMiniaturizable);
  options.resizable = has(NSWindowStyleMaskResizable);
  options.translucent = !opaque_;
  options.acceptsFocus = canBecomeKey();
  options.ignoresPointer = ignoresMouseEvents_;
  if (level_ >= NSPopUpMenuWindowLevel) options.kind = host::WindowKind::popup;
  // Desktops keep a window that belongs to another in front of it.
  const bool isInFrontOfParent = parent && orderAsChild_ != NSWindowOrderingMode::below;
  options.parent = isInFrontOfParent ? parent->hostWindow_.get() : nullptr;
  options.frame = hostRect(NSScreenFlipped(frame_));
  hostWindow_ = host::current().desktop().makeWindow(options, *client_);
  hostWindow_->setTitle(title_);
  hostWindow_->setOpacity(alphaValue_);
  hostWindow_->setCursor(NSCursor::current()->shape());
  setContentSizeLimits(minimumSize_, maximumSize_);
  adoptScale();
}

void NSWindow::orderFront() {
  const Ref<NSWindow> self(this);
  makeHostWindow();
  frameView_->makePendingLayers();
  if (!std::exchange(visible_, true)) NSApplication::shared().keepOrderedIn(*this);
  renderer_.setNeedsRenderAll();
  hostWindow_->show();
  raise();
  setNeedsCommit();
}

void NSWindow::raise() {
  const auto raiseChildren = [this](NSWindowOrderingMode order) {
    for (const auto& child : children_) {
      if (child->orderAsChild_ == order && child->visible_) child->hostWindow_->raise();
    }
  };
  raiseChildren(NSWindowOrderingMode::below);
  hostWindow_->raise();
  raiseChildren(NSWindowOrderingMode::above);
}

void NSWindow::orderOut() {
  if (!std::exchange(visible_, false)) return;
  const Ref<NSWindow> self(this);
  const auto snapshot = children_;
  for (const auto& child : snapshot) child->orderOut();
  hostWindow_->hide();
  NSApplication::shared().letGo(*this);
}

void NSWindow::makeKey() {
  if (!visible_ || !canBecomeKey()) return;
  const Ref<NSWindow> self(this);
  hostWindow_->activate();
  NSApplication::shared().setKeyWindow(this);
}

void NSWindow::makeKeyAndOrderFront() {
  const Ref<NSWindow> self(this);
  orderFront();
  makeKey();
}

void NSWindow::close() {
  if (!visible_ || std::exchange(closing_, true)) return;
  const Ref<NSWindow> self(this);
  NSNotificationCenter::default_().post(NSWindowWillCloseNotification, this);
  orderOut();
  closing_ = false;
  NSApplication::shared().windowDidClose();
}

void NSWindow::performClose() { close(); }

bool NSWindow::canBecomeKey() const {
  return (styleMask_ & (NSWindowStyleMaskTitled | NSWindowStyleMaskResizable)) != 0;
}

bool NSWindow::becomesKeyByClick(const NSView*) const { return true; }

bool NSWindow::isKeyWindow() const { return NSApplication::shared().keyWindow_.refersTo(this); }
bool NSWindow::isMainWindow() const { return NSApplication::shared().mainWindow_.refersTo(this); }

void NSWindow::becomeKey() {
  activityDidChange();
  focusRing_->setNeedsUpdate();
  NSNotificationCenter::default_().post(NSWindowDidBecomeKeyNotification, this);
}

void NSWindow::resignKey() {
  activityDidChange();
  focusRing_->setNeedsUpdate();
  NSNotificationCenter::default_().post(NSWindowDidResignKeyNotification, this);
}

void NSWindow::addChildWindow(Ref<NSWindow> child, NSWindowOrderingMode ordered) {
  if (!child || child->parent_.refersTo(this)) return;
  for (Ref<NSWindow> each(this); each; each = each->parent()) {
    if (each == child) fatal("A window cannot be a child of itself or of one of its own children", unit);
  }
  if (const auto old = child->parent()) old->removeChildWindow(*child);
  child->parent_ = this;
  child->orderAsChild_ = ordered;
  children_.push_back(child);
  if (!visible_) return;
  child->orderFront();
  if (ordered == NSWindowOrderingMode::below) raise();
}

void NSWindow::removeChildWindow(NSWindow& child) {
  const Ref<NSWindow> keep(&child);
  if (std::erase(children_, keep) > 0) child.parent_ = nullptr;
}

// Events

Ref<NSResponder> NSWindow::firstResponder() const {
  if (auto responder = firstResponder_.lock()) return responder;
  return const_cast<NSWindow*>(this);
}

// A view that is on its way out of the window has it still, but does not hang in it any more.
bool NSWindow::holds(const NSResponder& responder) const {
  if (&responder == this) return true;
  const auto* view = dynamic_cast<const NSView*>(&responder);
  return view && view->window_.refersTo(this) && view->isDescendantOf(*frameView_);
}

bool NSWindow::makeFirstResponder(NSResponder* responder) {
  const Ref<NSWindow> self(this);
  const Ref<NSResponder> next(responder);
  const auto present = firstResponder();
  if (present == next) return true;
  const bool isEndless = focusDepth_ >= mostFocusChanges;
  if (isEndless || (next && !holds(*next))) {
    const std::string name = next ? next->className() : "nothing";
    std::fprintf(stderr, "NSWindow: makeFirstResponder: %s %s\n", name.c_str(),
                 isEndless ? "is refused, for the responders keep calling it from becomeFirstResponder or "
                             "resignFirstResponder"
                           : "is no view in this window: add it to the window first");
    return false;
  }
  ++focusDepth_;
  const bool agrees = letsGo(*present);
  const auto now = firstResponder();
  const bool isOvertaken = now != present && now != self;
  if (agrees && !isOvertaken) giveKeyboard(next);
  --focusDepth_;
  return isOvertaken ? now == next : agrees;
}

// One that gives the keyboard away while it is asked is not asked once more for that.
bool NSWindow::letsGo(NSResponder& present) {
  if (resigning_.refersTo(&present)) return true;
  const auto outer = std::exchange(resigning_, Weak<NSResponder>(&present));
  const bool agrees = present.resignFirstResponder();
  resigning_ = outer;
  return agrees;
}

void NSWindow::giveKeyboard(const Ref<NSResponder>& next) {
  const bool isWindow = !next || next == this || !holds(*next);
  firstResponder_ = isWindow ? nullptr : next.get();
  if (!isWindow && !next->becomeFirstResponder() && firstResponder_.refersTo(next.get())) {
    firstResponder_ = nullptr;
  }
  firstResponderDidChange();
}

void NSWindow::firstResponderDidChange() {
  activityDidChange();
  focusRing_->firstResponderDidChange();
  if (isKeyWindow()) AccessibilityTree::shared().postFocus(*this);
}

void NSWindow::selectKeyView(Ref<NSView> (NSView::*valid)() const) {
  if (autorecalculatesKeyViewLoop_ && keyViewLoopIsStale_) recalculateKeyViewLoop();
  Ref<NSView> next;
  if (const auto present = as<NSView>(firstResponder())) next = (present.get()->*valid)();
  if (const auto initial = initialFirstResponder(); !next && initial) {
    next = initial->acceptsFirstResponder() ? initial : (initial.get()->*valid)();
  }
  if (!next && autorecalculatesKeyViewLoop_) next = endOfLoop(valid);
  if (next && holds(*next)) makeFirstResponder(next.get());
}

// Where the keyboard enters a loop that nobody has entered yet.
Ref<NSView> NSWindow::endOfLoop(Ref<NSView> (NSView::*valid)() const) const {
  if (endsAreStale_) keepEndsOf(viewsInReadingOrder(*frameView_));
  const bool isForward = valid == &NSView::nextValidKeyView;
  const auto end = (isForward ? firstInOrder_ : lastInOrder_).lock();
  if (!end) return nullptr;
  return end->canBecomeKeyView() ? end : (end.get()->*valid)();
}

void NSWindow::recalculateKeyViewLoop() {
  keyViewLoopIsStale_ = false;
  const auto order = viewsInReadingOrder(*frameView_);
  keepEndsOf(order);
  for (std::size_t i = 0; i < order.size(); ++i)
    order[i]->setNextKeyView(order[(i + 1) % order.size()].get());
}

void NSWindow::keepEndsOf(const std::vector<Ref<NSView>>& order) const {
  endsAreStale_ = false;
  firstInOrder_ = order.empty() ? nullptr : order.front().get();
  lastInOrder_ = order.empty() ? nullptr : order.back().get();
}

void NSWindow::selectNextKeyView() { selectKeyView(&NSView::nextValidKeyView); }
void NSWindow::selectPreviousKeyView() { selectKeyView(&NSView::previousValidKeyView); }

NSPoint NSWindow::mouseLocationOutsideOfEventStream() const {
  if (!hostWindow_) return {};
  const auto position = hostWindow_->pointerPosition();
  return {position.x, frame_.size.height - position.y};
}

void NSWindow::sendEvent(NSEvent& event) {
  const Ref<NSWindow> self(this);
  switch (event.type()) {
    case NSEventType::keyDown:
      focusRing_->keyWasPressed();
      return firstResponder()->keyDown(event);
    case NSEventType::keyUp:
      return firstResponder()->keyUp(event);
    case NSEventType::flagsChanged:
      return firstResponder()->flagsChanged(event);
    default:
      return mouse_->send(event);
  }
}

void NSWindow::keyDown(NSEvent& event) {
  if (event.keyCode() != host::keyCode::tab) return NSResponder::keyDown(event);
  if (event.hasModifier(NSEventModifierFlagShift)) {
    selectPreviousKeyView();
  } else {
    selectNextKeyView();
  }
}

bool NSWindow::performKeyEquivalent(NSEvent& event) { return frameView_->performKeyEquivalent(event); }

void NSWindow::showCursor(const NSCursor& cursor) {
  if (hostWindow_) hostWindow_->setCursor(cursor.shape());
}

// What the host reports

void NSWindow::handle(const host::WindowEvent& event) {
  if (const auto* pointer = std::get_if<host::PointerEvent>(&event)) return handlePointer(*pointer);
  if (const auto* frame = std::get_if<host::FrameEvent>(&event)) return handleFrame(frame->frame);
  if (const auto* focus = std::get_if<host::FocusEvent>(&event)) return handleFocus(focus->focused);
  if (const auto* expose = std::get_if<host::ExposeEvent>(&event)) {
    if (expose->exposed) renderer_.setNeedsRenderAll();
    return setNeedsCommit();
  }
  if (std::holds_alternative<host::ScaleEvent>(event)) return adoptScale();
  if (std::holds_alternative<host::CloseEvent>(event)) return performClose();
  if (std::holds_alternative<host::DismissEvent>(event)) return orderOut();
  if (const auto sent = eventFromHost(event, *this)) NSApplication::shared().sendEvent(*sent);
}

void NSWindow::handlePointer(const host::PointerEvent& event) {
  using Kind = host::PointerEvent::Kind;
  const Ref<NSWindow> self(this);
  // An area that waits for the end of a drag hears of the pointer after the view of the press has.
  const bool isEnd = event.kind == Kind::release || event.kind == Kind::cancel;
  if (!isEnd) followPointer(event);
  const bool isCrossing = event.kind == Kind::enter || event.kind == Kind::leave;
  const auto sent = isCrossing ? nullptr : eventFromHost(event, *this);
  if (sent) NSApplication::shared().sendEvent(*sent);
  if (isEnd) followPointer(event);
}

void NSWindow::followPointer(const host::PointerEvent& event) {
  using Kind = host::PointerEvent::Kind;
  const bool isEnd = event.kind == Kind::release || event.kind == Kind::cancel;
  tracking_->follow({
      .location = baseLocation(event.position, *this),
      .isInWindow = event.kind != Kind::leave,
      .isButtonDown = !isEnd && event.button != host::PointerButton::none,
      .modifierFlags = modifierFlagsFromHost(event.modifiers),
      .timestamp = event.timestamp,
  });
}

void NSWindow::handleFrame(const host::Rect& frame) {
  adoptFrame(clamped(NSScreenFlipped({frame.x, frame.y, frame.width, frame.height})));
}

void NSWindow::handleFocus(bool focused) {
  auto& application = NSApplication::shared();
  if (focused && visible_ && canBecomeKey()) application.setKeyWindow(this);
  if (!focused && isKeyWindow()) application.setKeyWindow(nullptr);
}

// What views tell their window

void NSWindow::viewDidEnter(NSView& view) {
  keyViewLoopIsStale_ = endsAreStale_ = true;
  for (const auto& area : view.trackingAreas()) tracking_->add(view, *area);
}

void NSWindow::viewHasLeft(NSView& view) {
  viewWillLeave(view);  // it may have taken the keyboard once more when it was told
  for (const auto& area : view.trackingAreas()) tracking_->remove(*area);
}

void NSWindow::viewWillLeave(NSView& view) {
  keyViewLoopIsStale_ = endsAreStale_ = true;
  mouse_->forget(view);
  if (!firstResponder_.refersTo(&view)) return;
  firstResponder_ = nullptr;
  firstResponderDidChange();
}

void NSWindow::trackingAreaWasAdded(NSView& view, NSTrackingArea& area) { tracking_->add(view, area); }

void NSWindow::trackingAreaWasRemoved(NSTrackingArea& area) { tracking_->remove(area); }

void NSWindow::trackingAreaHasMoved(const NSTrackingArea& area) { tracking_->updateRect(area); }

void NSWindow::placesDidChange() {
  endsAreStale_ = true;
  setNeedsCommit();
}

void NSWindow::activityDidChange() {
  activityIsStale_ = true;
  setNeedsCommit();
}

void NSWindow::giveKeyboardByClick(NSView& view) {
  if (makeFirstResponder(&view) && firstResponder_.refersTo(&view)) focusRing_->pointerDidChoose(view);
}

void NSWindow::focusRingDidChange(const NSView& view) {
  if (!firstResponder_.refersTo(&view)) return;
  focusRing_->setNeedsUpdate();
  setNeedsCommit();
}

// Drawing

void NSWindow::appearanceDidChange() {
  focusRing_->setNeedsUpdate();
  frameView_->appearanceDidChange();
}

void NSWindow::layoutDirectionDidChange() {
  endsAreStale_ = true;
  frameView_->layoutDirectionDidChange();
}

void NSWindow::setNeedsCommit() { NSRunLoop::main().setNeedsTurn(); }

bool NSWindow::needsCommit() const {
  return frameView_->subtreeNeedsPass() || activityIsStale_ || focusRing_->needsUpdate() ||
         renderer_.hasDamage();
}

void NSWindow::layoutIfNeeded() { frameView_->layoutSubtreeIfNeeded(); }

void NSWindow::updateTracking() {
  const Ref<NSWindow> self(this);
  frameView_->updateTrackingInTree();
  if (std::exchange(activityIsStale_, false)) tracking_->refresh();
  focusRing_->updateIfNeeded();
}

void NSWindow::displayIfNeeded() {
  const Ref<NSWindow> self(this);
  frameView_->makePendingLayers();
  layoutIfNeeded();
  updateTracking();
  CATransaction::flush();
  render();
}

void NSWindow::render() {
  if (!visible_ || !renderer_.hasDamage()) return;
  const auto damage = renderer_.render();
  if (!damage.empty()) hostWindow_->present(renderer_.image(), damage);
}

}  // namespace bkuk
