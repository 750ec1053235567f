#pragma once

#include "gallery/cards/Card.h"

namespace bkuk::gallery {

/// A text in a language, set in that language's direction, and the font that it was asked for. Where no
/// installed face has the language's letters, words say so and name a package that brings one.
class LanguageCard : public Card {
 public:
  struct Sample {
    std::string name;
    std::string ownName{};  ///< the language in its own words; may be empty
    std::string text;
    NSUserInterfaceLayoutDirection direction = NSUserInterfaceLayoutDirection::leftToRight;
    std::string face{};    ///< a PostScript name; that of the brand when it is empty
    std::string remark{};  ///< the names of the font when it is empty
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
