#include "BrenvikUIKit/text/BKUKSimpleXMLParser.h"

#include <vector>

#include "BrenvikUIKit/text/XMLTagTable.h"

namespace bkuk {

namespace {

using Tag = BKUKSimpleXMLParser::XMLTag;

/// One walk over a text.
class MarkupReader {
 public:
  explicit MarkupReader(BKUKSimpleXMLParserDelegate* delegate) : delegate_(delegate) {}

  bool read(std::u16string_view text, const XMLTagTable& tags) {
    std::size_t told = 0;
    for (auto at = text.find(u'['); at != std::u16string_view::npos; at = text.find(u'[', at)) {
      const Tag* tag = tags.find(text.substr(at));
      if (!tag) {
        ++at;
        continue;
      }
      tell(text.substr(told, at - told));
      if (!enter(*tag)) return false;
      at += tag->length;
      told = at;
    }
    if (!open_.empty()) return false;
    tell(text.substr(told));
    return true;
  }

 private:
  void tell(std::u16string_view characters) const {
    if (delegate_ && !characters.empty()) delegate_->foundCharacters(characters);
  }

  bool enter(const Tag& tag) {
    if (!tag.isClosingTag) {
      open_.push_back(&tag);
      if (delegate_) delegate_->didStartElement(tag.tagName);
      return true;
    }
    if (open_.empty() || open_.back()->tagName != tag.tagName) return false;
    open_.pop_back();
    if (delegate_) delegate_->didEndElement(tag.tagName);
    return true;
  }

  BKUKSimpleXMLParserDelegate* delegate_;
  std::vector<const Tag*> open_;
};

}  // namespace

bool BKUKSimpleXMLParser::parse(NSString text, std::span<const NSString> tagNames) const {
  const auto delegate = delegate_.lock();
  return MarkupReader(delegate.get()).read(text.units(), XMLTagTable(tagNames));
}

}  // namespace bkuk
