#include "BrenvikUIKit/drawing/BKUKGradientView.h"

#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

Ref<BKUKGradientView> BKUKGradientView::decoded(NSCoder&) {
  fatal("init(coder:) has not been implemented", "BrenvikUIKit/BKUKGradientView");
}

Ref<BKUKGradientView::Style> BKUKGradientView::privateStyle() {
  return as<Style>(BKUKFillView::privateStyle());
}

Ref<BKUKFillView::Style> BKUKGradientView::makePrivateStyle() { return make<Style>(*this); }

BKUKGradientView::Style::Style(BKUKGradientView& component) : BKUKFillView::Style(component) {}

void BKUKGradientView::Style::apply(std::optional<BKUKLinearGradientSettings> linearSettings,
                                    std::optional<BKUKRadialGradientSettings> radialSettings) {
  linear_ = std::move(linearSettings);
  radial_ = std::move(radialSettings);
  std::vector<BKUKFill> fills;
  if (linear_) fills.push_back(BKUKFill::linearGradient(*linear_));
  if (radial_) fills.push_back(BKUKFill::radialGradient(*radial_));
  if (const auto view = component()) view->setFills(std::move(fills));
}

}  // namespace bkuk
