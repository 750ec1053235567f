#include "BrenvikUIKit/text/BKUKUnderlineDrawerManager.h"

#include <utility>

#include "platform/foundation/Permanent.h"

namespace bkuk {

BKUKUnderlineDrawerManager& BKUKUnderlineDrawerManager::shared() {
  static const auto& manager = permanent([] { return make<BKUKUnderlineDrawerManager>(); });
  return *manager;
}

void BKUKUnderlineDrawerManager::set(Ref<BKUKUnderlineDrawer> underlineDrawer, NSUnderlineStyle style) {
  if (!underlineDrawer) return void(remove(style));
  drawers_[style] = std::move(underlineDrawer);
}

Ref<BKUKUnderlineDrawer> BKUKUnderlineDrawerManager::remove(NSUnderlineStyle style) {
  const auto removed = drawers_.extract(style);
  return removed ? removed.mapped() : nullptr;
}

Ref<BKUKUnderlineDrawer> BKUKUnderlineDrawerManager::drawer(NSUnderlineStyle style) const {
  const auto found = drawers_.find(style);
  return found != drawers_.end() ? found->second : nullptr;
}

}  // namespace bkuk
