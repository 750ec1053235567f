#include "BrenvikUIKit/interaction/BKUKTooltipDisplaying.h"

namespace bkuk {

std::function<Ref<BKUKTooltipDisplaying>(BKUKStatefulView&)>& BKUKTooltipDisplaying::makeDisplayer =
    *new std::function<Ref<BKUKTooltipDisplaying>(BKUKStatefulView&)>;

}  // namespace bkuk
