#include "gallery/pages/LanguageCard.h"

#include "gallery/pages/LabelText.h"

namespace bkuk::gallery {

namespace {

constexpr double size = 19;

}  // namespace

LanguageCard::LanguageCard(const Sample& sample)
    : Card(sample.name, ""), label_(makeTightLabel(sample.text, cardText(size))) {
  if (const auto font = sample.face.empty() ? nullptr : NSFont::font(sample.face, size))
    label_->setFont(font);
  label_->setUserInterfaceLayoutDirection(sample.direction);
  label_->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
}

void LanguageCard::didInit() {
  Card::didInit();
  setRemark(label_->font()->fontName() + ", " + label_->font()->familyName());
  addSubview(label_);
}

CGFloat LanguageCard::contentHeight(CGFloat width) const { return heightOfText(*label_, width); }

void LanguageCard::layoutContent(NSRect content) { label_->setFrame(content); }

}  // namespace bkuk::gallery
