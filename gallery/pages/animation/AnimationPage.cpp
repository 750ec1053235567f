#include "gallery/pages/animation/AnimationPage.h"

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat controlsHeight = 36;
constexpr CGFloat headingHeight = 20;
constexpr CGFloat framesTop = topMargin + controlsHeight + 22;
constexpr CGFloat rowsTop = framesTop + headingHeight + 8;
constexpr CGFloat rowGap = 12;
constexpr CGFloat sectionGap = 24;
constexpr CGFloat cardPadding = 20;
constexpr CGFloat cardVerticalPadding = 10;
constexpr CGFloat tripDuration = 1.6;

const std::vector<FrameRow::Settings>& rowSettings() {
  static const auto& list = *new std::vector<FrameRow::Settings>{
      {"Every frame", "120 frames from 0: no start phase", 120, 0, 1},
      {"Every 10th frame", "120 frames, one in ten calls", 120, 1, 10},
      {"From frame 45 on", "120 frames, one in five calls", 120, 45, 5},
      {"Half a second", "30 frames, from frame 5 on", 30, 5, 1},
      {"Endless", "One in three calls, until stopped", std::nullopt, 1, 3},
  };
  return list;
}

constexpr std::string_view curves[] = {kCAMediaTimingFunctionLinear, kCAMediaTimingFunctionEaseIn,
                                       kCAMediaTimingFunctionEaseOut, kCAMediaTimingFunctionEaseInEaseOut,
                                       kCAMediaTimingFunctionDefault};

CGFloat heightOfRows(std::size_t count) {
  return static_cast<CGFloat>(count) * (FrameRow::height + rowGap) - rowGap;
}

CGFloat heightOfCard(std::size_t lanes) {
  return static_cast<CGFloat>(lanes) * CurveLane::height + 2 * cardVerticalPadding;
}

}  // namespace

void AnimationPage::didInit() {
  GalleryPage::didInit();
  modeChoice_ = make<Choice>(Choice::Arrangement::segments, std::vector<std::string>{"Stop", "Once", "Loop"},
                             0, [this](std::size_t index) { setMode(static_cast<Mode>(index)); });
  modeChoice_->setAccessibilityLabel("Run");
  framesHeading_ = makeHeading("Frame clock");
  curvesHeading_ = makeHeading("Timing curves");
  addSubview(modeChoice_);
  addSubview(framesHeading_);
  addSubview(curvesHeading_);
  makeRows();
  makeLanes();
}

void AnimationPage::makeRows() {
  for (const auto& settings : rowSettings()) {
    rows_.push_back(make<FrameRow>(settings, [this] { rowDidFinish(); }));
    addSubview(rows_.back());
  }
}

void AnimationPage::makeLanes() {
  card_ = make<Box>(
      Box::Look{.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14});
  addSubview(card_);
  for (const auto curve : curves) {
    lanes_.push_back(make<CurveLane>(curve));
    card_->addSubview(lanes_.back());
  }
}

// Running

void AnimationPage::setMode(Mode mode) {
  mode_ = mode;
  unfinishedRows_ = 0;
  for (const auto& row : rows_) {
    if (mode == Mode::stop) {
      row->stop();
    } else {
      row->start(mode == Mode::loop);
      if (!row->isEndless()) ++unfinishedRows_;
    }
  }
  startLanes();
}

// The endless row ends with the last of the others.
void AnimationPage::rowDidFinish() {
  if (--unfinishedRows_ > 0) return;
  for (const auto& row : rows_) row->stop();
  modeChoice_->setSelected(static_cast<std::size_t>(Mode::stop));
}

void AnimationPage::startLanes() {
  ++trip_;
  for (const auto& lane : lanes_) lane->reset();
  if (mode_ != Mode::stop) travelLanes();
}

void AnimationPage::travelLanes() {
  const auto changes = [this](NSAnimationContext&) {
    for (const auto& lane : lanes_) lane->travel(tripDuration);
  };
  NSAnimationContext::runAnimationGroup(changes, [page = Weak<AnimationPage>(this), trip = trip_] {
    const auto live = page.lock();
    if (live && live->trip_ == trip && live->mode_ == Mode::loop) live->travelLanes();
  });
}

std::vector<NSView*> AnimationPage::keyViews() const { return {modeChoice_.get()}; }

// Layout

CGFloat AnimationPage::heightForWidth(CGFloat) const {
  return rowsTop + heightOfRows(rows_.size()) + sectionGap + headingHeight + 8 + heightOfCard(lanes_.size()) +
         margin;
}

void AnimationPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  const NSSize choice = modeChoice_->fittingSize();
  modeChoice_->setFrame(fromLeading(
      *this, {margin, topMargin + (controlsHeight - choice.height) / 2, choice.width, choice.height}));
  framesHeading_->setFrame({margin, framesTop, width, headingHeight});
  CGFloat top = rowsTop;
  for (const auto& row : rows_) {
    row->setFrame({margin, top, width, FrameRow::height});
    top += FrameRow::height + rowGap;
  }
  top += sectionGap - rowGap;
  curvesHeading_->setFrame({margin, top, width, headingHeight});
  card_->setFrame({margin, top + headingHeight + 8, width, heightOfCard(lanes_.size())});
  CGFloat laneTop = cardVerticalPadding;
  for (const auto& lane : lanes_) {
    lane->setFrame({cardPadding, laneTop, width - 2 * cardPadding, CurveLane::height});
    laneTop += CurveLane::height;
  }
}

}  // namespace bkuk::gallery
