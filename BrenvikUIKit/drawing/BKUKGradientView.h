#pragma once

#include <optional>

#include "BrenvikUIKit/drawing/BKUKFillView.h"

namespace bkuk {

/// A background of a linear gradient, a radial gradient, or the second above the first.
class BKUKGradientView : public BKUKFillView {
 public:
  class Style;

  using BKUKFillView::BKUKFillView;
  /// Not supported: it stops the process.
  [[noreturn]] static Ref<BKUKGradientView> decoded(NSCoder& coder);

  [[nodiscard]] Ref<Style> privateStyle();
  [[nodiscard]] std::string className() const override { return "BKUKGradientView"; }

 protected:
  [[nodiscard]] Ref<BKUKFillView::Style> makePrivateStyle() override;
};

/// A gradient view's gradients beside the look of every fill view.
class BKUKGradientView::Style : public BKUKFillView::Style {
 public:
  explicit Style(BKUKGradientView& component);

  [[nodiscard]] const std::optional<BKUKLinearGradientSettings>& linearSettings() const { return linear_; }
  [[nodiscard]] const std::optional<BKUKRadialGradientSettings>& radialSettings() const { return radial_; }

  using BKUKFillView::Style::apply;
  /// Replaces both and makes the view's fills of those that are there.
  void apply(std::optional<BKUKLinearGradientSettings> linearSettings,
             std::optional<BKUKRadialGradientSettings> radialSettings);

  [[nodiscard]] std::string className() const override { return "BKUKGradientView.Style"; }

 private:
  std::optional<BKUKLinearGradientSettings> linear_;
  std::optional<BKUKRadialGradientSettings> radial_;
};

}  // namespace bkuk
