#include "platform/appkit/NSLayoutGuide.h"

#include "platform/appkit/NSView.h"

namespace bkuk {

Ref<NSView> NSLayoutGuide::owningView() const { return owner_.lock(); }
Ref<NSView> NSLayoutGuide::layoutContainer() const { return owner_.lock(); }
Ref<NSView> NSLayoutGuide::layoutView() { return owner_.lock(); }

}  // namespace bkuk
