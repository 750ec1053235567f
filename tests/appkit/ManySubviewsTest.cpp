// Views with so many subviews that they are not asked one by one: what is found must be what asking all
// finds.

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/window/ViewOrder.h"
#include "testing/VirtualHostScope.h"
#include "tests/support/RandomRun.h"

namespace bkuk {
namespace {

constexpr NSSize windowSize{200, 150};

/// Writes down what it is asked for and may pass it on to others.
class Witness : public NSView {
 public:
  using NSView::NSView;
  void layout() override {
    NSView::layout();
    laidOut.push_back(this);
    if (marksWhenLaidOut) marksWhenLaidOut->setNeedsLayout(true);
  }
  void updateTrackingAreas() override { tracked.push_back(this); }

  NSView* marksWhenLaidOut = nullptr;
  static inline std::vector<const NSView*> laidOut;
  static inline std::vector<const NSView*> tracked;
};

class Forest {
 public:
  explicit Forest(unsigned seed) : random_(seed) {
    window_ = make<NSWindow>(NSRect{0, 0, windowSize.width, windowSize.height});
    groups_.push_back(window_->contentView());
    for (int i = 0; i < 200; ++i) add();
  }
  ~Forest() { window_->close(); }

  void show() {
    window_->orderFront();
    host_->settle();
  }

  void change() {
    const auto view = anyView();
    switch (random_.below(6)) {
      case 0:
        return add();
      case 1:
        return remove(view);
      case 2:
        return view->setHidden(random_.once(2));
      case 3:
        return anyGroup()->addSubview(view, random_.once(2) ? NSViewOrdering::above : NSViewOrdering::below,
                                      random_.once(2) ? anyView().get() : nullptr);
      default:
        return view->setFrame(randomFrame());
    }
  }

  void compareHits() {
    const NSPoint point{random_.between(0, windowSize.width), static_cast<double>(random_.below(150))};
    const auto& root = *window_->contentView();
    ASSERT_EQ(window_->contentView()->hitTest(point), hitAskingAll(*window_->contentView(), point));
    ASSERT_EQ(root.frame().origin, NSPoint());
  }

  // Of some views, marked in any order.
  void compareOrderOfLayout() {
    host_->settle();
    std::vector<const NSView*> marked;
    for (int i = 0; i < 12; ++i) {
      const auto view = anyView();
      view->setNeedsLayout(true);
      view->setFrameOrigin({view->frame().origin.x + 1, 0});
      marked.push_back(view.get());
    }
    Witness::laidOut.clear();
    Witness::tracked.clear();
    host_->settle();
    ASSERT_EQ(Witness::laidOut, inOrder(marked));
    for (const auto* view : marked) ASSERT_EQ(std::ranges::count(Witness::tracked, view), 1);
    ASSERT_EQ(Witness::tracked, inOrder(Witness::tracked));
  }

  void compareLayers() const { compareLayers(*window_->contentView()); }

  void askForALayer() const { ASSERT_TRUE(anyView()->layer()); }

 private:
  static void compareLayers(const NSView& view) {
    ASSERT_TRUE(view.layer());
    std::vector<Ref<CALayer>> expected;
    for (const auto& subview : view.subviews()) {
      expected.push_back(subview->layer());
      compareLayers(*subview);
    }
    ASSERT_EQ(view.layer()->sublayers(), expected);
  }

  static Ref<NSView> hitAskingAll(NSView& view, NSPoint point) {
    if (view.isHidden() || !NSMouseInRect(point, view.frame(), false)) return nullptr;
    point = {point.x - view.frame().origin.x, point.y - view.frame().origin.y};
    const auto& subviews = view.subviews();
    for (auto each = subviews.rbegin(); each != subviews.rend(); ++each) {
      if (auto hit = hitAskingAll(**each, point)) return hit;
    }
    return Ref<NSView>(&view);
  }

  [[nodiscard]] static std::vector<const NSView*> inOrder(std::vector<const NSView*> views) {
    std::ranges::sort(views, [](const auto* a, const auto* b) { return viewIsBehind(*a, *b); });
    views.erase(std::unique(views.begin(), views.end()), views.end());
    return views;
  }

  [[nodiscard]] NSRect randomFrame() const {
    return {static_cast<double>(random_.below(200)), static_cast<double>(random_.below(150)),
            random_.between(-4, 30), random_.between(1, 30)};
  }
  void add() {
    const auto group = anyGroup();
    const auto view = make<Witness>(randomFrame());
    group->addSubview(view, NSViewOrdering::above,
                      random_.once(3) && !views_.empty() ? anyView().get() : nullptr);
    views_.push_back(view);
    if (groups_.size() < 4 && random_.once(40)) groups_.push_back(view);
  }
  void remove(const Ref<NSView>& view) {
    if (std::ranges::find(groups_, view) != groups_.end()) return;
    view->removeFromSuperview();
    std::erase(views_, view);
  }
  // Groups stay where they are, so none comes into itself.
  [[nodiscard]] Ref<NSView> anyView() const {
    while (true) {
      const auto& view = random_.from(views_);
      if (std::ranges::find(groups_, view) == groups_.end()) return view;
    }
  }
  [[nodiscard]] const Ref<NSView>& anyGroup() const { return random_.from(groups_); }

  mutable RandomRun random_;
  VirtualHostScope host_;
  Ref<NSWindow> window_;
  std::vector<Ref<NSView>> views_;
  std::vector<Ref<NSView>> groups_;
};

TEST(ManySubviewsTest, areFoundAndServedAsIfAllWereAsked) {
  for (const auto seed : RandomRun::seeds({1, 2, 3, 4})) {
    SCOPED_TRACE(seed);
    Forest forest(seed);
    // Before the window is shown only what is asked for has layers.
    for (int step = 0; step < 100; ++step) {
      forest.change();
      if (step % 25 == 24) forest.askForALayer();
      forest.compareHits();
    }
    forest.show();
    for (int step = 0; step < RandomRun::steps(200); ++step) {
      forest.change();
      forest.compareHits();
      if (step % 20 == 0) forest.compareLayers();
      if (step % 20 == 10) forest.compareOrderOfLayout();
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

TEST(ManySubviewsTest, marksThatComeInAPassAreServedInItWhereItHasNotBeen) {
  VirtualHostScope host;
  const auto window = make<NSWindow>(NSRect{0, 0, 100, 100});
  std::vector<Ref<Witness>> views;
  for (int i = 0; i < 40; ++i) {
    views.push_back(make<Witness>());
    window->contentView()->addSubview(views.back());
  }
  window->orderFront();
  host->settle();
  Witness::laidOut.clear();
  views[10]->marksWhenLaidOut = views[30].get();
  views[20]->marksWhenLaidOut = views[5].get();
  views[20]->setNeedsLayout(true);
  views[10]->setNeedsLayout(true);
  window->layoutIfNeeded();
  EXPECT_EQ(Witness::laidOut,
            (std::vector<const NSView*>{views[10].get(), views[20].get(), views[30].get()}));
  window->layoutIfNeeded();
  EXPECT_EQ(Witness::laidOut.back(), views[5].get());
  EXPECT_EQ(Witness::laidOut.size(), 4U);
  window->close();
}

// Asks for its layer where it must not be made: while it is made, and while the view is destroyed.
class Counting : public NSView {
 public:
  ~Counting() override {
    if (asked) *asked = layer();
  }
  [[nodiscard]] Ref<CALayer> makeBackingLayer() override {
    EXPECT_FALSE(layer());
    if (made) ++*made;
    return NSView::makeBackingLayer();
  }
  int* made = nullptr;
  Ref<CALayer>* asked = nullptr;
};

TEST(ManySubviewsTest, aWindowThatIsNotShownMakesNoLayers) {
  VirtualHostScope host;
  int made = 0;
  const auto window = make<NSWindow>(NSRect{0, 0, 100, 100});
  std::vector<Ref<Counting>> views;
  for (int i = 0; i < 3; ++i) {
    views.push_back(make<Counting>());
    views.back()->made = &made;
    (i == 2 ? *views[1] : *window->contentView()).addSubview(views.back());
  }
  host->settle();
  EXPECT_EQ(made, 0);
  // One that is asked for is there at once, with those within it and around it, and no other.
  EXPECT_TRUE(views[1]->layer()->superlayer());
  EXPECT_EQ(views[1]->layer()->sublayers().size(), 1U);
  EXPECT_EQ(made, 2);
  window->orderFront();
  EXPECT_EQ(made, 3);
  EXPECT_EQ(window->contentView()->layer()->sublayers(), (std::vector{views[0]->layer(), views[1]->layer()}));
  window->close();

  auto unseen = make<NSWindow>(NSRect{0, 0, 100, 100});
  auto last = make<Counting>();
  Ref<CALayer> asked;
  last->asked = &asked;
  unseen->contentView()->addSubview(last);
  last = nullptr;
  unseen = nullptr;
  EXPECT_FALSE(asked);
}

}  // namespace
}  // namespace bkuk
