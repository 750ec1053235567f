#pragma once

#include <functional>

#include "BrenvikUIKit/interaction/BKUKKeyFocusControllerDelegate.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/drawing/NSImage.h"
#include "platform/foundation/WeakDelegate.h"

namespace bkuk {

/// Decides for one view whether it may take the keyboard, remembers whether it has it, and supplies the mask
/// of the platform's focus ring. The view owns it.
class BKUKKeyFocusController : public NSObject {
 public:
  enum class Preset {
    textField,  ///< takes the keyboard always
    button,     ///< takes it where the desktop lets all controls do so
    inactive    ///< never takes it
  };

  using RingFrame = std::function<NSRect()>;
  using RingPath = std::function<Ref<NSBezierPath>()>;  ///< may answer none
  using RingImage = std::function<Ref<NSImage>()>;      ///< opaque where the mask is; may answer none

  BKUKKeyFocusController(NSView* view, Preset preset);

  /// What `drawFocusRing` of a new controller starts with: true, unless a function is assigned.
  static std::function<bool()>& defaultDrawFocusRing;

  [[nodiscard]] BKUKKeyFocusControllerDelegate* delegate() const { return delegate_.get(); }
  /// Held weakly.
  void setDelegate(BKUKKeyFocusControllerDelegate* delegate) { delegate_ = delegate; }
  [[nodiscard]] Ref<NSView> view() const { return view_.lock(); }
  void setView(NSView* view) { view_ = view; }

  /// Whether Tab reaches the view in the desktop's usual mode.
  [[nodiscard]] bool enableRegularFocus() const { return enableRegularFocus_; }
  void setEnableRegularFocus(bool enable) { enableRegularFocus_ = enable; }
  /// Whether it does while full keyboard access is on.
  [[nodiscard]] bool enableFullKeyboardFocus() const { return enableFullKeyboardFocus_; }
  void setEnableFullKeyboardFocus(bool enable) { enableFullKeyboardFocus_ = enable; }

  /// True: the component shows the keyboard's place itself, and the platform's ring stays away.
  [[nodiscard]] bool drawFocusRing() const { return drawFocusRing_; }
  void setDrawFocusRing(bool draws);
  [[nodiscard]] bool focused() const { return focused_; }

  /// The ring's frame in the view's space; absent for the bounds.
  [[nodiscard]] const RingFrame& ringFrame() const { return ringFrame_; }
  void setRingFrame(RingFrame frame);
  [[nodiscard]] const RingPath& ringPath() const { return ringPath_; }
  void setRingPath(RingPath path);
  [[nodiscard]] const RingImage& ringImage() const { return ringImage_; }
  void setRingImage(RingImage image);

  /// False without a view, or with one that cannot be seen; else what the desktop's mode and the two
  /// permissions make of it.
  [[nodiscard]] bool canBecomeKeyView() const;

  /// To be called by the view when it becomes first responder; false refuses.
  bool becomeFocused();
  /// To be called by the view when it no longer is.
  void resignFocus();

  [[nodiscard]] NSRect focusRingMaskBounds() const;
  /// Fills the mask with the image, else the path. False when the view is to fill its own shape.
  [[nodiscard]] bool drawFocusRingMask() const;

  [[nodiscard]] std::string className() const override { return "BKUKKeyFocusController"; }

 private:
  void tellDelegate();
  void ringDidChange();

  WeakDelegate<BKUKKeyFocusControllerDelegate> delegate_;
  Weak<NSView> view_;
  bool enableRegularFocus_;
  bool enableFullKeyboardFocus_;
  bool drawFocusRing_;
  bool focused_ = false;
  RingFrame ringFrame_;
  RingPath ringPath_;
  RingImage ringImage_;
};

}  // namespace bkuk
