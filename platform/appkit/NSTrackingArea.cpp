#include "platform/appkit/NSTrackingArea.h"

#include <bit>
#include <utility>

#include "platform/appkit/NSView.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr NSTrackingAreaOptions kinds =
    NSTrackingMouseEnteredAndExited | NSTrackingMouseMoved | NSTrackingCursorUpdate;
constexpr NSTrackingAreaOptions activities = NSTrackingActiveWhenFirstResponder |
                                             NSTrackingActiveInKeyWindow | NSTrackingActiveInActiveApp |
                                             NSTrackingActiveAlways;

}  // namespace

NSTrackingArea::NSTrackingArea(NSRect rect, NSTrackingAreaOptions options, NSResponder* owner,
                               Ref<NSObject> userInfo)
    : rect_(rect), options_(options), owner_(owner), userInfo_(std::move(userInfo)) {
  if ((options & kinds) == 0 || std::popcount(options & activities) != 1) {
    fatal("A tracking area needs something to report and exactly one activity",
          "platform/appkit/NSTrackingArea");
  }
}

NSTrackingArea::~NSTrackingArea() = default;

}  // namespace bkuk
