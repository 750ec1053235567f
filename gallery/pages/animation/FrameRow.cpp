#include "gallery/pages/animation/FrameRow.h"

#include <utility>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Phase = BKUKAnimationPhases;
using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 20;
constexpr CGFloat titleWidth = 216;
constexpr CGFloat columnGap = 28;
constexpr CGFloat phaseWidth = 62;
constexpr CGFloat phaseHeight = 24;
constexpr CGFloat phaseGap = 6;
constexpr CGFloat phasesWidth = 3 * phaseWidth + 2 * phaseGap;
constexpr CGFloat trackTop = 19;
constexpr CGFloat trackHeight = 22;
/// An endless animation fills its bar with a second's frames, then begins it anew.
constexpr std::uint32_t framesOfEndlessBar = 60;

constexpr const char* phaseNames[] = {"start", "middle", "finish"};

}  // namespace

FrameRow::FrameRow(Settings settings, Handler finished)
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}),
      context_(
          make<BKUKLinearAnimationContext>(settings.frames, settings.startingFrame, settings.frameSpacing)),
      finished_(std::move(finished)),
      name_(makeHeading(std::move(settings.name), role(Role::onSurface))),
      detail_(makeRemark(std::move(settings.detail), role(Role::onSurfaceSecondary))),
      track_(make<FrameTrack>(FrameTrack::Frames{.count = settings.frames.value_or(framesOfEndlessBar),
                                                 .starting = settings.startingFrame,
                                                 .spacing = settings.frameSpacing,
                                                 .isEndless = !settings.frames})),
      count_(makeRemark("", role(Role::onSurfaceSecondary))) {}

void FrameRow::didInit() {
  Box::didInit();
  describe(*this, NSAccessibilityGroupRole, name_->text());
  describe(*track_, NSAccessibilityProgressIndicatorRole, "Frames");
  for (const auto& view :
       {Ref<NSView>(name_), Ref<NSView>(detail_), Ref<NSView>(track_), Ref<NSView>(count_)}) {
    addSubview(view);
  }
  for (std::size_t i = 0; i < phases_.size(); ++i) {
    phases_[i] = {make<Box>(),
                  makeCaption(phaseNames[i], role(Role::onSurfaceSecondary), TextLabel::Alignment::center)};
    phases_[i].box->addSubview(phases_[i].name);
    addSubview(phases_[i].box);
    light(phases_[i], false);
  }
  // The row owns its context, so neither handler is called without it.
  context_->setBlock([this] {
    ++calls_;
    showFrame();
  });
  context_->setPhaseHandler([this](Phase phase) { showPhase(phase); });
  showFrame();
}

void FrameRow::start(bool loops) {
  loops_ = loops;
  stop();
  for (const auto& mark : phases_) light(mark, false);
  begin();
  showFrame();
}

void FrameRow::begin() {
  calls_ = 0;
  context_->startAnimating();
}

void FrameRow::showFrame() {
  const auto frame = context_->currentFrame();
  track_->showFrame(isEndless() && frame > 0 ? (frame - 1) % framesOfEndlessBar + 1 : frame);
  std::string text = "frame " + std::to_string(frame);
  if (!isEndless()) text += " of " + std::to_string(*context_->animationFrames());
  count_->setText(text + " · " + std::to_string(calls_) + (calls_ == 1 ? " call" : " calls"));
}

// What comes after the phase belongs to the run before and goes out.
void FrameRow::showPhase(Phase phase) {
  const auto reached = static_cast<std::size_t>(phase);
  light(phases_[reached], true);
  for (std::size_t i = reached + 1; i < phases_.size(); ++i) light(phases_[i], false);
  if (phase != Phase::finish) return;
  if (loops_) return begin();
  if (finished_) finished_();
}

void FrameRow::light(const PhaseMark& mark, bool isLit) {
  mark.box->setLook({.fill = isLit ? role(Role::accent) : Color(),
                     .border = isLit ? Color() : role(Role::onSurfaceLight),
                     .cornerRadius = phaseHeight / 2});
  mark.name->setColor(role(isLit ? Role::onAccent : Role::onSurfaceSecondary));
}

void FrameRow::layout() {
  const CGFloat width = bounds().width();
  name_->setFrame(fromLeading(*this, {padding, height / 2 - 21, titleWidth, 21}));
  detail_->setFrame(fromLeading(*this, {padding, height / 2 + 1, titleWidth, 19}));
  const CGFloat trackStart = padding + titleWidth + columnGap;
  const CGFloat phasesStart = width - padding - phasesWidth;
  const CGFloat trackWidth = phasesStart - columnGap - trackStart;
  track_->setFrame(fromLeading(*this, {trackStart, trackTop, trackWidth, trackHeight}));
  count_->setFrame(fromLeading(*this, {trackStart, trackTop + trackHeight + 2, trackWidth, 18}));
  for (std::size_t i = 0; i < phases_.size(); ++i) {
    const CGFloat start = phasesStart + static_cast<CGFloat>(i) * (phaseWidth + phaseGap);
    phases_[i].box->setFrame(
        fromLeading(*this, {start, (height - phaseHeight) / 2, phaseWidth, phaseHeight}));
    phases_[i].name->setFrame({0, 0, phaseWidth, phaseHeight});
  }
}

}  // namespace bkuk::gallery
