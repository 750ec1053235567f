#pragma once

#include "platform/quartzcore/compositor/LayerBox.h"
#include "platform/quartzcore/raster/PixelMath.h"

namespace bkuk {

/// The shadow of one layer on the device.
struct LayerShadow {
  enum class Kind {
    none,
    box,      ///< of the layer's box, which is all there is to its outline
    path,     ///< of its `shadowPath`
    composed  ///< of everything it shows
  };

  Kind kind = Kind::none;
  double sigma = 0;  ///< of the blur, in pixels
  int dx = 0;
  int dy = 0;
  Pixel color = 0;

  /// Of `layer` as it is `shown`. `isFlipped`: y runs down in its bounds space.
  [[nodiscard]] static LayerShadow of(const CALayer& shown, const LayerBox& box, const CALayer& layer,
                                      bool isFlipped);
  /// The same before anything is known of the sublayers: composed also where it will turn out that the box
  /// is all there is.
  [[nodiscard]] static LayerShadow atMost(const CALayer& shown, const LayerBox& box, bool isFlipped);
  /// Of what it is at most, what it is now that the sublayers are known.
  [[nodiscard]] LayerShadow with(const CALayer& shown, const LayerBox& box, const CALayer& layer) const;

  /// The pixels the shadow touches. `content`: those of the composed layer.
  [[nodiscard]] PixelRect rect(const CALayer& shown, const LayerBox& box, const PixelRect& content) const;

  /// The area, and what is around it of which a composed shadow falls into it.
  [[nodiscard]] PixelRect areaThatCastsInto(const PixelRect& area) const;
};

/// The pixels that the layer's sublayers touch.
[[nodiscard]] PixelRect pixelsBelow(const CALayer& layer);

}  // namespace bkuk
