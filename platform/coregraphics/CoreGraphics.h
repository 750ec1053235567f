#pragma once

// All that draws into bitmaps: colours, gradients, paths and contexts.

#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/coregraphics/CGBlendMode.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/CGColorSpace.h"
#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGGradient.h"
#include "platform/coregraphics/CGLineStyle.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/coregraphics/CGPath.h"
#include "platform/coregraphics/CGPathElement.h"
#include "platform/foundation/CGGeometry.h"
