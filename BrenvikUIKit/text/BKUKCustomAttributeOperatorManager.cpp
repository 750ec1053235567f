#include "BrenvikUIKit/text/BKUKCustomAttributeOperatorManager.h"

namespace bkuk {

BKUKCustomAttributeOperatorManager& BKUKCustomAttributeOperatorManager::shared() {
  static auto& manager = *make<BKUKCustomAttributeOperatorManager>().detach();
  return manager;
}

}  // namespace bkuk
