#pragma once

#include "platform/foundation/NSAttributedString.h"

namespace bkuk {

/// May put another text in place of one that has a custom attribute.
class BKUKCustomAttributeOperator : public NSObject {
 public:
  /// Called for each stretch of a label's text that has the attribute, with the stretch as the label shows
  /// it: in its font and colour and with the attribute itself. What it answers takes the place of the stretch
  /// in the label's own text, with the attributes that it has: those it lacks are the label's. Empty, as it
  /// is unless overridden, leaves the text as it is.
  [[nodiscard]] virtual Ref<NSAttributedString> replace(const Ref<NSAttributedString>& attributedString,
                                                        const NSAttributedStringKey& key,
                                                        const NSAttributeValue& value);
};

}  // namespace bkuk
