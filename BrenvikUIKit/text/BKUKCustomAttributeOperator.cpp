#include "BrenvikUIKit/text/BKUKCustomAttributeOperator.h"

namespace bkuk {

Ref<NSAttributedString> BKUKCustomAttributeOperator::replace(const Ref<NSAttributedString>&,
                                                             const NSAttributedStringKey&,
                                                             const NSAttributeValue&) {
  return nullptr;
}

}  // namespace bkuk
