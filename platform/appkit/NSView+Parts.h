#pragma once

#include <cmath>
#include <limits>

#include "platform/appkit/NSTrackingArea.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/drawing/NSShadow.h"
#include "platform/foundation/BoxTree.h"
#include "platform/foundation/SiblingList.h"

namespace bkuk {

/// What a view with subviews keeps about them.
struct NSView::Subviews {
  SiblingList<NSView, &NSView::place_> list;
  /// Those that are marked, or have marked views below.
  MarkedChildren<NSView, &NSView::layoutPlace_> toLayOut;
  MarkedChildren<NSView, &NSView::trackingPlace_> toTrack;

  void insert(const Ref<NSView>& view, std::size_t at) {
    forgetFramesFrom(at);
    list.insert(view, at);
  }
  void erase(NSView& view) {
    const auto at = list.indexOf(view);
    forgetFramesFrom(at);
    toLayOut.remove(view);
    toTrack.remove(view);
    list.erase(at);
  }

  void frameDidChange(const NSView& view) {
    if (frames_.size() == 0) return;
    const auto at = list.indexOf(view);
    if (at < frames_.size()) frames_.set(at, boxOf(view.frame_));
  }
  /// The last before `end` whose frame, edges included, holds the point; `none` when there is no such.
  [[nodiscard]] std::size_t lastAt(const NSPoint& point, std::size_t end) {
    const auto& views = list.all();
    for (std::size_t i = frames_.size(); i < views.size(); ++i) frames_.append(boxOf(views[i]->frame_));
    return frames_.lastTouching({point.x, point.y, point.x, point.y}, end);
  }
  static constexpr std::size_t none = BoxTree<CGFloat>::none;

 private:
  void forgetFramesFrom(std::size_t at) {
    if (at < frames_.size()) frames_.truncate(at);
  }
  // Of what lies nowhere nothing is known.
  [[nodiscard]] static BoxTree<CGFloat>::Box boxOf(const NSRect& frame) {
    constexpr CGFloat far = std::numeric_limits<CGFloat>::infinity();
    const BoxTree<CGFloat>::Box box{frame.minX(), frame.minY(), frame.maxX(), frame.maxY()};
    const bool isKnown = std::isfinite(box.minX + box.maxX) && std::isfinite(box.minY + box.maxY);
    return isKnown ? box : BoxTree<CGFloat>::Box{-far, -far, far, far};
  }

  BoxTree<CGFloat> frames_;  // of as many of the first as were asked for
};

/// What few views are told.
struct NSView::Extras {
  Weak<NSView> nextKeyView;
  Weak<NSView> previousKeyView;
  std::string identifier;
  Ref<NSShadow> shadow;
  CGFloat alphaValue = 1;
  std::optional<NSUserInterfaceLayoutDirection> direction;
  std::vector<Ref<NSTrackingArea>> trackingAreas;
};

}  // namespace bkuk
