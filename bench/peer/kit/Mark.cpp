#include "bench/peer/kit/Mark.h"

#include <map>
#include <tuple>

#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"
#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/style/BKUKStatefulColors.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/drawing/NSBezierPath.h"

namespace bkuk::bench {

namespace {

constexpr NSRect outlineBox{1.5, 1.5, markSize - 3, markSize - 3};
constexpr NSRect dotBox{6, 6, markSize - 12, markSize - 12};

BKUKStatefulColors fillColors(bool isOn) {
  if (isOn) return {BKUKTheme::accent(), BKUKTheme::accentStateA(), BKUKTheme::accentStateB(), nullptr};
  return {BKUKTheme::surface(), BKUKTheme::surfaceStateA(), BKUKTheme::surfaceStateB(), nullptr};
}

Ref<NSBezierPath> outline(MarkShape shape) {
  return shape == MarkShape::box ? NSBezierPath::roundedRect(outlineBox, 3, 3)
                                 : NSBezierPath::ovalIn(outlineBox);
}

void strokeTick(CheckState check) {
  const auto tick = make<NSBezierPath>();
  tick->move({5, 9});
  if (check == CheckState::on) tick->line({8, 6});
  tick->line({13, check == CheckState::on ? 12.0 : 9.0});
  tick->setLineWidth(2);
  tick->setLineCapStyle(NSLineCapStyle::round);
  tick->stroke();
}

void drawMark(MarkShape shape, CheckState check, BKUKInteractionState state) {
  const auto path = outline(shape);
  fillColors(check != CheckState::off)[state]->setFill();
  path->fill();
  BKUKTheme::onBackgroundSecondary()->setStroke();
  path->stroke();
  if (check == CheckState::off) return;
  BKUKTheme::onAccent()->set();
  if (shape == MarkShape::box) return strokeTick(check);
  NSBezierPath::ovalIn(dotBox)->fill();
}

}  // namespace

Ref<NSImage> markImage(MarkShape shape, CheckState check, BKUKInteractionState state) {
  using Key = std::tuple<bool, MarkShape, CheckState, BKUKInteractionState>;
  static auto& images = *new std::map<Key, Ref<NSImage>>;
  auto& image = images[{isDarkMode(NSApplication::shared()), shape, check, state}];
  if (image) return image;
  image = make<NSImage>(CGSize{markSize, markSize});
  image->lockFocus();
  drawMark(shape, check, state);
  image->unlockFocus();
  return image;
}

}  // namespace bkuk::bench
