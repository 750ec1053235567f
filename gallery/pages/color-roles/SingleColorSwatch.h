#pragma once

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A colour that has no variants, with its name and value below it.
class SingleColorSwatch : public NSView {
 public:
  static constexpr CGFloat height = 112;  ///< points

  explicit SingleColorSwatch(BKUKThemeColorRole which) : role_(which) {}

  [[nodiscard]] bool isFlipped() const override { return true; }
  void layout() override;
  void viewDidChangeEffectiveAppearance() override;

 protected:
  void didInit() override;

 private:
  void showValue();

  BKUKThemeColorRole role_;
  Ref<Box> box_;
  Ref<TextLabel> name_;
  Ref<TextLabel> value_;
};

}  // namespace bkuk::gallery
