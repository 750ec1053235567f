#include "BrenvikUIKit/text/BKUKSupportedCustomTextAttributesOperator.h"

namespace bkuk {

const Ref<BKUKSupportedCustomTextAttributesOperator>& BKUKSupportedCustomTextAttributesOperator::shared() {
  using Operator = BKUKSupportedCustomTextAttributesOperator;
  static const auto& shared = *new Ref<Operator>(make<Operator>());
  return shared;
}

}  // namespace bkuk
