#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/appkit/NSLayoutItem.h"
#include "platform/appkit/NSResponder.h"
#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"
#include "platform/foundation/MarkedChildren.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CALayerDelegate.h"

namespace bkuk {

class LayoutEngine;
class NSLayoutGuide;
class NSShadow;
class NSTrackingArea;
class NSWindow;

/// How a view follows its superview's size: a sum of the bits that say what may stretch.
using NSAutoresizingMask = unsigned;
inline constexpr NSAutoresizingMask NSViewNotSizable = 0;
inline constexpr NSAutoresizingMask NSViewMinXMargin = 1;
inline constexpr NSAutoresizingMask NSViewWidthSizable = 2;
inline constexpr NSAutoresizingMask NSViewMaxXMargin = 4;
inline constexpr NSAutoresizingMask NSViewMinYMargin = 8;
inline constexpr NSAutoresizingMask NSViewHeightSizable = 16;
inline constexpr NSAutoresizingMask NSViewMaxYMargin = 32;

/// When a change of a view's size makes it draw again.
enum class NSViewLayerContentsRedrawPolicy {
  never = 0,
  onSetNeedsDisplay = 1,
  duringViewResize = 2,
  beforeViewResize = 3,
  crossfade = 4,
};

/// Whether the platform shows that a view has the keyboard, and where.
enum class NSFocusRingType { default_ = 0, none = 1, exterior = 2 };

/// Where a subview is put among its siblings.
enum class NSViewOrdering { below = -1, above = 1 };

/// No intrinsic size along an axis.
inline constexpr CGFloat NSViewNoIntrinsicMetric = -1;

/// A rectangle of a window that draws and answers events.
///
/// A superview owns its subviews. A view in a window draws through a layer of its own; outside of one it
/// has a layer only when `wantsLayer` says so. Geometry is in points; y runs up unless `isFlipped`.
class NSView : public NSResponder, public CALayerDelegate, public NSLayoutItem {
 public:
  explicit NSView(NSRect frame = {});
  ~NSView() override;

  // Tree

  [[nodiscard]] Ref<NSView> superview() const { return superview_.lock(); }
  /// Back to front.
  [[nodiscard]] const std::vector<Ref<NSView>>& subviews() const;
  [[nodiscard]] Ref<NSWindow> window() const;
  /// Adds in front of the other subviews; a view that is elsewhere moves. A view that contains this one
  /// is a fatal error.
  void addSubview(Ref<NSView> view);
  /// Adds next to `sibling`, or in front of or behind all when that is absent.
  void addSubview(Ref<NSView> view, NSViewOrdering positioned, const NSView* sibling);
  void removeFromSuperview();
  /// True also for the view itself.
  [[nodiscard]] bool isDescendantOf(const NSView& view) const;

  /// Called on a view and then its subviews, before and after the window changes; absent for none. What is
  /// taken elsewhere in the first call does not get the window any more.
  virtual void viewWillMoveToWindow(NSWindow* window);
  virtual void viewDidMoveToWindow() {}
  virtual void viewDidMoveToSuperview() {}

  // Geometry

  /// In the superview's space.
  [[nodiscard]] NSRect frame() const { return frame_; }
  virtual void setFrame(NSRect frame);
  void setFrameOrigin(NSPoint origin) { setFrame({origin, frame_.size}); }
  void setFrameSize(NSSize size) { setFrame({frame_.origin, size}); }
  /// The visible part of the own space.
  [[nodiscard]] NSRect bounds() const { return {boundsOrigin_, frame_.size}; }
  /// Scrolls the content: moves what of the own space lies at the view's corner.
  void setBoundsOrigin(NSPoint origin);
  /// What of the bounds no superview cuts off, in the own space.
  [[nodiscard]] NSRect visibleRect() const;
  /// Asks the nearest superview that scrolls to show `rect`, which is in the own space, moving its content
  /// as little as possible. False when nothing had to move, or nothing scrolls.
  virtual bool scrollToVisible(NSRect rect);
  /// Whether the own y axis runs down. Must answer the same for the life of the view.
  [[nodiscard]] virtual bool isFlipped() const { return false; }

  /// An absent view means the window's base coordinates. Views of different windows are a fatal error.
  [[nodiscard]] NSPoint convertPointTo(NSPoint point, const NSView* view) const;
  [[nodiscard]] NSPoint convertPointFrom(NSPoint point, const NSView* view) const;
  [[nodiscard]] NSRect convertRectTo(const NSRect& rect, const NSView* view) const;
  [[nodiscard]] NSRect convertRectFrom(const NSRect& rect, const NSView* view) const;

  [[nodiscard]] NSAutoresizingMask autoresizingMask() const { return autoresizingMask_; }
  void setAutoresizingMask(NSAutoresizingMask mask) { autoresizingMask_ = mask; }
  [[nodiscard]] bool autoresizesSubviews() const { return autoresizesSubviews_; }
  void setAutoresizesSubviews(bool autoresizes) { autoresizesSubviews_ = autoresizes; }

  /// The application's unless it was set.
  [[nodiscard]] NSUserInterfaceLayoutDirection userInterfaceLayoutDirection() const;
  void setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection direction);

  // Events

  /// The front-most view at `point`, which is in the superview's space (in the own without one); none
  /// when this view is hidden or the point is outside its frame.
  /// A superview asks only those subviews in whose frame the point lies.
  [[nodiscard]] virtual Ref<NSView> hitTest(NSPoint point);
  /// Whether the press that brings the window to the keyboard is also this view's.
  [[nodiscard]] virtual bool acceptsFirstMouse(NSEvent&) const { return false; }
  /// Whether a click gives this view the keyboard where focus is given by need only.
  [[nodiscard]] virtual bool needsPanelToBecomeKey() const { return false; }
  /// Whether a left press on the view makes it first responder before `mouseDown`.
  [[nodiscard]] virtual bool takesFocusOnClick() const { return acceptsFirstResponder(); }
  [[nodiscard]] Ref<NSResponder> nextResponder() const override;
  bool performKeyEquivalent(NSEvent& event) override;

  [[nodiscard]] Ref<NSView> nextKeyView() const;
  /// Links the loop in both directions.
  void setNextKeyView(NSView* view);
  [[nodiscard]] Ref<NSView> previousKeyView() const;
  /// The first of the loop after this view that `canBecomeKeyView`; none after one round.
  [[nodiscard]] Ref<NSView> nextValidKeyView() const;
  [[nodiscard]] Ref<NSView> previousValidKeyView() const;
  [[nodiscard]] virtual bool canBecomeKeyView() const;

  // Tracking

  /// In order of addition.
  [[nodiscard]] const std::vector<Ref<NSTrackingArea>>& trackingAreas() const;
  /// An area belongs to one view at a time; an absent one, or one that is here already, changes nothing.
  void addTrackingArea(Ref<NSTrackingArea> area);
  /// Nothing happens when the area is not here.
  void removeTrackingArea(const Ref<NSTrackingArea>& area);
  /// Called once in the commit pass after the view, or one that contains it, moved, was sized or scrolled,
  /// was shown again or came into a window. Overrides that replace areas call the base too.
  virtual void updateTrackingAreas() {}

  // Focus ring

  [[nodiscard]] NSFocusRingType focusRingType() const { return focusRingType_; }
  void setFocusRingType(NSFocusRingType type);
  /// Around what `drawFocusRingMask` fills, in the own space. Empty, as here, for no ring.
  [[nodiscard]] virtual NSRect focusRingMaskBounds() { return {}; }
  /// Fills, opaquely and in the own space, the shape around which the platform draws the ring while the
  /// view is first responder of the key window. The bounds, unless overridden.
  virtual void drawFocusRingMask();
  /// To be called when the mask changed; a display or a new size of the view implies it.
  void noteFocusRingMaskChanged();

  // Visibility

  [[nodiscard]] bool isHidden() const { return hidden_; }
  virtual void setHidden(bool hidden);
  [[nodiscard]] bool isHiddenOrHasHiddenAncestor() const;
  /// 0 to 1, of the view with its subviews.
  [[nodiscard]] CGFloat alphaValue() const;
  void setAlphaValue(CGFloat alpha);
  /// The shadow of what the view shows, none at first. A copy is kept: whoever changes a shadow sets it
  /// again.
  [[nodiscard]] const Ref<NSShadow>& shadow() const;
  void setShadow(const Ref<NSShadow>& shadow);

  [[nodiscard]] const std::string& identifier() const;
  void setIdentifier(std::string identifier);

  // Layer and drawing

  [[nodiscard]] bool wantsLayer() const { return wantsLayer_; }
  void setWantsLayer(bool wants);
  /// None while the view has neither a window nor a superview with a layer nor wants one. In a window that
  /// was not shown yet it is made, with those of all that the view contains, when it is first asked for.
  [[nodiscard]] const Ref<CALayer>& layer() const;
  /// Called once, when the view needs its layer: when its window shows it, or before when somebody asks.
  /// Answering none is a fatal error.
  [[nodiscard]] virtual Ref<CALayer> makeBackingLayer();

  /// True: `updateLayer` sets the layer's properties instead of `draw` painting into a bitmap.
  [[nodiscard]] virtual bool wantsUpdateLayer() const { return false; }
  /// Both are called in a display pass only.
  virtual void updateLayer() {}
  /// Paints into the current `NSGraphicsContext`, whose user space is the own space.
  virtual void draw(NSRect dirtyRect);

  [[nodiscard]] bool needsDisplay() const { return needsDisplay_; }
  void setNeedsDisplay(bool needsDisplay);
  [[nodiscard]] NSViewLayerContentsRedrawPolicy layerContentsRedrawPolicy() const { return redrawPolicy_; }
  void setLayerContentsRedrawPolicy(NSViewLayerContentsRedrawPolicy policy) { redrawPolicy_ = policy; }

  // Layout

  [[nodiscard]] bool needsLayout() const { return needsLayout_; }
  void setNeedsLayout(bool needsLayout);
  /// Places the subviews. Called in the layout pass when marked, superviews first. The frames that follow
  /// from constraints are set before; the default sets those that follow from changes of this pass.
  virtual void layout();
  /// Solves the constraints and lays out the marked views of this tree now.
  void layoutSubtreeIfNeeded();

  // Constraints

  /// True, as at first: the frame stands, and the mask, as required constraints. False: constraints alone
  /// place the view, with its intrinsic size.
  [[nodiscard]] bool translatesAutoresizingMaskIntoConstraints() const;
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates);
  /// The size of the alignment rectangle that the content wants, in points; `NSViewNoIntrinsicMetric` for
  /// none along that axis. Asked for after `invalidateIntrinsicContentSize`, not each time.
  [[nodiscard]] virtual NSSize intrinsicContentSize() const;
  /// To be called when the intrinsic size, a baseline or the insets changed. The constraints are solved
  /// again before the next display.
  void invalidateIntrinsicContentSize();
  /// How much the view minds to be larger than its intrinsic size, and to be smaller.
  [[nodiscard]] NSLayoutPriority contentHuggingPriority(NSLayoutConstraintOrientation orientation) const;
  void setContentHuggingPriority(NSLayoutPriority priority, NSLayoutConstraintOrientation orientation);
  [[nodiscard]] NSLayoutPriority contentCompressionResistancePriority(
      NSLayoutConstraintOrientation orientation) const;
  void setContentCompressionResistancePriority(NSLayoutPriority priority,
                                               NSLayoutConstraintOrientation orientation);
  /// From the edges of the alignment rectangle, in points.
  [[nodiscard]] virtual CGFloat firstBaselineOffsetFromTop() const { return 0; }
  [[nodiscard]] virtual CGFloat lastBaselineOffsetFromBottom() const { return 0; }
  /// How far above the lower edge constraints find the last baseline: for views that publish their offset
  /// with another sign.
  [[nodiscard]] virtual CGFloat lastBaselineDistanceFromBottom() const {
    return lastBaselineOffsetFromBottom();
  }
  /// By how much the frame is larger than the alignment rectangle, for what is not to be aligned by: shadows,
  /// badges. Sides are meant as seen.
  [[nodiscard]] virtual NSEdgeInsets alignmentRectInsets() const { return {}; }
  /// The least size that the constraints within the view and its intrinsic size admit.
  [[nodiscard]] virtual NSSize fittingSize() const;

  /// The active constraints between items below and at this view that no view further down holds.
  [[nodiscard]] std::vector<Ref<NSLayoutConstraint>> constraints() const;
  [[nodiscard]] std::vector<Ref<NSLayoutGuide>> layoutGuides() const;
  void addLayoutGuide(Ref<NSLayoutGuide> guide);
  /// Ends the constraints that name the guide.
  void removeLayoutGuide(NSLayoutGuide& guide);

  [[nodiscard]] NSObject& layoutObject() override { return *this; }
  [[nodiscard]] Ref<NSView> layoutContainer() const override { return superview(); }
  [[nodiscard]] Ref<NSView> layoutView() override { return this; }

  /// Called after the application's appearance changed and when the view enters a window.
  virtual void viewDidChangeEffectiveAppearance() {}
  /// Called after the scale of the view's window changed and when the view enters a window.
  virtual void viewDidChangeBackingProperties() {}

  // NSAccessibility: a plain view is no element and has its subviews as children

  [[nodiscard]] std::string accessibilityIdentifier() const override;
  [[nodiscard]] bool isAccessibilityHidden() const override;
  [[nodiscard]] bool isAccessibilityFocused() const override;
  [[nodiscard]] bool isAccessibilityFocusable() const override { return acceptsFirstResponder(); }
  [[nodiscard]] std::vector<Ref<NSAccessibility>> accessibilityChildren() const override;
  [[nodiscard]] Ref<NSAccessibility> accessibilityParent() const override;
  [[nodiscard]] NSRect accessibilityFrame() const override;
  [[nodiscard]] NSRect accessibilityVisibleFrame() const override;
  bool accessibilityPerformFocus() override;

  // CALayerDelegate
  bool displayLayer(CALayer& layer) override;
  void drawLayer(CALayer& layer, CGContext& context) override;
  /// A view's own layer changes at once unless the animation context allows implicit animation.
  std::optional<Ref<CAAction>> actionForLayer(CALayer& layer, std::string_view key) override;

 protected:
  void didInit() override;
  /// Called when the view has got its layer, with the layers of its subviews in it.
  virtual void didMakeBackingLayer() {}

 private:
  friend class NSApplication;
  friend class FocusRing;
  friend class NSLayoutConstraint;
  friend class LayoutEngine;
  friend class NSWindow;

  friend bool viewIsBehind(const NSView& a, const NSView& b);
  struct Subviews;
  struct Extras;

  [[nodiscard]] const Extras& extras() const;
  Extras& ownExtras();
  [[nodiscard]] std::size_t placeBeside(const NSView* sibling, NSViewOrdering positioned) const;
  void insertSubview(const Ref<NSView>& view, NSViewOrdering positioned, const NSView* sibling);
  void takeIn(NSView& view);
  [[nodiscard]] bool wouldContainItself(const NSView& view) const;
  /// Called when a view is a subview no more, before anybody else hears of it.
  virtual void subviewWasTaken(NSView&) {}
  void moveToWindow(NSWindow* window);
  [[nodiscard]] bool belongsTo(const NSWindow* window) const;
  bool adoptWindow(NSWindow* window);
  void didAdoptWindow(NSWindow* window);
  void makeLayer();
  void createLayer();
  void fillLayer();
  void makePendingLayers();
  void makePendingLayersBelow();
  void dropLayerUnlessWanted();
  void adoptLayerOfSubview(NSView& view);
  void putLayerOfSubview(NSView& view, const CALayer* next);
  [[nodiscard]] const CALayer* layerInFrontOf(const NSView& view) const;
  void updateLayerGeometry();
  void updateLayerShadow();
  void resizeSubviews(NSSize oldSize);
  /// How the own space lies in that of a superview, or in base coordinates: moved, and turned over or not.
  struct Placement {
    NSPoint origin;
    CGFloat up = 1;
    [[nodiscard]] NSPoint apply(NSPoint p) const { return {origin.x + p.x, origin.y + up * p.y}; }
    [[nodiscard]] NSPoint undo(NSPoint p) const { return {p.x - origin.x, up * (p.y - origin.y)}; }
    [[nodiscard]] NSRect apply(const NSRect& rect) const;
    [[nodiscard]] NSRect undo(const NSRect& rect) const;
  };
  [[nodiscard]] Placement placementInSuperview() const;
  [[nodiscard]] Placement placementInWindow() const;
  [[nodiscard]] Ref<NSView> validKeyView(Ref<NSView> (NSView::*next)() const) const;
  // Whether a view in here waits for the layout, or for its tracking areas to follow it.
  [[nodiscard]] bool subtreeNeedsPass();
  template <typename Marked>
  class MarkedWalk;
  template <typename Marked>
  void markUpwards(Marked Subviews::*marked, bool NSView::*flag);
  template <typename Marked>
  bool takeMark(Marked Subviews::*marked, bool NSView::*flag);
  void markLayoutUpwards();
  bool layOutIfMarked();
  void markTrackingStale();
  void updateTrackingInTree();
  void refreshTracking();
  [[nodiscard]] bool mayHit(const NSPoint& point) const;
  [[nodiscard]] bool stepToCandidate(std::size_t& index, const NSPoint& point) const;
  void layoutMarkedViews();
  void updateConstraints();
  [[nodiscard]] NSView& layoutRoot();
  [[nodiscard]] Ref<LayoutEngine> layoutEngine();
  [[nodiscard]] Ref<LayoutEngine> restoredLayoutEngine();
  [[nodiscard]] LayoutEngine& madeLayoutEngine();
  [[nodiscard]] std::vector<Ref<NSLayoutConstraint>> heldConstraints();
  void willLeaveLayoutTree();
  void didEnterLayoutTree();
  void layoutTreeWillEnd();
  void layoutPropertyDidChange();
  void scaleDidChange(CGFloat scale);
  void appearanceDidChange();
  void layoutDirectionDidChange();

  /// Calls `visit` on the view and all below it, superviews first, on a snapshot.
  template <typename Visit>
  void forTree(Visit&& visit) {
    const Ref<NSView> self(this);
    visit(*this);
    // Most views contain nothing.
    if (subviews().empty()) return;
    std::vector<Ref<NSView>> waiting(subviews().rbegin(), subviews().rend());
    while (!waiting.empty()) {
      const Ref<NSView> view = std::move(waiting.back());
      waiting.pop_back();
      visit(*view);
      const auto& inside = view->subviews();
      waiting.insert(waiting.end(), inside.rbegin(), inside.rend());
    }
  }
  template <typename Visit>
  void forLayoutParts(Visit&& visit);

  inline static int movesInProgress_ = 0;  // trees that have left one window and not reached another

  NSRect frame_;
  NSPoint boundsOrigin_;
  Weak<NSView> superview_;
  Weak<NSWindow> window_;
  std::unique_ptr<Subviews> subviews_;  // from the first one on
  Ref<CALayer> layer_;
  std::unique_ptr<Extras> extras_;
  // Where it stands among the subviews, those to lay out and those to track.
  std::uint32_t place_ = 0;
  std::uint32_t layoutPlace_ = notMarked;
  std::uint32_t trackingPlace_ = notMarked;
  NSAutoresizingMask autoresizingMask_ = NSViewNotSizable;
  NSViewLayerContentsRedrawPolicy redrawPolicy_ = NSViewLayerContentsRedrawPolicy::duringViewResize;
  NSFocusRingType focusRingType_ = NSFocusRingType::default_;
  bool autoresizesSubviews_ = true;
  bool superviewIsFlipped_ = false;
  bool hasFocusRing_ = false;
  bool trackingIsStale_ = true;
  bool subtreeTrackingIsStale_ = true;
  bool hidden_ = false;
  bool wantsLayer_ = false;
  bool layersArePending_ = false;  // this or one below has none, in a window that was not shown yet
  bool needsDisplay_ = true;
  bool needsLayout_ = true;
  bool subtreeNeedsLayout_ = true;
};

}  // namespace bkuk
