#pragma once

// The whole kit, with the desktop platform that it stands on.

#include "BrenvikUIKit/animation/BKUKAnimatable.h"
#include "BrenvikUIKit/animation/BKUKAnimate.h"
#include "BrenvikUIKit/animation/BKUKAnimationPhases.h"
#include "BrenvikUIKit/animation/BKUKDontAnimate.h"
#include "BrenvikUIKit/animation/BKUKLinearAnimationContext.h"
#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "BrenvikUIKit/colour/BKUKAppAppearanceObserver.h"
#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"
#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"
#include "BrenvikUIKit/colour/BKUKNSNotificationName+Extensions.h"
#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/colour/BKUKThemeColorBase.h"
#include "BrenvikUIKit/colour/BKUKThemeColorOpacity.h"
#include "BrenvikUIKit/colour/BKUKThemeColorRole.h"
#include "BrenvikUIKit/colour/BKUKThemeColorsFusion.h"
#include "BrenvikUIKit/colour/BKUKThemeColorsProvider.h"
#include "BrenvikUIKit/colour/BKUKThemedColor.h"
#include "platform/appkit/AppKit.h"
#include "platform/coretext/CTLine.h"
#include "platform/foundation/NSNotificationCenter.h"
