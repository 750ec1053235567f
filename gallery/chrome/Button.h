#pragma once

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A button with a title, which shows its interaction state, and when it is a switch whether it is on.
class Button : public BKUKStatefulView {
 public:
  static constexpr CGFloat height = 32;  ///< points

  enum class Kind {
    push,   ///< acts
    toggle  ///< turns its selection over with each action
  };

  explicit Button(std::string title, Kind kind = Kind::push);

  /// What the title needs, in points.
  [[nodiscard]] NSSize fittingSize() const override;

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool shouldUserEventChangeSelection() const override { return kind_ == Kind::toggle; }
  void setSelected(bool selected) override;
  void stateChanged(States state) override;
  void updateLayer() override;
  void layout() override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override;

 protected:
  void didInit() override;

 private:
  Kind kind_;
  Ref<TextLabel> title_;
};

}  // namespace bkuk::gallery
