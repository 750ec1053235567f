#include "gallery/pages/languages/LanguageCard.h"

#include "gallery/cards/LabelText.h"

namespace bkuk::gallery {

namespace {

using Sample = LanguageCard::Sample;

constexpr double size = 19;
constexpr double messageSize = 14;

/// The name of a stand-in is always known; whether it has the letters, only its glyphs tell.
bool canShow(const Sample& sample) {
  if (sample.face.empty()) return true;
  const auto font = NSFont::font(sample.face, size);
  return font && font->face()->glyph(NSString(sample.text).characterAt(0)) != 0;
}

std::string titleOf(const Sample& sample) {
  return sample.ownName.empty() || !canShow(sample) ? sample.name : sample.name + ", " + sample.ownName;
}

Ref<BKUKLabel> makeText(const Sample& sample) {
  auto label = makeTightLabel(sample.text, cardText(size));
  if (!sample.face.empty()) label->setFont(NSFont::font(sample.face, size));
  label->setUserInterfaceLayoutDirection(sample.direction);
  return label;
}

Ref<BKUKLabel> makeMessage() {
  return makeTightLabel(
      "None of the installed faces has these letters. Debian’s package fonts-noto-cjk brings them.",
      cardText(messageSize).with({.color = BKUKTheme::onSurfaceSecondary()}));
}

std::string remarkOn(const Sample& sample, const NSFont& shown) {
  return canShow(sample) ? shown.fontName() + ", " + shown.familyName()
                         : sample.face + ", and nothing stands in for it";
}

}  // namespace

LanguageCard::LanguageCard(const Sample& sample)
    : Card(titleOf(sample), sample.remark), label_(canShow(sample) ? makeText(sample) : makeMessage()) {
  label_->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  if (sample.remark.empty()) setRemark(remarkOn(sample, *label_->font()));
}

void LanguageCard::didInit() {
  Card::didInit();
  addSubview(label_);
}

CGFloat LanguageCard::contentHeight(CGFloat width) const { return heightOfText(*label_, width); }

void LanguageCard::layoutContent(NSRect content) { label_->setFrame(content); }

}  // namespace bkuk::gallery
