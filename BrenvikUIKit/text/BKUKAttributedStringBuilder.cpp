#include "BrenvikUIKit/text/BKUKAttributedStringBuilder.h"

#include <utility>

namespace bkuk {

void BKUKAttributedStringBuilder::setAttributes(BKUKTextAttributes attributes) {
  attributes_ = std::move(attributes);
  cache_ = nullptr;
}

void BKUKAttributedStringBuilder::setAttributedString(Ref<NSAttributedString> text) {
  const bool isMutable = text && dynamic_cast<const NSMutableAttributedString*>(text.get());
  attributedString_ = isMutable ? text->copy() : std::move(text);
  cache_ = nullptr;
}

const Ref<NSAttributedString>& BKUKAttributedStringBuilder::build() {
  if (cache_) return cache_;
  const auto base = attributes_.makeStringAttributes();
  const auto text = make<NSMutableAttributedString>();
  for (std::size_t at = 0; attributedString_ && at < attributedString_->length();) {
    NSRange run;
    auto attributes = base;
    attributes.merge(attributedString_->attributes(at, &run));
    text->append(attributedString_->string().units().substr(at, run.length), attributes);
    at = NSMaxRange(run);
  }
  cache_ = text;
  return cache_;
}

}  // namespace bkuk
