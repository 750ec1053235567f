#pragma once

#include <functional>

#include "platform/foundation/NSObject.h"

namespace bkuk {

class BKUKStatefulView;

/// What a stateful view needs of whoever shows its tooltip.
class BKUKTooltipDisplaying : public NSObject {
 public:
  [[nodiscard]] virtual bool isTooltipShowing() const = 0;
  /// Shows the tooltip now.
  virtual void showTooltip() = 0;
  /// Hides a tooltip that shows, and calls off one that waits to be shown.
  virtual void hideTooltip() = 0;
  /// Whether disabled views show their tooltip too.
  [[nodiscard]] virtual bool showsOnDisabledViews() const = 0;
  /// The pointer came in, or left: starts the wait anew, or ends it.
  virtual void updateTooltipTimer(bool entering) = 0;

  /// Makes the displayer of a view on first use. Empty at first: then views have none.
  static std::function<Ref<BKUKTooltipDisplaying>(BKUKStatefulView& view)>& makeDisplayer;
};

}  // namespace bkuk
