#include "BrenvikUIKit/text/BKUKSupportedCustomTextAttributesOperator.h"

#include "platform/foundation/Permanent.h"

namespace bkuk {

const Ref<BKUKSupportedCustomTextAttributesOperator>& BKUKSupportedCustomTextAttributesOperator::shared() {
  using Operator = BKUKSupportedCustomTextAttributesOperator;
  static const auto& shared = permanent([] { return make<Operator>(); });
  return shared;
}

}  // namespace bkuk
