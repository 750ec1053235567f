#include <memory>

#include "bench/peer/common/Icon.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/kit/Stage.h"
#include "bench/peer/kit/Workloads.h"
#include "bench/peer/qt/Display.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/drawing/NSImage.h"
#include "platform/appkit/drawing/NSShadow.h"

namespace bkuk::bench {

namespace {

constexpr double iconSize = peer::iconSize;

Ref<NSBezierPath> iconPath() {
  using namespace peer;
  const auto point = [](const IconPoint& place) { return NSPoint{place.x, place.y}; };
  const auto path = NSBezierPath::ovalIn(
      {iconCentre.x - iconRadius, iconCentre.y - iconRadius, 2 * iconRadius, 2 * iconRadius});
  path->move(point(iconHandle[0]));
  path->line(point(iconHandle[1]));
  path->move(point(iconTick[0]));
  path->line(point(iconTick[1]));
  path->line(point(iconTick[2]));
  path->setLineWidth(iconStroke);
  path->setLineCapStyle(NSLineCapStyle::round);
  path->setLineJoinStyle(NSLineJoinStyle::round);
  return path;
}

CGContext& currentContext() { return *NSGraphicsContext::current()->cgContext(); }

Ref<NSImage> iconImage() {
  auto image = make<NSImage>(CGSize{iconSize, iconSize});
  image->lockFocus();
  currentContext().concatenate({1, 0, 0, -1, 0, iconSize});
  NSColor::black()->set();
  iconPath()->stroke();
  image->unlockFocus();
  return image;
}

/// A view that is covered with one icon, stroked each time or kept as pixels.
class IconView : public NSView {
 public:
  enum class Source { path, image };
  explicit IconView(Source source) : source_(source) {}

  [[nodiscard]] bool isFlipped() const override { return true; }
  void draw(NSRect) override {
    NSColor::black()->set();
    for (int i = 0; i < peer::iconGrid.count(); ++i)
      drawIcon({i % peer::iconGrid.columns * iconSize, i / peer::iconGrid.columns * iconSize});
  }

 private:
  void drawIcon(NSPoint origin) const {
    if (source_ == Source::image) return image_->draw({origin, {iconSize, iconSize}});
    auto& context = currentContext();
    context.saveGState();
    context.translateBy(origin.x, origin.y);
    path_->stroke();
    context.restoreGState();
  }

  const Source source_;
  const Ref<NSBezierPath> path_ = iconPath();
  const Ref<NSImage> image_ = iconImage();
};

Result repaintIcons(IconView::Source source) {
  Stage stage({peer::iconGrid.columns * iconSize, peer::iconGrid.rows * iconSize});
  auto view = make<IconView>(source);
  stage.window().setContentView(view);
  stage.showFirstFrame();
  Stage::settle();
  return {peer::iconGrid.count(), peer::costsOf(40, [&] { stage.paintAgain(Stage::Redraw::views); })};
}

class Card : public NSView {
 public:
  using NSView::NSView;
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override {
    layer()->setBackgroundColor(CGColor::white());
    layer()->setCornerRadius(peer::cardRadius);
  }

 protected:
  void didInit() override {
    NSView::didInit();
    const auto shadow = make<NSShadow>();
    shadow->setShadowOffset({0, -peer::shadowOffset});
    shadow->setShadowBlurRadius(peer::shadowBlur / 2.0);  // a standard deviation
    shadow->setShadowColor(NSColor::black()->withAlphaComponent(peer::shadowOpacity));
    setShadow(shadow);
  }
};

std::unique_ptr<Stage> makeCards() {
  constexpr auto cells = peer::cardGrid;
  constexpr double height = cells.rows * peer::cardCellHeight;
  auto stage = std::make_unique<Stage>(NSSize{cells.columns * peer::cardCellWidth, height});
  for (int i = 0; i < cells.count(); ++i) {
    const double x = i % cells.columns * peer::cardCellWidth + peer::cardInset;
    const double y = i / cells.columns * peer::cardCellHeight + peer::cardInset;
    stage->content().addSubview(
        make<Card>(NSRect(x, height - y - peer::cardHeight, peer::cardWidth, peer::cardHeight)));
  }
  return stage;
}

}  // namespace

Result drawIcons() { return repaintIcons(IconView::Source::image); }
Result strokeIcons() { return repaintIcons(IconView::Source::path); }

Result showShadows() {
  const auto stage = makeCards();
  return {1, {peer::costOf([&] { stage->showFirstFrame(); })}};
}

Result repaintShadows() {
  const auto stage = makeCards();
  stage->showFirstFrame();
  Stage::settle();
  return {1, peer::costsOf(20, [&] { stage->paintAgain(Stage::Redraw::nothing); })};
}

}  // namespace bkuk::bench
