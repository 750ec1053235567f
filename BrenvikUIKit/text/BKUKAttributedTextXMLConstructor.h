#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "BrenvikUIKit/text/BKUKSimpleXMLParserDelegate.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

/// Builds an attributed text from what a parser finds. Text has the style of the innermost tag around it and
/// nothing of those further out; without one the default style.
class BKUKAttributedTextXMLConstructor final : public BKUKSimpleXMLParserDelegate {
 public:
  /// By the name of the tag, in UTF-8; a map, so that names are tried in the order of their bytes.
  using Styles = std::map<std::string, NSAttributeDictionary>;

  /// A paragraph style takes the place of every style's own.
  BKUKAttributedTextXMLConstructor(const NSAttributeDictionary& defaultStyle, const Styles& stylesMapping,
                                   const Ref<NSParagraphStyle>& paragraph);

  /// What is built so far.
  [[nodiscard]] const Ref<NSMutableAttributedString>& currentText() const { return currentText_; }

  void foundCharacters(std::u16string_view text) override;
  void didStartElement(const NSString& name) override;
  void didEndElement(const NSString& name) override;

 private:
  // Both have the paragraph style already.
  NSAttributeDictionary defaultStyle_;
  std::unordered_map<NSString, NSAttributeDictionary> stylesMapping_;
  std::vector<const NSAttributeDictionary*> stylesStack_;
  const Ref<NSMutableAttributedString> currentText_ = make<NSMutableAttributedString>();
};

}  // namespace bkuk
