#include "platform/coregraphics/CanvasTarget.h"

#include <algorithm>
#include <utility>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

CanvasTarget::CanvasTarget(BitmapProvider provider, host::PixelRect area)
    : provider_(required(std::move(provider), "CGContext: no bitmap provider")), area_(area) {}

CanvasTarget::~CanvasTarget() = default;

host::Canvas* CanvasTarget::canvas(const PaintSettings& settings) {
  if (!requested_) request();
  if (canvas_) apply(settings);
  return canvas_.get();
}

void CanvasTarget::request() {
  requested_ = true;
  const auto provider = std::exchange(provider_, nullptr);
  const auto steps = std::exchange(steps_, {});
  const auto record = std::exchange(record_, {});
  host::Bitmap* bitmap = provider();
  if (!bitmap || bitmap->isEmpty()) return;
  canvas_ = host::current().drawing().makeCanvas(*bitmap);
  if (record) record->replay(*canvas_);
  canvas_->setAlpha(applied_.alpha);
  canvas_->setBlendMode(applied_.blendMode);
  canvas_->setAntialias(applied_.antialias);
  if (area_.x != 0 || area_.y != 0) {
    canvas_->concatenate({1, 0, 0, 1, -static_cast<double>(area_.x), -static_cast<double>(area_.y)});
  }
  for (const Step& step : steps) replay(step);
}

void CanvasTarget::startRecord() {
  if (!requested_) record_.emplace(host::PixelSize{area_.width, area_.height});
}

PaintRecord* CanvasTarget::record() {
  const auto isSave = [](const Step& step) { return std::holds_alternative<Save>(step); };
  return record_ && std::ranges::all_of(steps_, isSave) ? &*record_ : nullptr;
}

std::vector<PaintedPiece> CanvasTarget::finish() {
  requested_ = true;
  provider_ = nullptr;
  canvas_ = nullptr;
  steps_.clear();
  return record_ ? std::exchange(record_, {})->takePieces() : std::vector<PaintedPiece>();
}

void CanvasTarget::replay(const Step& step) {
  if (const auto* clipped = std::get_if<Clip>(&step))
    return clip(clipped->path, clipped->rule, clipped->antialias);
  if (const auto* group = std::get_if<Group>(&step)) return beginGroup(group->settings);
  save();
}

void CanvasTarget::apply(const PaintSettings& settings) {
  if (settings.alpha != applied_.alpha) canvas_->setAlpha(settings.alpha);
  if (settings.blendMode != applied_.blendMode) canvas_->setBlendMode(settings.blendMode);
  if (settings.antialias != applied_.antialias) canvas_->setAntialias(settings.antialias);
  applied_ = settings;
}

void CanvasTarget::save() {
  if (!requested_) return void(steps_.emplace_back(Save()));
  if (!canvas_) return;
  canvas_->save();
  saved_.push_back(applied_);
}

void CanvasTarget::restore() {
  if (!requested_) {
    while (std::holds_alternative<Clip>(steps_.back())) steps_.pop_back();
    return steps_.pop_back();
  }
  if (!canvas_) return;
  canvas_->restore();
  applied_ = saved_.back();
  saved_.pop_back();
}

void CanvasTarget::clip(host::Path path, host::FillRule rule, bool antialias) {
  if (!requested_) return void(steps_.emplace_back(Clip{{path.begin(), path.end()}, rule, antialias}));
  if (!canvas_) return;
  apply({applied_.alpha, applied_.blendMode, antialias});
  canvas_->clip(path, rule);
}

void CanvasTarget::beginGroup(const PaintSettings& settings) {
  if (!requested_) return void(steps_.emplace_back(Group{settings}));
  if (!canvas_) return;
  save();
  apply(settings);
  canvas_->beginGroup();
  applied_ = {1, host::BlendMode::normal, settings.antialias};
  canvas_->setAlpha(applied_.alpha);
  canvas_->setBlendMode(applied_.blendMode);
}

void CanvasTarget::endGroup() {
  if (canvas_) canvas_->endGroup();
  restore();
}

}  // namespace bkuk
