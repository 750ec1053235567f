#include "gallery/pages/shapes/ShapesPage.h"

#include <cmath>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Modification = BKUKLinePatternModification;
using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat controlsHeight = 36;
constexpr CGFloat headingTop = topMargin + controlsHeight + 22;
constexpr CGFloat headingHeight = 20;
constexpr CGFloat rowsTop = headingTop + headingHeight + 8;
constexpr CGFloat rowGap = 12;
constexpr CGFloat valueWidth = 52;
constexpr CGFloat firstExtent = 0.9;

struct NamedModification {
  Modification modification;
  const char* name;
  const char* detail;
};

constexpr NamedModification modifications[] = {
    {Modification::none, "none", "As given, cut where the path ends"},
    {Modification::resizePatternDashes, "resizePatternDashes", "Dashes take up the slack"},
    {Modification::resizePatternSpaces, "resizePatternSpaces", "Spaces take up the slack"},
    {Modification::resizeDashAndSpace, "resizeDashAndSpace", "Both share the slack"},
    {Modification::resizeSpaceBetweenPatterns, "resizeSpaceBetweenPatterns", "The last space takes it up"},
};

struct NamedPattern {
  const char* name;
  DashedSample::Dashes dashes;
};

const std::vector<NamedPattern>& patterns() {
  static const auto& list = *new std::vector<NamedPattern>{
      {"Dashes", {.pattern = {14, 8}, .width = 2.5}},
      {"Dash and dot", {.pattern = {18, 6, 2.5, 6}, .width = 2.5}},
      {"Dots", {.pattern = {0, 9}, .width = 4, .cap = CGLineCap::round}},
      {"Round ends", {.pattern = {12, 10, 1, 10}, .width = 4, .cap = CGLineCap::round}},
  };
  return list;
}

}  // namespace

void ShapesPage::didInit() {
  GalleryPage::didInit();
  makeControls();
  for (const char* heading : {"Open path", "Looping path"}) {
    headings_.push_back(makeHeading(heading));
    addSubview(headings_.back());
  }
  for (const auto& each : modifications) {
    rows_.push_back(make<DashRow>(each.modification, each.name, each.detail));
    addSubview(rows_.back());
  }
  showPattern(1);
  showExtent(firstExtent);
}

void ShapesPage::makeControls() {
  std::vector<std::string> names;
  for (const auto& pattern : patterns()) names.emplace_back(pattern.name);
  patternChoice_ = make<Choice>(Choice::Arrangement::segments, std::move(names), 1,
                                [this](std::size_t index) { showPattern(index); });
  lengthLabel_ = makeCaption("Length", role(Role::onBackground), TextLabel::Alignment::trailing);
  length_ = make<Slider>(Slider::Range{.least = 0.2, .greatest = 1, .step = 0.005}, firstExtent,
                         [this](CGFloat extent) { showExtent(extent); });
  lengthValue_ = makeCaption("", role(Role::onBackground), TextLabel::Alignment::trailing);
  patternChoice_->setAccessibilityLabel("Pattern");
  length_->setAccessibilityLabel("Length");
  addSubview(patternChoice_);
  addSubview(lengthLabel_);
  addSubview(length_);
  addSubview(lengthValue_);
}

void ShapesPage::showPattern(std::size_t index) {
  for (const auto& row : rows_) row->setDashes(patterns()[index].dashes);
}

void ShapesPage::showExtent(CGFloat extent) {
  for (const auto& row : rows_) row->setExtent(extent);
  setNeedsLayout(true);
}

std::vector<NSView*> ShapesPage::keyViews() const { return {patternChoice_.get(), length_.get()}; }

CGFloat ShapesPage::heightForWidth(CGFloat) const {
  const auto count = static_cast<CGFloat>(rows_.size());
  return rowsTop + count * (DashRow::height + rowGap) - rowGap + margin;
}

void ShapesPage::layoutControls(CGFloat width) {
  const NSSize choice = patternChoice_->fittingSize();
  const CGFloat middle = topMargin + controlsHeight / 2;
  patternChoice_->setFrame(
      fromLeading(*this, {margin, middle - choice.height / 2, choice.width, choice.height}));
  const CGFloat sliderStart = DashRow::columnFrame(1, width).minX() + margin;
  const CGFloat sliderEnd = margin + width - valueWidth;
  const CGFloat labelStart = margin + choice.width;
  const NSRect line(0, middle - Slider::height / 2, 0, Slider::height);
  const auto place = [&](NSView& view, CGFloat start, CGFloat end) {
    view.setFrame(fromLeading(*this, {start, line.minY(), end - start, line.height()}));
  };
  place(*lengthLabel_, labelStart, sliderStart - 10);
  place(*length_, sliderStart, sliderEnd);
  place(*lengthValue_, sliderEnd, margin + width);
  const CGFloat points = std::round(DashRow::columnFrame(0, width).width() * length_->value());
  lengthValue_->setText(std::to_string(static_cast<int>(points)) + " pt");
}

void ShapesPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  layoutControls(width);
  for (std::size_t i = 0; i < headings_.size(); ++i) {
    const NSRect column = DashRow::columnFrame(i, width);
    headings_[i]->setFrame(
        fromLeading(*this, {margin + column.minX(), headingTop, column.width(), headingHeight}));
  }
  CGFloat top = rowsTop;
  for (const auto& row : rows_) {
    row->setFrame({margin, top, width, DashRow::height});
    top += DashRow::height + rowGap;
  }
}

}  // namespace bkuk::gallery
