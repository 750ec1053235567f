#pragma once

#include "gallery/pages/Card.h"

namespace bkuk::gallery {

/// A text in a language, set in that language's direction, and the font that it was asked for.
class LanguageCard : public Card {
 public:
  struct Sample {
    std::string name;
    std::string text;
    NSUserInterfaceLayoutDirection direction = NSUserInterfaceLayoutDirection::leftToRight;
    std::string face{};  ///< a PostScript name; that of the brand when it is empty, or not installed
  };

  explicit LanguageCard(const Sample& sample);

 protected:
  void didInit() override;
  [[nodiscard]] CGFloat contentHeight(CGFloat width) const override;
  void layoutContent(NSRect content) override;

 private:
  Ref<BKUKLabel> label_;
};

}  // namespace bkuk::gallery
