#pragma once

#include <string_view>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSString.h"

namespace bkuk {

/// Hears what a `BKUKSimpleXMLParser` finds, in the order of the text.
class BKUKSimpleXMLParserDelegate : public NSObject {
 public:
  /// Text between two tags, never empty; valid during the call.
  virtual void foundCharacters(std::u16string_view text) = 0;
  virtual void didStartElement(const NSString& name) = 0;
  /// A closing tag that belongs to the innermost open one.
  virtual void didEndElement(const NSString& name) = 0;
};

}  // namespace bkuk
