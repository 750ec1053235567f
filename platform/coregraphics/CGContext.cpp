#include "platform/coregraphics/CGContext.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/coregraphics/BitmapShadow.h"
#include "platform/coregraphics/CGBaseline.h"
#include "platform/coregraphics/CanvasTarget.h"
#include "platform/coregraphics/GaussianBlur.h"
#include "platform/coregraphics/HostConversions.h"
#include "platform/coregraphics/PaintRecord.h"
#include "platform/coregraphics/PathDasher.h"
#include "platform/coregraphics/PathDots.h"

namespace bkuk {

struct CGContext::State {
  CGAffineTransform ctm;     // user to base space
  CGAffineTransform device;  // user to device space
  Ref<CGColor> fillColor = CGColor::black();
  Ref<CGColor> strokeColor = CGColor::black();
  CGFloat lineWidth = 1;
  CGFloat miterLimit = 10;
  CGLineCap lineCap = CGLineCap::butt;
  CGLineJoin lineJoin = CGLineJoin::miter;
  CGFloat dashPhase = 0;
  std::vector<CGFloat> dashes;
  CGFloat alpha = 1;
  CGBlendMode blendMode = CGBlendMode::normal;
  Shadow shadow;
  Flags should;
  CGRect clipBox;            // in device space, around what the clip lets through
  bool savesTarget = false;  // whether the target's state was saved on behalf of this one

  [[nodiscard]] PaintSettings settings(const Flags& allows) const {
    return {alpha, toHost(blendMode), allows.antialias && should.antialias};
  }
};

struct CGContext::Group {
  std::size_t stateCount;               // with the state that the group pushed
  bool hasImage;                        // of its own, or else paints straight through
  std::unique_ptr<host::Bitmap> image;  // ours instead of the canvas's, where its pixels are needed
};

// What a line is drawn with in the space that it is given in.
struct CGContext::Pen {
  CGFloat scale;  // of user space in that space
  CGAffineTransform toDevice;
};

namespace {

CGRect rectOf(const host::PixelRect& rect) {
  return {static_cast<CGFloat>(rect.x), static_cast<CGFloat>(rect.y), static_cast<CGFloat>(rect.width),
          static_cast<CGFloat>(rect.height)};
}

host::Rect hostRect(const CGRect& rect) { return {rect.minX(), rect.minY(), rect.width(), rect.height()}; }

// The pixels that a rectangle touches. No bitmap reaches as far as the limit, so cutting there loses none.
host::PixelRect pixelsOf(const CGRect& rect) {
  constexpr CGFloat limit = 1 << 28;
  const CGRect whole = rect.intersection({-limit, -limit, 2 * limit, 2 * limit}).integral();
  if (whole.isEmpty()) return {};
  return {static_cast<int>(whole.minX()), static_cast<int>(whole.minY()), static_cast<int>(whole.width()),
          static_cast<int>(whole.height())};
}

CGRect outset(const CGRect& rect, CGFloat distance) { return rect.insetBy(-distance, -distance); }

// How much the transform magnifies, when it does so alike in all directions.
std::optional<CGFloat> similarityScale(const CGAffineTransform& t) {
  constexpr CGFloat tolerance = 1e-9;
  const CGFloat x = std::hypot(t.a, t.b);
  const CGFloat y = std::hypot(t.c, t.d);
  const CGFloat skew = t.a * t.c + t.b * t.d;
  const bool isSimilar = x > 0 && std::abs(x - y) <= tolerance * x && std::abs(skew) <= tolerance * x * y;
  return isSimilar ? std::optional(x) : std::nullopt;
}

CGFloat areaScale(const CGAffineTransform& t) { return std::sqrt(std::abs(t.determinant())); }

// How far a stroke reaches from its line.
CGFloat strokeReach(const host::Stroke& stroke) {
  const CGFloat join = stroke.join == host::LineJoin::miter ? stroke.miterLimit : 1;
  constexpr CGFloat diagonal = 1.5;
  return stroke.width / 2 * std::max(join, diagonal) + 1;
}

// Whether a transform keeps images upright.
bool isPlain(const CGAffineTransform& t) { return t.isScaleAndTranslation() && t.a > 0 && t.d > 0; }

// Runs `draw` on a canvas whose user space is mapped by `transform`.
template <typename Draw>
void within(host::Canvas& canvas, const CGAffineTransform& transform, Draw draw) {
  if (transform.isIdentity()) return draw();
  canvas.save();
  canvas.concatenate(toHost(transform));
  draw();
  canvas.restore();
}

}  // namespace

CGContext::CGContext(host::Bitmap& bitmap, const CGAffineTransform& base)
    : CGContext(
          bitmap.size(), [&bitmap] { return &bitmap; }, base) {}

CGContext::CGContext(host::PixelSize size, BitmapProvider provider, const CGAffineTransform& base)
    : base_(base),
      path_(make<CGMutablePath>()),
      userPath_(make<CGMutablePath>()),
      opened_(make<CGMutablePath>()),
      dashes_(make<CGMutablePath>()) {
  const host::PixelRect area{0, 0, size.width, size.height};
  targets_.push_back(std::make_unique<CanvasTarget>(std::move(provider), area));
  State& initial = states_.emplace_back();
  initial.device = base;
  initial.clipBox = rectOf(area);
}

CGContext::~CGContext() = default;

CGContext::State& CGContext::state() { return states_.back(); }
const CGContext::State& CGContext::state() const { return states_.back(); }
CanvasTarget& CGContext::target() { return *targets_.back(); }

bool CGContext::hasPainted() const { return targets_.front()->wasRequested(); }

void CGContext::keepPieces() { targets_.front()->startRecord(); }

std::vector<PaintedPiece> CGContext::finish() {
  for (std::size_t i = 1; i < targets_.size(); ++i) targets_[i]->finish();
  return targets_.front()->finish();
}

// State

void CGContext::saveGState() {
  State copy = state();
  copy.savesTarget = false;
  states_.push_back(std::move(copy));
}

void CGContext::restoreGState() {
  const std::size_t floor = groups_.empty() ? 1 : groups_.back().stateCount;
  if (states_.size() <= floor) return;
  if (state().savesTarget) target().restore();
  states_.pop_back();
}

const CGAffineTransform& CGContext::ctm() const { return state().ctm; }

CGAffineTransform CGContext::userSpaceToDeviceSpaceTransform() const { return state().device; }

void CGContext::concatenate(const CGAffineTransform& transform) {
  state().ctm = transform.concatenating(state().ctm);
  state().device = state().ctm.concatenating(base_);
}

void CGContext::translateBy(CGFloat x, CGFloat y) { concatenate(CGAffineTransform::translation(x, y)); }
void CGContext::scaleBy(CGFloat x, CGFloat y) { concatenate(CGAffineTransform::scale(x, y)); }
void CGContext::rotate(CGFloat angle) { concatenate(CGAffineTransform::rotation(angle)); }

void CGContext::setFillColor(Ref<CGColor> color) { state().fillColor = std::move(color); }
void CGContext::setStrokeColor(Ref<CGColor> color) { state().strokeColor = std::move(color); }
const Ref<CGColor>& CGContext::fillColor() const { return state().fillColor; }
const Ref<CGColor>& CGContext::strokeColor() const { return state().strokeColor; }

void CGContext::setLineWidth(CGFloat width) { state().lineWidth = width; }
void CGContext::setLineCap(CGLineCap cap) { state().lineCap = cap; }
void CGContext::setLineJoin(CGLineJoin join) { state().lineJoin = join; }
void CGContext::setMiterLimit(CGFloat limit) { state().miterLimit = limit; }

void CGContext::setLineDash(CGFloat phase, std::span<const CGFloat> lengths) {
  state().dashPhase = phase;
  state().dashes.assign(lengths.begin(), lengths.end());
}

CGFloat CGContext::alpha() const { return state().alpha; }

void CGContext::setAlpha(CGFloat alpha) { state().alpha = alpha > 0 ? std::min(alpha, 1.0) : 0; }
void CGContext::setBlendMode(CGBlendMode mode) { state().blendMode = mode; }

void CGContext::setShadow(CGSize offset, CGFloat blur, const Ref<CGColor>& color) {
  const bool shows =
      color && color->alpha() > 0 && std::isfinite(offset.width) && std::isfinite(offset.height);
  state().shadow = {offset, blur, shows ? color : nullptr};
}

// Path

void CGContext::beginPath() { path_->removeAll(); }
void CGContext::closePath() { path_->closeSubpath(); }
void CGContext::move(CGPoint to) { path_->move(to, state().device); }
void CGContext::addLine(CGPoint to) { path_->addLine(to, state().device); }
void CGContext::addQuadCurve(CGPoint to, CGPoint control) {
  path_->addQuadCurve(to, control, state().device);
}

void CGContext::addCurve(CGPoint to, CGPoint control1, CGPoint control2) {
  path_->addCurve(to, control1, control2, state().device);
}

void CGContext::addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise) {
  path_->addArc(center, radius, startAngle, endAngle, clockwise, state().device);
}

void CGContext::addRect(const CGRect& rect) { path_->addRect(rect, state().device); }
void CGContext::addEllipse(const CGRect& rect) { path_->addEllipse(rect, state().device); }

void CGContext::addRoundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight) {
  path_->addRoundedRect(rect, cornerWidth, cornerHeight, state().device);
}

void CGContext::addPath(const CGPath& path) { path_->addPath(path, state().device); }

bool CGContext::isPathEmpty() const { return path_->isEmpty(); }

void CGContext::fillPath(CGPathFillRule rule) {
  fillCurrentPath(rule);
  beginPath();
}

void CGContext::strokePath() {
  strokeCurrentPath();
  beginPath();
}

void CGContext::drawPath(CGPathDrawingMode mode) {
  const bool isEvenOdd = mode == CGPathDrawingMode::eoFill || mode == CGPathDrawingMode::eoFillStroke;
  if (mode != CGPathDrawingMode::stroke) {
    fillCurrentPath(isEvenOdd ? CGPathFillRule::evenOdd : CGPathFillRule::winding);
  }
  const bool strokes = mode != CGPathDrawingMode::fill && mode != CGPathDrawingMode::eoFill;
  if (strokes) strokeCurrentPath();
  beginPath();
}

void CGContext::fill(const CGRect& rect) {
  beginPath();
  addRect(rect);
  fillPath();
}

void CGContext::clip(CGPathFillRule rule) {
  clipCurrentPath(rule);
  beginPath();
}

void CGContext::clip(const CGRect& rect) {
  beginPath();
  const CGRect box = state().device.apply(rect);
  // A rectangle that cuts nothing away is not worth telling.
  if (state().device.isScaleAndTranslation() && box.contains(state().clipBox)) return;
  addRect(rect);
  clip();
}

void CGContext::clipCurrentPath(CGPathFillRule rule) {
  State& current = state();
  const CGRect box = current.clipBox.intersection(path_->boundingBox());
  hostPath_.clear();
  if (box.isEmpty() || !appendHostPath(hostPath_, path_->elements())) {
    // Everything is culled from now on; the target need not know.
    current.clipBox = CGRect::null;
    return;
  }
  if (!current.savesTarget) target().save();
  current.savesTarget = true;
  current.clipBox = box;
  target().clip(hostPath_, toHost(rule), current.settings(allows_).antialias);
}

CGRect CGContext::boundingBoxOfClipPath() const {
  const State& current = state();
  if (current.clipBox.isEmpty() || current.device.determinant() == 0) return CGRect::null;
  return current.device.inverted().apply(current.clipBox);
}

// Painting

bool CGContext::paintsNothing(const CGColor* color) const {
  if (!color) return true;
  const bool isTransparent = !(color->alpha() > 0) || state().alpha == 0;
  return isTransparent && state().blendMode == CGBlendMode::normal;
}

// Calls `draw` with a canvas in device space for what it paints inside of `box`, and before that for
// what it casts a shadow with.
template <typename Draw>
void CGContext::paint(const CGRect& box, Draw draw) {
  if (state().shadow.color) paintShadow(box, draw);
  if (!box.intersects(state().clipBox)) return;
  if (host::Canvas* canvas = target().canvas(state().settings(allows_))) draw(*canvas);
}

template <typename Draw>
void CGContext::paintShadow(const CGRect& box, Draw draw) {
  const CGFloat reach = blurReach(shadowSigma());
  const CGSize offset = base_.apply(state().shadow.offset);
  const CGRect shadow = outset(box.offsetBy(offset.width, offset.height), reach);
  if (!shadow.intersects(state().clipBox)) return;
  const host::PixelRect area = pixelsOf(shadow.intersection(outset(state().clipBox, reach)));
  host::Bitmap image({area.width, area.height});
  if (image.isEmpty()) return;
  auto canvas = host::current().drawing().makeCanvas(image);
  canvas->setAntialias(state().settings(allows_).antialias);
  canvas->concatenate({1, 0, 0, 1, offset.width - area.x, offset.height - area.y});
  draw(*canvas);
  canvas.reset();
  turnIntoShadow(image, shadowSigma(), state().shadow.color->rgba());
  host::Canvas* below = target().canvas(state().settings(allows_));
  if (below) below->drawBitmap(image, hostRect(rectOf(area)));
}

double CGContext::shadowSigma() const { return state().shadow.blur / 2 * areaScale(base_); }

// The part of device space where painting can be seen, or casts a shadow that can.
CGRect CGContext::relevantBox() const {
  const State& current = state();
  if (!current.shadow.color) return current.clipBox;
  const CGSize offset = base_.apply(current.shadow.offset);
  const CGRect source = outset(current.clipBox, blurReach(shadowSigma()));
  return current.clipBox.united(source.offsetBy(-offset.width, -offset.height));
}

void CGContext::fillCurrentPath(CGPathFillRule rule) {
  if (path_->isEmpty() || paintsNothing(state().fillColor.get())) return;
  hostPath_.clear();
  if (!appendHostPath(hostPath_, path_->elements())) return;
  const host::Rgba color = state().fillColor->rgba();
  paint(path_->boundingBox(), [&](host::Canvas& canvas) { canvas.fill(hostPath_, toHost(rule), color); });
}

void CGContext::strokeCurrentPath() {
  const State& current = state();
  if (path_->isEmpty() || paintsNothing(current.strokeColor.get())) return;
  if (!(current.lineWidth > 0) || !std::isfinite(current.lineWidth)) return;
  if (const auto scale = similarityScale(current.device)) return strokeAlong(*path_, {*scale, {}});
  if (current.device.determinant() == 0) return;
  userPath_->removeAll();
  userPath_->addPath(*path_, current.device.inverted());
  strokeAlong(*userPath_, {1, current.device});
}

host::Stroke CGContext::strokeFor(const Pen& pen) const {
  // Wider lines and longer spikes cover any bitmap.
  constexpr CGFloat maxWidth = 1 << 20;
  constexpr CGFloat maxMiterLimit = 1000;
  const State& current = state();
  return {std::min(current.lineWidth * pen.scale, maxWidth),
          toHost(current.lineCap),
          toHost(current.lineJoin),
          std::clamp(std::isnan(current.miterLimit) ? 1 : current.miterLimit, 1.0, maxMiterLimit),
          0,
          {}};
}

void CGContext::strokeAlong(const CGPath& line, const Pen& pen) {
  const host::Stroke stroke = strokeFor(pen);
  const CGFloat reach = strokeReach(stroke);
  const CGPath& visible = dashed(withOpenedDots(line, pen), pen, reach);
  hostPath_.clear();
  if (!appendHostPath(hostPath_, visible.elements())) return;
  const host::Rgba color = state().strokeColor->rgba();
  paint(pen.toDevice.apply(outset(visible.boundingBox(), reach)), [&](host::Canvas& canvas) {
    within(canvas, pen.toDevice, [&] { canvas.stroke(hostPath_, stroke, color); });
  });
}

// The line with a direction for the caps of its dots, or the line itself.
const CGPath& CGContext::withOpenedDots(const CGPath& line, const Pen& pen) {
  if (state().lineCap == CGLineCap::butt || !hasDots(line.elements())) return line;
  opened_->removeAll();
  appendWithOpenedDots(*opened_, line.elements(), DashLimits().emptyDashLength / areaScale(pen.toDevice));
  return *opened_;
}

// The dashes of the line that can be seen, or the line itself.
const CGPath& CGContext::dashed(const CGPath& line, const Pen& pen, CGFloat reach) {
  if (state().dashes.empty()) return line;
  const auto pattern = DashPattern::make(state().dashPhase, state().dashes);
  const auto scaled = pattern ? pattern->scaled(pen.scale) : std::nullopt;
  if (!scaled) return line;
  const CGFloat pixel = 1 / areaScale(pen.toDevice);
  DashLimits limits;
  limits.visible = outset(pen.toDevice.inverted().apply(relevantBox()), reach);
  limits.dashesPerUnit = 2 / pixel;
  limits.emptyDashLength *= pixel;
  dashes_->removeAll();
  appendDashes(*dashes_, line.elements(), *scaled, limits);
  return *dashes_;
}

// Gradients, images, text

void CGContext::drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end, unsigned options) {
  host::Gradient paint;
  paint.kind = host::Gradient::Kind::linear;
  paint.start = toHost(start);
  paint.end = toHost(end);
  paintGradient(paint, gradient, options);
}

void CGContext::drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius,
                                   CGPoint endCenter, CGFloat endRadius, unsigned options) {
  host::Gradient paint;
  paint.kind = host::Gradient::Kind::radial;
  paint.start = toHost(startCenter);
  paint.end = toHost(endCenter);
  paint.startRadius = startRadius;
  paint.endRadius = endRadius;
  paintGradient(paint, gradient, options);
}

void CGContext::paintGradient(host::Gradient gradient, const CGGradient& colors, unsigned options) {
  gradient.extendsBefore = options & CGGradientDrawsBeforeStartLocation;
  gradient.extendsAfter = options & CGGradientDrawsAfterEndLocation;
  gradient.stops = colors.stops();
  paint(relevantBox(),
        [&](host::Canvas& canvas) { within(canvas, state().device, [&] { canvas.paint(gradient); }); });
}

void CGContext::drawBitmap(const host::Bitmap& image, const CGRect& rect) {
  if (image.isEmpty() || rect.isEmpty()) return;
  const auto upright = imageToDevice(rect);
  const CGRect box = upright.apply(rect);
  paint(box, [&](host::Canvas& canvas) {
    if (isPlain(upright)) return canvas.drawBitmap(image, hostRect(box));
    within(canvas, upright, [&] { canvas.drawBitmap(image, hostRect(rect)); });
  });
}

void CGContext::drawBitmap(const std::shared_ptr<const host::Bitmap>& image, const CGRect& rect) {
  if (image->isEmpty() || rect.isEmpty()) return;
  const auto upright = imageToDevice(rect);
  const CGRect box = upright.apply(rect);
  auto* record = isPlain(upright) ? recordFor(box) : nullptr;
  if (record && record->addImage(image, hostRect(box), state().alpha)) return;
  drawBitmap(*image, rect);
}

// Maps the space of `rect` with y down, in which an image is drawn.
CGAffineTransform CGContext::imageToDevice(const CGRect& rect) const {
  return CGAffineTransform{1, 0, 0, -1, 0, rect.minY() + rect.maxY()}.concatenating(state().device);
}

void CGContext::drawText(const std::shared_ptr<const host::TextLine>& line, const CGRect& ink,
                         CGPoint baseline, const CGColor& color) {
  if (paintsNothing(&color)) return;
  const CGAffineTransform text = textToDevice(baseline);
  const CGRect box = text.apply(CGRect(ink.minX(), -ink.maxY(), ink.width(), ink.height()));
  const auto rgba = color.rgba();
  if (auto* record = recordFor(box)) {
    if (record->addText(line, text, {rgba.red, rgba.green, rgba.blue, rgba.alpha * state().alpha})) return;
  }
  paint(box, [&](host::Canvas& canvas) { within(canvas, text, [&] { canvas.drawText(*line, {}, rgba); }); });
}

// Where what is painted into `box` can be recorded; null when it is to be painted.
PaintRecord* CGContext::recordFor(const CGRect& box) {
  const State& current = state();
  const bool isPlainState = current.settings(allows_) == PaintSettings{current.alpha};
  if (!isPlainState || current.shadow.color || !groups_.empty() || !box.intersects(current.clipBox)) {
    return nullptr;
  }
  return target().record();
}

// Maps the space of a line of text, whose y runs down from the baseline, so that text reads upright in
// user space.
CGAffineTransform CGContext::textToDevice(CGPoint baseline) const {
  const CGAffineTransform& device = state().device;
  const CGFloat down = device.determinant() < 0 ? -1 : 1;
  CGAffineTransform text{device.a, device.b, device.c * down, device.d * down, 0, 0};
  const CGPoint start = device.apply(baseline);
  text.tx = start.x;
  text.ty = text.isScaleAndTranslation() ? CGSnappedBaseline(start.y) : start.y;
  return text;
}

// Groups

void CGContext::beginTransparencyLayer() {
  // Each level keeps an image. So many inside each other are an accident, which must not eat all memory.
  constexpr std::size_t maxNestedImages = 32;
  saveGState();
  Group& group = groups_.emplace_back(Group{states_.size(), groups_.size() < maxNestedImages, nullptr});
  if (!group.hasImage) return;
  State& inner = state();
  if (inner.shadow.color) {
    group.image = std::make_unique<host::Bitmap>();
    beginOwnImage(*group.image);
  } else {
    target().beginGroup(inner.settings(allows_));
  }
  inner.alpha = 1;
  inner.blendMode = CGBlendMode::normal;
  inner.shadow = {};
}

void CGContext::beginOwnImage(host::Bitmap& image) {
  const host::PixelRect area = pixelsOf(relevantBox());
  const auto provide = [&image, area] {
    image = host::Bitmap({area.width, area.height});
    return &image;
  };
  targets_.push_back(std::make_unique<CanvasTarget>(provide, area));
  state().clipBox = rectOf(area);
}

void CGContext::endTransparencyLayer() {
  if (groups_.empty()) return;
  const Group group = std::move(groups_.back());
  groups_.pop_back();
  while (states_.size() >= group.stateCount) restoreGState();
  if (!group.hasImage) return;
  if (!group.image) return target().endGroup();
  const auto painted = std::move(targets_.back());
  targets_.pop_back();
  if (!painted->wasRequested() || group.image->isEmpty()) return;
  const CGRect area = rectOf(painted->area());
  paint(area, [&](host::Canvas& canvas) { canvas.drawBitmap(*group.image, hostRect(area)); });
}

// Flags

void CGContext::setAllowsAntialiasing(bool allows) { allows_.antialias = allows; }
void CGContext::setShouldAntialias(bool should) { state().should.antialias = should; }
void CGContext::setAllowsFontSmoothing(bool allows) { allows_.smoothFonts = allows; }
void CGContext::setShouldSmoothFonts(bool should) { state().should.smoothFonts = should; }
void CGContext::setAllowsFontSubpixelPositioning(bool allows) { allows_.positionFonts = allows; }
void CGContext::setShouldSubpixelPositionFonts(bool should) { state().should.positionFonts = should; }
void CGContext::setAllowsFontSubpixelQuantization(bool allows) { allows_.quantizeFonts = allows; }
void CGContext::setShouldSubpixelQuantizeFonts(bool should) { state().should.quantizeFonts = should; }
bool CGContext::shouldAntialias() const { return state().should.antialias; }
bool CGContext::shouldSmoothFonts() const { return state().should.smoothFonts; }
bool CGContext::shouldSubpixelPositionFonts() const { return state().should.positionFonts; }
bool CGContext::shouldSubpixelQuantizeFonts() const { return state().should.quantizeFonts; }

}  // namespace bkuk
