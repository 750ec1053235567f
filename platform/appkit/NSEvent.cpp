#include "platform/appkit/NSEvent.h"

#include "platform/appkit/NSWindow.h"

namespace bkuk {

NSEvent::NSEvent(Fields fields) : fields_(std::move(fields)) {}

NSEvent::~NSEvent() = default;

}  // namespace bkuk
