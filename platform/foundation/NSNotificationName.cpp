#include "platform/foundation/NSNotificationName.h"

#include "platform/foundation/Interning.h"

namespace bkuk {

NSNotificationName::NSNotificationName(std::string_view text) : text_(&interned(text)) {}

}  // namespace bkuk
