#include "platform/appkit/window/FocusRing.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/GaussianBlur.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CALayerContents.h"
#include "platform/quartzcore/CATransactionScope.h"

namespace bkuk {

namespace {

constexpr CGFloat inFront = 1e6;  // of every view

CGRect wholePixels(const CGRect& rect, CGFloat scale) {
  return CGRect{rect.minX() * scale, rect.minY() * scale, rect.width() * scale, rect.height() * scale}
      .integral();
}

// A blur of the ring's width takes the coverage of a straight edge to this where the ring ends, and there
// it falls by `slope` in a distance of one width: the normal distribution and its density at 1.
constexpr double coverageAtEnd = 0.1587;
constexpr double slopeAtEnd = 0.2420;

// How much of a pixel the ring covers, from the mask's coverage there, blurred and not, both of 255. The
// ring's outer edge is one pixel soft.
double ringCoverage(std::uint8_t blurred, std::uint8_t mask, double widthInPixels) {
  const double pixelsInside = (blurred / 255.0 - coverageAtEnd) * widthInPixels / slopeAtEnd;
  return std::clamp(pixelsInside + 0.5, 0.0, 1.0) * (1 - mask / 255.0);
}

std::uint32_t premultiplied(const host::Rgba& color, double coverage) {
  const double alpha = color.alpha * coverage;
  const auto part = [alpha](double component) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(component, 0.0, 1.0) * alpha * 255));
  };
  return static_cast<std::uint32_t>(std::lround(alpha * 255)) << 24 | part(color.red) << 16 |
         part(color.green) << 8 | part(color.blue);
}

Ref<NSColor> ringColor() {
  constexpr std::string_view mistake =
      "NSColor: keyboardFocusIndicatorColor answers no color; assign a function that does";
  return required(required(NSColor::keyboardFocusIndicatorColor, mistake)(), mistake);
}

}  // namespace

struct FocusRing::Area {
  NSRect pixels;  // base coordinates times the scale
  CGFloat scale;

  [[nodiscard]] NSRect points() const {
    return {pixels.minX() / scale, pixels.minY() / scale, pixels.width() / scale, pixels.height() / scale};
  }
};

void FocusRing::firstResponderDidChange() {
  chosenByPointer_ = nullptr;
  setNeedsUpdate();
}

void FocusRing::pointerDidChoose(NSView& view) {
  if (view.needsPanelToBecomeKey()) return;
  chosenByPointer_ = &view;
  setNeedsUpdate();
}

void FocusRing::keyWasPressed() {
  if (!std::exchange(chosenByPointer_, nullptr).lock()) return;
  setNeedsUpdate();
  window_.setNeedsCommit();
}

Ref<NSView> FocusRing::viewToRing() const {
  const auto view = as<NSView>(window_.firstResponder());
  if (chosenByPointer_.refersTo(view.get())) return nullptr;
  if (!view || !window_.isKeyWindow() || view->focusRingType() == NSFocusRingType::none) return nullptr;
  return view->isHiddenOrHasHiddenAncestor() ? nullptr : view;
}

void FocusRing::hide() {
  if (const auto view = view_.lock()) view->hasFocusRing_ = false;
  view_ = nullptr;
  if (layer_) layer_->removeFromSuperlayer();
  layer_ = nullptr;
}

void FocusRing::updateIfNeeded() {
  if (!std::exchange(isStale_, false)) return;
  const auto view = viewToRing();
  if (!view) return hide();
  if (const auto old = view_.lock()) old->hasFocusRing_ = false;
  view_ = view.get();
  view->hasFocusRing_ = true;
  const NSRect mask = view->focusRingMaskBounds().intersection(view->visibleRect());
  if (mask.isEmpty() || !show(*view, mask)) conceal();
}

void FocusRing::conceal() {
  if (layer_) layer_->setHidden(true);
}

// False when nothing of the ring is in the window, or its place is not a number.
bool FocusRing::show(NSView& view, const NSRect& mask) {
  const Ref<NSWindow> keepWindow(&window_);
  const CGFloat scale = window_.backingScaleFactor();
  // One pixel more than the ring is wide: its edge is soft.
  const CGFloat margin = ringWidth + 1 / scale;
  const NSRect around = view.convertRectTo(mask, nullptr).insetBy(-margin, -margin);
  const NSRect shown = around.intersection({{}, window_.frame().size});
  const bool isSomewhere =
      std::isfinite(shown.minX()) && std::isfinite(shown.minY()) && shown.width() > 0 && shown.height() > 0;
  if (!isSomewhere) return false;
  const Area area{wholePixels(shown, scale), scale};
  auto contents = make<CALayerContents>(drawRing(view, area), scale);
  const auto scope = CATransactionScope::withoutActions();
  if (!layer_) {
    layer_ = make<CALayer>();
    layer_->setZPosition(inFront);
    window_.frameView_->layer()->addSublayer(layer_);
  }
  layer_->setHidden(false);
  layer_->setFrame(area.points());
  layer_->setContents(contents);
  return true;
}

host::Bitmap FocusRing::drawRing(NSView& view, const Area& area) const {
  host::Bitmap image({static_cast<int>(area.pixels.width()), static_cast<int>(area.pixels.height())});
  if (image.isEmpty()) return image;
  const CGFloat scale = area.scale;
  const CGAffineTransform toPixels{scale, 0, 0, -scale, -area.pixels.minX(), area.pixels.maxY()};
  {
    const auto context = make<CGContext>(image, toPixels);
    const NSPoint origin = view.convertPointTo({0, 0}, nullptr);
    const NSPoint up = view.convertPointTo({0, 1}, nullptr);
    context->concatenate({1, 0, 0, up.y - origin.y, origin.x, origin.y});
    context->setFillColor(NSColor::black()->cgColor());
    context->setStrokeColor(NSColor::black()->cgColor());
    const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, view.isFlipped()));
    view.drawFocusRingMask();
  }
  const auto color = ringColor()->cgColor()->rgba();
  const auto [width, height] = image.size();
  const std::span pixels(image.pixels(), static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  std::vector<std::uint8_t> mask(pixels.size());
  std::ranges::transform(pixels, mask.begin(),
                         [](auto pixel) { return static_cast<std::uint8_t>(pixel >> 24); });
  auto blurred = mask;
  gaussianBlur(blurred, width, height, ringWidth * scale);
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    pixels[i] = premultiplied(color, ringCoverage(blurred[i], mask[i], ringWidth * scale));
  }
  return image;
}

}  // namespace bkuk
