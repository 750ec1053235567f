#pragma once

#include <cstddef>

#include "platform/appkit/NSResponder.h"
#include "platform/foundation/NSGeometry.h"

namespace bkuk {

class NSView;

/// What a tracking area reports and when: at least one of the first three, exactly one of the next four,
/// and any of the rest.
using NSTrackingAreaOptions = unsigned;
inline constexpr NSTrackingAreaOptions NSTrackingMouseEnteredAndExited = 0x01;
inline constexpr NSTrackingAreaOptions NSTrackingMouseMoved = 0x02;
inline constexpr NSTrackingAreaOptions NSTrackingCursorUpdate = 0x04;
inline constexpr NSTrackingAreaOptions NSTrackingActiveWhenFirstResponder = 0x10;
inline constexpr NSTrackingAreaOptions NSTrackingActiveInKeyWindow = 0x20;
inline constexpr NSTrackingAreaOptions NSTrackingActiveInActiveApp = 0x40;
inline constexpr NSTrackingAreaOptions NSTrackingActiveAlways = 0x80;
/// The pointer counts as inside until the first event, which is then the exit.
inline constexpr NSTrackingAreaOptions NSTrackingAssumeInside = 0x100;
/// The view's visible rectangle stands for the area's own.
inline constexpr NSTrackingAreaOptions NSTrackingInVisibleRect = 0x200;
/// Entries are reported while a button is held too.
inline constexpr NSTrackingAreaOptions NSTrackingEnabledDuringMouseDrag = 0x400;

/// A rectangle of a view that reports the pointer's coming and going to its owner.
///
/// Areas look at rectangles only: one that is covered by another view reports as if it were not. Entries
/// and exits alternate. Without `assumeInside` an area that is added under the pointer starts out as
/// entered, without a report. Taking an area away reports nothing.
class NSTrackingArea : public NSObject {
 public:
  /// `rect` is in the space of the view that it will be added to. The owner is not kept alive. Options
  /// without a kind of report, or without exactly one `active…`, are a fatal error.
  NSTrackingArea(NSRect rect, NSTrackingAreaOptions options, NSResponder* owner,
                 Ref<NSObject> userInfo = nullptr);
  ~NSTrackingArea() override;

  [[nodiscard]] NSRect rect() const { return rect_; }
  [[nodiscard]] NSTrackingAreaOptions options() const { return options_; }
  [[nodiscard]] bool has(NSTrackingAreaOptions option) const { return (options_ & option) != 0; }
  [[nodiscard]] Ref<NSResponder> owner() const { return owner_.lock(); }
  [[nodiscard]] const Ref<NSObject>& userInfo() const { return userInfo_; }

 private:
  friend class NSView;
  friend class WindowTracking;

  static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

  NSRect rect_;
  NSTrackingAreaOptions options_;
  Weak<NSResponder> owner_;
  Ref<NSObject> userInfo_;
  Weak<NSView> view_;
  std::size_t place_ = nowhere;  // among the window's areas
};

}  // namespace bkuk
