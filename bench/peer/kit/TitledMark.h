#pragma once

#include <string>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "bench/peer/kit/Mark.h"
#include "platform/appkit/NSImageView.h"

namespace bkuk {
class BKUKLabel;
}

namespace bkuk::bench {

enum class PartPlacement { constraints, arithmetic };

/// A check box or radio button as an application makes one of the kit's parts: a mark before a title, both
/// following the interaction state, and what assistive clients ask for. Its parts are placed by twelve
/// constraints, or by itself: the difference is what constraints cost.
class TitledMark : public BKUKStatefulView {
 public:
  TitledMark(MarkShape shape, std::string title, PartPlacement placement = PartPlacement::constraints)
      : shape_(shape), title_(std::move(title)), placement_(placement) {}

  [[nodiscard]] CheckState checkState() const { return check_; }
  void setCheckState(CheckState check);
  void performAction() override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override;

  void stateChanged(States state) override;
  void viewDidChangeEffectiveAppearance() override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  void addConstraints();
  void updateMark() { mark_->setImage(markImage(shape_, check_, state())); }
  void updateTitle(States state);

  const MarkShape shape_;
  const std::string title_;
  const PartPlacement placement_;
  CheckState check_ = CheckState::off;
  Ref<NSImageView> mark_;
  Ref<BKUKLabel> label_;
};

}  // namespace bkuk::bench
