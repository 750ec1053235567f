#pragma once

#include "platform/quartzcore/CATransaction.h"

namespace bkuk {

/// A level of transactions from here to the end of the block.
class CATransactionScope {
 public:
  CATransactionScope() { CATransaction::begin(); }
  ~CATransactionScope() { CATransaction::commit(); }
  CATransactionScope(const CATransactionScope&) = delete;
  CATransactionScope& operator=(const CATransactionScope&) = delete;

  /// One in which no change of a layer animates.
  [[nodiscard]] static CATransactionScope withoutActions() { return CATransactionScope(WithoutActions()); }

 private:
  struct WithoutActions {};
  explicit CATransactionScope(WithoutActions) : CATransactionScope() {
    CATransaction::setDisableActions(true);
  }
};

}  // namespace bkuk
