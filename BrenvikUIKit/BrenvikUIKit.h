#pragma once

// The whole kit, with the desktop platform that it stands on.

#include "platform/foundation/NSNotificationCenter.h"
