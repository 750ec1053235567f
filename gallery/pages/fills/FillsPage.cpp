#include "gallery/pages/fills/FillsPage.h"

#include <cmath>
#include <utility>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/fills/FillSamples.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 28;
constexpr CGFloat titleHeight = 24;
constexpr CGFloat titleGap = 10;
constexpr CGFloat sectionGap = 22;
constexpr CGFloat cellHeight = 162;
constexpr CGFloat lowCellHeight = 122;
constexpr CGFloat turningSize = 152;
constexpr CGFloat turningGap = 24;
constexpr CGFloat valueWidth = 52;
constexpr CGFloat firstAngle = 30;

Grid grid(CGFloat pageWidth, CGFloat height) {
  return {
      .width = pageWidth - 2 * margin, .narrowest = 180, .cellHeight = height, .gap = 18, .maxColumns = 4};
}

}  // namespace

void FillsPage::didInit() {
  GalleryPage::didInit();
  addSection("Fills", makeFillSpecimens(), cellHeight);
  addSection("Corners and borders", makeCornerSpecimens(), cellHeight);
  addSection("Shadows", makeShadowSpecimens(), cellHeight + 32);
  addSection("Directions", makeDirectionSpecimens(), lowCellHeight);
  makeTurningGradient();
}

void FillsPage::addSection(const char* title, std::vector<Ref<Specimen>> specimens, CGFloat height) {
  Section section{makeHeading(title), std::move(specimens), height};
  addSubview(section.title);
  for (const auto& specimen : section.specimens) addSubview(specimen);
  sections_.push_back(std::move(section));
}

void FillsPage::makeTurningGradient() {
  turning_ = make<BKUKGradientView>(BKUKFillView::Look{.corner = BKUKCornerSettings::radius(16)});
  degreesName_ = makeCaption("degrees");
  degreesRemark_ = makeRemark("Starts on the side of the angle, a little beyond the edge");
  degreesValue_ = makeCaption("", role(Role::onBackground), TextLabel::Alignment::trailing);
  degrees_ = make<Slider>(Slider::Range{.least = 0, .greatest = 360, .step = 5}, firstAngle,
                          [this](CGFloat degrees) { turnGradient(degrees); });
  addSubview(turning_);
  degrees_->setAccessibilityLabel("Direction in degrees");
  addSubview(degreesName_);
  addSubview(degreesRemark_);
  addSubview(degrees_);
  addSubview(degreesValue_);
  turnGradient(firstAngle);
}

void FillsPage::turnGradient(CGFloat degrees) {
  turning_->privateStyle()->apply(directedGradient(BKUKLinearGradientSettings::Directions::degrees(degrees)),
                                  std::nullopt);
  degreesValue_->setText(std::to_string(std::lround(degrees)) + "°");
}

std::vector<NSView*> FillsPage::keyViews() const { return {degrees_.get()}; }

CGFloat FillsPage::heightOf(const Section& section, CGFloat width) {
  return titleHeight + titleGap + grid(width, section.cellHeight).heightOf(section.specimens.size());
}

CGFloat FillsPage::heightForWidth(CGFloat width) const {
  CGFloat height = 0;
  for (const auto& section : sections_) height += heightOf(section, width) + sectionGap;
  return height + turningSize + margin;
}

CGFloat FillsPage::layoutSection(const Section& section, CGFloat top) {
  const CGFloat width = bounds().width();
  section.title->setFrame(fromLeading(*this, {margin, top, width - 2 * margin, titleHeight}));
  const Grid cells = grid(width, section.cellHeight);
  for (std::size_t i = 0; i < section.specimens.size(); ++i) {
    const NSRect cell = cells.cell(i).offsetBy(margin, top + titleHeight + titleGap);
    section.specimens[i]->setFrame(fromLeading(*this, cell));
  }
  return top + heightOf(section, width);
}

void FillsPage::layoutTurningGradient(CGFloat top) {
  const CGFloat start = turningSize + turningGap;
  const CGFloat width = bounds().width() - 2 * margin - start;
  const auto place = [&](NSView& view, CGFloat offset, CGFloat length, CGFloat y, CGFloat height) {
    view.setFrame(fromLeading(*this, {margin + start + offset, top + y, length, height}));
  };
  turning_->setFrame(fromLeading(*this, {margin, top, turningSize, turningSize}));
  place(*degreesName_, 0, width, 34, 19);
  place(*degreesRemark_, 0, width, 53, 17);
  place(*degrees_, -4, width - valueWidth + 4, 84, Slider::height);
  place(*degreesValue_, width - valueWidth, valueWidth, 84, Slider::height);
}

void FillsPage::layout() {
  CGFloat top = 0;
  for (const auto& section : sections_) top = layoutSection(section, top) + sectionGap;
  layoutTurningGradient(top);
}

}  // namespace bkuk::gallery
