#pragma once

#include <map>

#include "BrenvikUIKit/text/BKUKUnderlineDrawer.h"
#include "platform/appkit/text/NSUnderlineStyle.h"

namespace bkuk {

/// Knows who draws which style of underline: any number but 0 is one, also a pattern alone and bits that the
/// application gives a meaning. A style without a drawer is drawn by the platform.
class BKUKUnderlineDrawerManager final : public NSObject {
 public:
  /// That of all labels that have none of their own. Nobody draws in it at first.
  [[nodiscard]] static BKUKUnderlineDrawerManager& shared();

  [[nodiscard]] const std::map<NSUnderlineStyle, Ref<BKUKUnderlineDrawer>>& drawers() const {
    return drawers_;
  }
  /// Takes the place of the drawer that is there. Text that is on screen changes when it is drawn again.
  void set(Ref<BKUKUnderlineDrawer> underlineDrawer, NSUnderlineStyle style);
  /// Answers the drawer that was there.
  Ref<BKUKUnderlineDrawer> remove(NSUnderlineStyle style);
  [[nodiscard]] Ref<BKUKUnderlineDrawer> drawer(NSUnderlineStyle style) const;

 private:
  std::map<NSUnderlineStyle, Ref<BKUKUnderlineDrawer>> drawers_;
};

}  // namespace bkuk
