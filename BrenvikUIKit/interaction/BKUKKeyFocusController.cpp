#include "BrenvikUIKit/interaction/BKUKKeyFocusController.h"

#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

std::function<bool()>& BKUKKeyFocusController::defaultDrawFocusRing =
    *new std::function<bool()>([] { return true; });

BKUKKeyFocusController::BKUKKeyFocusController(NSView* view, Preset preset)
    : view_(view),
      enableRegularFocus_(preset == Preset::textField),
      enableFullKeyboardFocus_(preset != Preset::inactive),
      drawFocusRing_(required(defaultDrawFocusRing,
                              "BKUKKeyFocusController: defaultDrawFocusRing is empty; assign a function")()) {
}

void BKUKKeyFocusController::setDrawFocusRing(bool draws) {
  drawFocusRing_ = draws;
  ringDidChange();
}

void BKUKKeyFocusController::setRingFrame(RingFrame frame) {
  ringFrame_ = std::move(frame);
  ringDidChange();
}

void BKUKKeyFocusController::setRingPath(RingPath path) {
  ringPath_ = std::move(path);
  ringDidChange();
}

void BKUKKeyFocusController::setRingImage(RingImage image) {
  ringImage_ = std::move(image);
  ringDidChange();
}

void BKUKKeyFocusController::ringDidChange() {
  if (const auto view = view_.lock()) view->noteFocusRingMaskChanged();
}

bool BKUKKeyFocusController::canBecomeKeyView() const {
  const auto view = view_.lock();
  if (!view || view->isHiddenOrHasHiddenAncestor()) return false;
  if (enableFullKeyboardFocus_ && NSApplication::shared().isFullKeyboardAccessEnabled()) return true;
  return enableRegularFocus_;
}

bool BKUKKeyFocusController::becomeFocused() {
  if (!canBecomeKeyView()) return false;
  focused_ = true;
  tellDelegate();
  return true;
}

void BKUKKeyFocusController::resignFocus() {
  focused_ = false;
  tellDelegate();
}

void BKUKKeyFocusController::tellDelegate() {
  const Ref<BKUKKeyFocusController> self(this);
  const auto delegate = delegate_.lock();
  const auto view = view_.lock();
  if (delegate && view) delegate->keyFocusChanged(*view, focused_);
}

NSRect BKUKKeyFocusController::focusRingMaskBounds() const {
  if (ringFrame_) return ringFrame_();
  const auto view = view_.lock();
  return view ? view->bounds() : NSRect();
}

bool BKUKKeyFocusController::drawFocusRingMask() const {
  if (drawFocusRing_) return true;
  if (const auto image = ringImage_ ? ringImage_() : nullptr) {
    image->draw(focusRingMaskBounds());
    return true;
  }
  const auto path = ringPath_ ? ringPath_() : nullptr;
  if (path) path->fill();
  return static_cast<bool>(path);
}

}  // namespace bkuk
