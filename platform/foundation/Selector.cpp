#include "platform/foundation/Selector.h"

#include "platform/foundation/Interning.h"

namespace bkuk {

Selector::Selector(std::string_view name) : name_(&interned(name)) {}

}  // namespace bkuk
