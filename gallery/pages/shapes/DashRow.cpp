#include "gallery/pages/shapes/DashRow.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 20;
constexpr CGFloat columnGap = 32;
constexpr CGFloat titleWidth = 216;
constexpr CGFloat sampleTop = 20;
constexpr CGFloat sampleHeight = 40;
constexpr CGFloat captionHeight = 18;
constexpr CGFloat endWidth = 1;
constexpr CGFloat endHeight = 18;

/// "14 · 5 · 3 · 6.21"
std::string lengthsText(const std::vector<CGFloat>& lengths) {
  std::string text;
  for (const CGFloat length : lengths) {
    char number[32];
    std::snprintf(number, sizeof number, "%.4g", std::round(length * 100) / 100);
    text += (text.empty() ? "" : " · ") + std::string(number);
  }
  return text;
}

}  // namespace

DashRow::DashRow(BKUKLinePatternModification modification, std::string name, std::string detail)
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}),
      modification_(modification),
      name_(makeHeading(std::move(name), role(Role::onSurface))),
      detail_(makeRemark(std::move(detail), role(Role::onSurfaceSecondary))) {}

void DashRow::didInit() {
  Box::didInit();
  describe(*this, NSAccessibilityGroupRole, name_->text());
  addSubview(name_);
  addSubview(detail_);
  for (auto& end : ends_) {
    end = make<Box>(Box::Look{.fill = role(Role::onSurfaceLight)});
    addSubview(end);
  }
  const DashedSample::Course courses[] = {DashedSample::Course::line, DashedSample::Course::outline};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i] = {make<DashedSample>(courses[i], DashedSample::Dashes(), role(Role::accent)),
                   makeRemark("", role(Role::onSurfaceSecondary))};
    describeImage(*columns_[i].sample, i == 0 ? "Line" : "Outline");
    addSubview(columns_[i].sample);
    addSubview(columns_[i].lengths);
  }
}

void DashRow::setDashes(DashedSample::Dashes dashes) {
  dashes.modification = modification_;
  for (const auto& column : columns_) column.sample->setDashes(dashes);
  setNeedsLayout(true);
}

void DashRow::setExtent(CGFloat extent) {
  extent_ = extent;
  setNeedsLayout(true);
}

NSRect DashRow::columnFrame(std::size_t column, CGFloat rowWidth) {
  const CGFloat start = padding + titleWidth + columnGap;
  const CGFloat width = std::max(0.0, std::floor((rowWidth - start - padding - columnGap) / 2));
  return {start + static_cast<CGFloat>(column) * (width + columnGap), sampleTop, width, sampleHeight};
}

void DashRow::placeColumn(std::size_t index) {
  const auto& column = columns_[index];
  const NSRect place = columnFrame(index, bounds().width());
  NSRect sample = place;
  sample.size.width = std::round(place.width() * extent_);
  column.sample->setFrame(fromLeading(*this, sample));
  column.sample->setStartsAtRight(isRightToLeft(*this));
  column.lengths->setText(lengthsText(column.sample->fittedPattern()));
  column.lengths->setFrame(
      fromLeading(*this, {place.minX(), place.maxY() + 7, place.width(), captionHeight}));
}

void DashRow::placeEnds() {
  const NSRect line = columns_[0].sample->frame();
  const CGFloat top = line.midY() - endHeight / 2;
  ends_[0]->setFrame({line.minX() - endWidth, top, endWidth, endHeight});
  ends_[1]->setFrame({line.maxX(), top, endWidth, endHeight});
}

void DashRow::layout() {
  name_->setFrame(fromLeading(*this, {padding, height / 2 - 21, titleWidth, 21}));
  detail_->setFrame(fromLeading(*this, {padding, height / 2 + 1, titleWidth, 19}));
  for (std::size_t i = 0; i < columns_.size(); ++i) placeColumn(i);
  placeEnds();
}

}  // namespace bkuk::gallery
