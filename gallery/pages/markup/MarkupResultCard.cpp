#include <algorithm>

#include "gallery/cards/LabelText.h"
#include "gallery/pages/markup/MarkupCards.h"
#include "gallery/pages/markup/MarkupStyles.h"

namespace bkuk::gallery {

namespace {

constexpr CGFloat lowest = 48;

}  // namespace

MarkupResultCard::MarkupResultCard() : Card("Text", "") {}

void MarkupResultCard::didInit() {
  Card::didInit();
  label_->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  addSubview(label_);
}

void MarkupResultCard::show(const std::string& markup) {
  const auto plain = markupDefaultStyle();
  const auto text =
      BKUKAttributedTextXMLFactory::createAttributedText(NSString(markup), markupStyles(), plain);
  if (text) {
    label_->setAttributedStringValue(text);
    setRemark("Well formed");
  } else {
    label_->setAttributedStringValue(make<NSAttributedString>(NSString(markup), plain.fontAttributes()));
    setRemark("Malformed: shown as it was typed, in the default style");
  }
  heightDidChange();
}

CGFloat MarkupResultCard::contentHeight(CGFloat width) const {
  return std::max(lowest, heightOfText(*label_, width));
}

void MarkupResultCard::layoutContent(NSRect content) { label_->setFrame(content); }

}  // namespace bkuk::gallery
