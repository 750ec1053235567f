#pragma once

// Fonts by their files and names, and single lines of shaped text.

#include "platform/coretext/CTFont.h"
#include "platform/coretext/CTFontManager.h"
#include "platform/coretext/CTLine.h"
