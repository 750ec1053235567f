#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Window.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/quartzcore/CARenderer.h"

namespace bkuk {

class NSCursor;
class FocusRing;
class NSTrackingArea;
class WindowMouseRouter;
class WindowTracking;

/// What a window is made of; a sum of bits.
using NSWindowStyleMask = unsigned;
inline constexpr NSWindowStyleMask NSWindowStyleMaskBorderless = 0;
inline constexpr NSWindowStyleMask NSWindowStyleMaskTitled = 1;
inline constexpr NSWindowStyleMask NSWindowStyleMaskClosable = 2;
inline constexpr NSWindowStyleMask NSWindowStyleMaskMiniaturizable = 4;
inline constexpr NSWindowStyleMask NSWindowStyleMaskResizable = 8;
inline constexpr NSWindowStyleMask NSWindowStyleMaskNonactivatingPanel = 1U << 7;
inline constexpr NSWindowStyleMask NSWindowStyleMaskFullSizeContentView = 1U << 15;

enum class NSBackingStoreType { buffered = 2 };
enum class NSWindowOrderingMode { below = -1, out = 0, above = 1 };

/// How far in front a window stands: a greater number is in front of a lesser one.
using NSWindowLevel = int;
inline constexpr NSWindowLevel NSNormalWindowLevel = 0;
inline constexpr NSWindowLevel NSPopUpMenuWindowLevel = 101;

/// Posted with the window as object, before it leaves the screen for good.
inline constexpr std::string_view NSWindowWillCloseNotification = "NSWindowWillCloseNotification";
inline constexpr std::string_view NSWindowDidBecomeKeyNotification = "NSWindowDidBecomeKeyNotification";
inline constexpr std::string_view NSWindowDidResignKeyNotification = "NSWindowDidResignKeyNotification";
inline constexpr std::string_view NSWindowDidResizeNotification = "NSWindowDidResizeNotification";

/// A window of the desktop: a tree of views, the place where its events go, and the image that it
/// shows.
///
/// Base coordinates are in points, y up from the lower left corner of the content. The desktop draws
/// the title bar outside of it, so a window's frame is its content's. A window that is ordered in is
/// kept alive by the application until it is ordered out or closed.
class NSWindow : public NSResponder {
 public:
  explicit NSWindow(NSRect contentRect,
                    NSWindowStyleMask styleMask = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                                                  NSWindowStyleMaskMiniaturizable |
                                                  NSWindowStyleMaskResizable,
                    NSBackingStoreType backing = NSBackingStoreType::buffered, bool defer = true);
  ~NSWindow() override;

  // Content

  /// Fills the window. Never absent: a plain view until it is set; an absent one gives a new plain view, and
  /// so does one that is put elsewhere. Its autoresizing mask is translated into constraints.
  [[nodiscard]] const Ref<NSView>& contentView() const { return contentView_; }
  void setContentView(Ref<NSView> view);

  [[nodiscard]] NSWindowStyleMask styleMask() const { return styleMask_; }
  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(std::string title);

  /// Painted under the views; absent, as at first, for the appearance's own window colour. Resolved
  /// when it is painted.
  [[nodiscard]] const Ref<NSColor>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Ref<NSColor> color);

  /// False keeps the alpha of what is painted; to be set before the window is first shown.
  [[nodiscard]] bool isOpaque() const { return opaque_; }
  void setOpaque(bool opaque) { opaque_ = opaque; }
  [[nodiscard]] bool ignoresMouseEvents() const { return ignoresMouseEvents_; }
  /// Normal at first. A desktop tells two kinds apart: from the level of pop-up menus on a window stands in
  /// front of all others. To be set before the window is first shown.
  [[nodiscard]] NSWindowLevel level() const { return level_; }
  void setLevel(NSWindowLevel level) { level_ = level; }
  /// To be set before the window is first shown.
  void setIgnoresMouseEvents(bool ignores) { ignoresMouseEvents_ = ignores; }
  [[nodiscard]] CGFloat alphaValue() const { return alphaValue_; }
  void setAlphaValue(CGFloat alpha);

  // Geometry

  /// In screen space, points, y up.
  [[nodiscard]] NSRect frame() const { return frame_; }
  /// Sizes that no desktop can show are clamped; read the frame back.
  void setFrame(NSRect frame, bool display = false);
  void setContentSize(NSSize size);
  /// A zero maximum means no limit.
  void setContentSizeLimits(NSSize minimum, NSSize maximum = {});
  /// Puts the window in the middle of the main screen's visible part.
  void center();
  [[nodiscard]] NSPoint convertPointToScreen(NSPoint point) const;
  [[nodiscard]] NSPoint convertPointFromScreen(NSPoint point) const;
  /// Device pixels per point.
  [[nodiscard]] CGFloat backingScaleFactor() const;

  // Order and keys

  [[nodiscard]] bool isVisible() const { return visible_; }
  void orderFront();
  void orderOut();
  void makeKey();
  void makeKeyAndOrderFront();
  /// Posts `NSWindowWillCloseNotification`, then orders out. Nothing happens to a window that is not shown.
  void close();
  /// What the user's wish to close the window does: closes it, unless overridden.
  virtual void performClose();

  [[nodiscard]] virtual bool canBecomeKey() const;
  [[nodiscard]] virtual bool canBecomeMain() const { return canBecomeKey(); }
  /// Whether a press on `view`, absent for none, makes a window that can become key do so.
  [[nodiscard]] virtual bool becomesKeyByClick(const NSView* view) const;
  [[nodiscard]] bool isKeyWindow() const;
  [[nodiscard]] bool isMainWindow() const;
  /// Called when the window became, or is no longer, the one that has the keyboard.
  virtual void becomeKey();
  virtual void resignKey();

  [[nodiscard]] Ref<NSWindow> parent() const { return parent_.lock(); }
  [[nodiscard]] const std::vector<Ref<NSWindow>>& childWindows() const { return children_; }
  /// The child keeps its offset when this window moves, and its order above or below it. A window that this
  /// one is a child of, near or far, and the window itself are a fatal error.
  void addChildWindow(Ref<NSWindow> child, NSWindowOrderingMode ordered);
  void removeChildWindow(NSWindow& child);

  [[nodiscard]] Ref<NSObject> delegate() const { return delegate_.lock(); }
  void setDelegate(NSObject* delegate) { delegate_ = delegate; }

  // Events

  [[nodiscard]] Ref<NSResponder> nextResponder() const override { return nullptr; }

  /// Never absent; the window itself when nothing else is.
  [[nodiscard]] Ref<NSResponder> firstResponder() const;
  /// Asks the present first responder to resign; when it refuses, answers false and changes nothing.
  /// Then `responder` is asked to become it; when that refuses, is absent or has left the window meanwhile,
  /// the window takes its place. `acceptsFirstResponder` is asked of nobody. Answers false, with a line on
  /// the standard error stream, for a responder that is neither the window nor a view in it. When the one
  /// that resigns gives the keyboard to another, that stands.
  virtual bool makeFirstResponder(NSResponder* responder);

  [[nodiscard]] Ref<NSView> initialFirstResponder() const { return initialFirstResponder_.lock(); }
  void setInitialFirstResponder(NSView* view) { initialFirstResponder_ = view; }
  void selectNextKeyView();
  void selectPreviousKeyView();
  /// Whether the loop of key views is made anew, in reading order, after views came or went; false at
  /// first. That happens when a key view is next asked for, and overwrites what views were linked to.
  [[nodiscard]] bool autorecalculatesKeyViewLoop() const { return autorecalculatesKeyViewLoop_; }
  void setAutorecalculatesKeyViewLoop(bool recalculates) { autorecalculatesKeyViewLoop_ = recalculates; }
  /// Links all views that may take the keyboard, in reading order, to a closed loop.
  void recalculateKeyViewLoop();

  [[nodiscard]] bool acceptsMouseMovedEvents() const { return acceptsMouseMoved_; }
  void setAcceptsMouseMovedEvents(bool accepts) { acceptsMouseMoved_ = accepts; }
  /// Where the pointer is now, in base coordinates, also when that is outside the window.
  [[nodiscard]] NSPoint mouseLocationOutsideOfEventStream() const;

  /// Dispatches an event to the view or responder that it is for.
  virtual void sendEvent(NSEvent& event);
  /// Tab and Shift-Tab that nobody took move to the next and previous key view.
  void keyDown(NSEvent& event) override;
  bool performKeyEquivalent(NSEvent& event) override;

  // NSAccessibility: an element whose children are the content view's

  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override;
  [[nodiscard]] std::string accessibilityLabel() const override;
  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] bool isAccessibilityFocused() const override;
  [[nodiscard]] Ref<NSAccessibility> accessibilityFocusedUIElement() const override;
  [[nodiscard]] std::vector<Ref<NSAccessibility>> accessibilityChildren() const override;
  [[nodiscard]] NSRect accessibilityFrame() const override;

  // Drawing

  /// Lays out the marked views now.
  void layoutIfNeeded();
  /// Lays out, displays the marked layers and brings what changed to the screen, now.
  void displayIfNeeded();
  /// Asks for a display pass at the end of this turn of the run loop, or in a turn of its own.
  void setNeedsCommit();
  // Whether a commit now would find anything to do.
  [[nodiscard]] bool needsCommit() const;
  /// The pixels of the window as last painted.
  [[nodiscard]] const host::Bitmap& image() const { return renderer_.image(); }
  [[nodiscard]] const CARenderer& renderer() const { return renderer_; }

 protected:
  void didInit() override;

 private:
  friend class NSApplication;
  friend class NSCursor;
  friend class FocusRing;
  friend class NSView;
  friend class WindowFrameView;
  friend class WindowMouseRouter;
  friend class WindowTracking;
  class HostClient;

  void makeHostWindow();
  void handle(const host::WindowEvent& event);
  void handlePointer(const host::PointerEvent& event);
  void handleFrame(const host::Rect& frame);
  void handleFocus(bool focused);
  void adoptFrame(NSRect frame);
  void adoptScale();
  void moveChildren(NSPoint by);
  void raise();
  void showCursor(const NSCursor& cursor);
  void appearanceDidChange();
  void layoutDirectionDidChange();
  void render();
  void updateTracking();
  void followPointer(const host::PointerEvent& event);

  // What views tell their window.
  void viewDidEnter(NSView& view);
  void viewWillLeave(NSView& view);
  void viewHasLeft(NSView& view);
  void contentViewWasTaken();
  void viewsHaveLayers();
  void trackingAreaWasAdded(NSView& view, NSTrackingArea& area);
  void trackingAreaWasRemoved(NSTrackingArea& area);
  void trackingAreaHasMoved(const NSTrackingArea& area);
  void activityDidChange();
  void focusRingDidChange(const NSView& view);
  void placesDidChange();
  void keepEndsOf(const std::vector<Ref<NSView>>& order) const;
  [[nodiscard]] bool holds(const NSResponder& responder) const;
  [[nodiscard]] bool letsGo(NSResponder& present);
  void giveKeyboard(const Ref<NSResponder>& next);
  void giveKeyboardByClick(NSView& view);
  void selectKeyView(Ref<NSView> (NSView::*valid)() const);
  [[nodiscard]] Ref<NSView> endOfLoop(Ref<NSView> (NSView::*valid)() const) const;
  void firstResponderDidChange();

  const NSWindowStyleMask styleMask_;
  std::string title_;
  NSRect frame_;
  NSSize minimumSize_;
  NSSize maximumSize_;
  CGFloat alphaValue_ = 1;
  NSWindowLevel level_ = NSNormalWindowLevel;
  NSWindowOrderingMode orderAsChild_ = NSWindowOrderingMode::above;
  bool opaque_ = true;
  bool ignoresMouseEvents_ = false;
  bool acceptsMouseMoved_ = false;
  bool visible_ = false;
  bool closing_ = false;
  Ref<NSColor> backgroundColor_;
  Ref<NSView> frameView_;
  Ref<NSView> contentView_;
  Weak<NSResponder> firstResponder_;
  Weak<NSResponder> resigning_;  // who is being asked to let go of the keyboard
  int focusDepth_ = 0;           // calls of `makeFirstResponder` from within others
  Weak<NSView> initialFirstResponder_;
  Weak<NSObject> delegate_;
  Weak<NSWindow> parent_;
  std::vector<Ref<NSWindow>> children_;
  CARenderer renderer_;
  bool autorecalculatesKeyViewLoop_ = false;
  bool keyViewLoopIsStale_ = true;
  // The first and the last in reading order, as long as no place changes.
  mutable Weak<NSView> firstInOrder_;
  mutable Weak<NSView> lastInOrder_;
  mutable bool endsAreStale_ = true;
  bool activityIsStale_ = false;
  std::unique_ptr<WindowMouseRouter> mouse_;
  std::unique_ptr<WindowTracking> tracking_;
  std::unique_ptr<FocusRing> focusRing_;
  std::unique_ptr<HostClient> client_;
  std::unique_ptr<host::Window> hostWindow_;  // last: it goes first, and with it the calls to the client
};

}  // namespace bkuk
