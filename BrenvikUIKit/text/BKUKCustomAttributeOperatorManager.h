#pragma once

#include "BrenvikUIKit/text/BKUKCustomAttributeOperator.h"

namespace bkuk {

/// Keeps the operator that all labels ask.
class BKUKCustomAttributeOperatorManager final : public NSObject {
 public:
  [[nodiscard]] static BKUKCustomAttributeOperatorManager& shared();

  /// Absent at first: no text is replaced.
  [[nodiscard]] const Ref<BKUKCustomAttributeOperator>& operator_() const { return current_; }
  void setOperator(Ref<BKUKCustomAttributeOperator> newOperator) { current_ = std::move(newOperator); }

 private:
  Ref<BKUKCustomAttributeOperator> current_;
};

}  // namespace bkuk
