#include "BrenvikUIKit/text/RangeFinder.h"

#include <utility>

#include "BrenvikUIKit/text/BKUKSimpleXMLParser.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

std::optional<RangeFinder::Ranges> RangeFinder::ranges(NSString text, std::span<const NSString> tagNames) {
  const auto finder = make<RangeFinder>();
  const BKUKSimpleXMLParser parser(finder.get());
  if (!parser.parse(std::move(text), tagNames)) return {};
  return std::move(finder->result_);
}

void RangeFinder::foundCharacters(std::u16string_view text) { currentText_.append(text); }

void RangeFinder::didStartElement(const NSString& name) { stack_.push_back({name, currentText_.length()}); }

void RangeFinder::didEndElement(const NSString&) {
  if (stack_.empty()) trap("RangeFinder: the end of an element that did not start");
  const Open open = std::move(stack_.back());
  stack_.pop_back();
  result_[open.name.utf8()] = {open.start, currentText_.length() - open.start};
}

}  // namespace bkuk
