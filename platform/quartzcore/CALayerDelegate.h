#pragma once

#include <optional>
#include <string_view>

#include "platform/quartzcore/CAAction.h"

namespace bkuk {

class CALayer;
class CGContext;

/// Answers for a layer what it shows and how it animates. Implemented by an `NSObject`, which the layer
/// holds weakly and keeps alive for the length of each call. A member may change or remove the layer.
class CALayerDelegate {
 public:
  virtual ~CALayerDelegate() = default;

  /// Called by `CALayer::display`. True when the delegate has set the layer's contents itself; false lets
  /// the layer draw into a bitmap.
  virtual bool displayLayer(CALayer&) { return false; }

  /// Called by `CALayer::draw`. The context's user space is the layer's bounds space. A delegate that
  /// paints nothing costs no bitmap.
  virtual void drawLayer(CALayer&, CGContext&) {}

  /// Called by `CALayer::layoutSublayers`.
  virtual void layoutSublayersOfLayer(CALayer&) {}

  /// Asked before a property changes. Absent: the search goes on; an empty action: there is none.
  virtual std::optional<Ref<CAAction>> actionForLayer(CALayer&, std::string_view /*key*/) {
    return std::nullopt;
  }
};

}  // namespace bkuk
