#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// A view of which a test says what constraints ask views for.
class LayoutView : public NSView {
 public:
  using NSView::NSView;

  NSSize intrinsic{NSViewNoIntrinsicMetric, NSViewNoIntrinsicMetric};
  NSEdgeInsets insets;
  CGFloat firstBaseline = 0;
  CGFloat lastBaseline = 0;
  bool flipped = false;
  int layouts = 0;
  std::function<void()> onLayout;

  bool isFlipped() const override { return flipped; }
  NSSize intrinsicContentSize() const override { return intrinsic; }
  NSEdgeInsets alignmentRectInsets() const override { return insets; }
  CGFloat firstBaselineOffsetFromTop() const override { return firstBaseline; }
  CGFloat lastBaselineOffsetFromBottom() const override { return lastBaseline; }
  void layout() override {
    NSView::layout();
    ++layouts;
    if (onLayout) onLayout();
  }
};

/// A view placed by constraints in `parent`.
inline Ref<LayoutView> placedView(NSView& parent,
                                  NSSize intrinsic = {NSViewNoIntrinsicMetric, NSViewNoIntrinsicMetric}) {
  const auto view = make<LayoutView>();
  view->intrinsic = intrinsic;
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  parent.addSubview(view);
  return view;
}

inline Ref<NSLayoutConstraint> activated(Ref<NSLayoutConstraint> constraint) {
  constraint->setActive(true);
  return constraint;
}

/// A view of 200 by 100 in the middle of a window.
struct LayoutFixture {
  Ref<NSWindow> window = make<NSWindow>(NSRect(100, 100, 400, 300));
  Ref<LayoutView> root = make<LayoutView>(NSRect(50, 20, 200, 100));

  explicit LayoutFixture(bool flipped = false) {
    root->flipped = flipped;
    window->contentView()->addSubview(root);
    window->layoutIfNeeded();
  }
  ~LayoutFixture() { window->close(); }
};

}  // namespace bkuk
