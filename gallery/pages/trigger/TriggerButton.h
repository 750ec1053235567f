#pragma once

#include "BrenvikUIKit/controls/BKUKTriggerView.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A trigger view that looks like the gallery's buttons.
class TriggerButton : public BKUKTriggerView {
 public:
  explicit TriggerButton(std::string title);

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  Ref<TextLabel> title_;
};

}  // namespace bkuk::gallery
