#pragma once

#include <cstddef>
#include <span>

#include "BrenvikUIKit/text/BKUKSimpleXMLParserDelegate.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/Weak.h"

namespace bkuk {

/// Reads text in which pairs of `[name]` and `[/name]` enclose what they name. Made for one text.
///
/// Only names from a list are tags; every other bracket is text. Tags are matched unit by unit, so upper and
/// lower case differ. A combining mark, a variation selector or a joiner behind either bracket of a tag makes
/// one character with it and so makes it text. Tags have to nest.
///
/// The time is linear in the text, whatever the number of names.
class BKUKSimpleXMLParser {
 public:
  /// A tag that is recognised.
  struct XMLTag {
    NSString tagName{};
    NSString tag{};          ///< with its brackets
    std::size_t length = 0;  ///< of `tag`, in UTF-16 code units
    bool isClosingTag = false;
  };

  /// The delegate is told during `parse`. May be absent: whoever only asks whether a text is sound needs
  /// none.
  explicit BKUKSimpleXMLParser(Weak<BKUKSimpleXMLParserDelegate> delegate) : delegate_(std::move(delegate)) {}

  /// False when a closing tag does not belong to the innermost open tag or an open one is never closed. By
  /// then the delegate has heard all up to there; what follows the last tag of an unclosed text it never
  /// hears. Where two tags could begin at one place, that whose name comes first in the list wins; of one
  /// name the opening tag does. The empty name is a name.
  [[nodiscard]] bool parse(NSString text, std::span<const NSString> tagNames) const;

 private:
  Weak<BKUKSimpleXMLParserDelegate> delegate_;
};

}  // namespace bkuk
