#pragma once

// The whole desktop platform's surface: windows, views, events, colours.

#include "platform/appkit/NSAccessibility.h"
#include "platform/appkit/NSAccessibilityElement.h"
#include "platform/appkit/NSAnimationContext.h"
#include "platform/appkit/NSAppearance.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSBezierPath.h"
#include "platform/appkit/NSColor.h"
#include "platform/appkit/NSControl.h"
#include "platform/appkit/NSCursor.h"
#include "platform/appkit/NSEvent.h"
#include "platform/appkit/NSEventMonitor.h"
#include "platform/appkit/NSGraphicsContext.h"
#include "platform/appkit/NSPanel.h"
#include "platform/appkit/NSResponder.h"
#include "platform/appkit/NSScreen.h"
#include "platform/appkit/NSShadow.h"
#include "platform/appkit/NSTrackingArea.h"
#include "platform/appkit/NSUserInterfaceLayoutDirection.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"
