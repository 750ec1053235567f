#pragma once

#include "BrenvikUIKit/text/BKUKCustomAttributeOperator.h"

namespace bkuk {

/// The kit's own operator. It knows no attribute whose text it would replace.
class BKUKSupportedCustomTextAttributesOperator final : public BKUKCustomAttributeOperator {
 public:
  /// Made when it is first asked for.
  [[nodiscard]] static const Ref<BKUKSupportedCustomTextAttributesOperator>& shared();
};

}  // namespace bkuk
