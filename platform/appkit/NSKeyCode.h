#pragma once

#include "host/KeyCodes.h"

namespace bkuk {

/// What `NSEvent::keyCode` answers for the keys that have names here, such as `NSKeyCode::tab`.
namespace NSKeyCode = host::keyCode;

}  // namespace bkuk
