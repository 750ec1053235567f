#include "bench/peer/kit/TitledMark.h"

#include <algorithm>
#include <array>

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/text/BKUKStatefulFonts.h"
#include "bench/peer/kit/Text.h"
#include "platform/appkit/NSLayoutAnchor.h"
#include "platform/appkit/NSLayoutConstraint.h"

namespace bkuk::bench {

namespace {

constexpr double gap = 4;

const BKUKStatefulFonts& titleStyles() {
  static const auto& styles = *new BKUKStatefulFonts(
      textStyle(), {}, {}, textStyle().with({.color = BKUKTheme::onBackgroundDisabled()}));
  return styles;
}

}  // namespace

void TitledMark::setCheckState(CheckState check) {
  check_ = check;
  updateMark();
}

void TitledMark::performAction() {
  setCheckState(check_ == CheckState::on ? CheckState::off : CheckState::on);
}

NSAccessibilityValue TitledMark::accessibilityValue() const { return check_ == CheckState::off ? 0.0 : 1.0; }

void TitledMark::stateChanged(States state) {
  updateMark();
  updateTitle(state);
  BKUKStatefulView::stateChanged(state);
}

void TitledMark::viewDidChangeEffectiveAppearance() {
  BKUKStatefulView::viewDidChangeEffectiveAppearance();
  updateMark();
}

void TitledMark::layout() {
  BKUKStatefulView::layout();
  if (placement_ == PartPlacement::constraints) return;
  const auto size = bounds().size;
  mark_->setFrame({0, (size.height - markSize) / 2, markSize, markSize});
  label_->setFrame({markSize + gap, 0, std::max(0.0, size.width - markSize - gap), size.height});
}

void TitledMark::didInit() {
  BKUKStatefulView::didInit();
  setAccessibilityRole(shape_ == MarkShape::box ? NSAccessibilityCheckBoxRole
                                                : NSAccessibilityRadioButtonRole);
  setAccessibilityLabel(title_);
  mark_ = make<NSImageView>();
  label_ = BKUKLabel::label(title_, titleStyles()[state()]);
  addSubview(mark_);
  addSubview(label_);
  updateMark();
  setTranslatesAutoresizingMaskIntoConstraints(placement_ == PartPlacement::arithmetic);
  if (placement_ == PartPlacement::constraints) addConstraints();
}

void TitledMark::addConstraints() {
  mark_->setTranslatesAutoresizingMaskIntoConstraints(false);
  label_->setTranslatesAutoresizingMaskIntoConstraints(false);
  const auto reachesBottom = label_->bottomAnchor()->constraintEqualTo(bottomAnchor());
  reachesBottom->setPriority(NSLayoutPriorityDefaultLow);
  const std::array constraints{
      mark_->widthAnchor()->constraintEqualToConstant(markSize),
      mark_->heightAnchor()->constraintEqualToConstant(markSize),
      mark_->leadingAnchor()->constraintEqualTo(leadingAnchor()),
      mark_->centerYAnchor()->constraintEqualTo(label_->centerYAnchor()),
      mark_->topAnchor()->constraintGreaterThanOrEqualTo(topAnchor()),
      mark_->bottomAnchor()->constraintLessThanOrEqualTo(bottomAnchor()),
      label_->leadingAnchor()->constraintEqualTo(mark_->trailingAnchor(), gap),
      label_->trailingAnchor()->constraintEqualTo(trailingAnchor()),
      label_->topAnchor()->constraintGreaterThanOrEqualTo(topAnchor()),
      label_->bottomAnchor()->constraintLessThanOrEqualTo(bottomAnchor()),
      label_->topAnchor()->constraintEqualTo(topAnchor()),
      reachesBottom,
  };
  NSLayoutConstraint::activateConstraints(constraints);
}

void TitledMark::updateTitle(States state) {
  const auto& style = titleStyles()[state];
  if (style.color != label_->textColor()) label_->apply(style);
}

}  // namespace bkuk::bench
