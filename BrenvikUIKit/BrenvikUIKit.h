#pragma once

// The whole kit, with the desktop platform that it stands on.

#include "platform/appkit/AppKit.h"
#include "platform/coretext/CTLine.h"
#include "platform/foundation/NSNotificationCenter.h"
