#include "platform/foundation/NSAttributedStringKey.h"

#include "platform/foundation/Interning.h"

namespace bkuk {

NSAttributedStringKey::NSAttributedStringKey(std::string_view text) : text_(&interned(text)) {}

}  // namespace bkuk
