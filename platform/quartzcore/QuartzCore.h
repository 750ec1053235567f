#pragma once

// All of layers: their kinds, their contents, transactions and animations.

#include "platform/quartzcore/CAAction.h"
#include "platform/quartzcore/CAAnimation.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CAGradientLayer.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CALayerContents.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "platform/quartzcore/CARenderer.h"
#include "platform/quartzcore/CAShapeLayer.h"
#include "platform/quartzcore/CATransaction.h"
#include "platform/quartzcore/CATransactionScope.h"
#include "platform/quartzcore/CATransform3D.h"
#include "platform/quartzcore/CAValue.h"
