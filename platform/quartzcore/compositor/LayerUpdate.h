#pragma once

#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/compositor/DamageRegion.h"
#include "platform/quartzcore/compositor/LayerBox.h"

namespace bkuk {

/// Finds out where the layers that changed are now, and damages where they were and are. It looks at nothing
/// but changed layers, their superlayers and what moved along with them, and takes their marks.
class LayerUpdate {
 public:
  using Layers = std::vector<Ref<CALayer>>;

  /// `image`: the device pixels there are; `time`: for animations. Adds to `cameInSight` the layers whose
  /// drawing waited for that, and lets go of the bitmaps of those that left.
  LayerUpdate(const PixelRect& image, double time, DamageRegion& damage, Layers& cameInSight);
  ~LayerUpdate();

  /// `toDevice` maps the root's superspace to the device.
  void run(CALayer& root, const CGAffineTransform& toDevice);

 private:
  struct Visit;

  struct Around;

  void enter(CALayer& layer, const Around& around);
  void followSight(CALayer& layer, const LayerBox& box, const Around& around, bool isFlipped);
  void leave(Visit& visit);
  void leaveInvisible(CALayer& layer);
  static void tellOfMove(const CALayer& sublayer, Visit& around);
  static PixelRect updateBelow(const Visit& visit);
  void updateRects(Visit& visit);
  void damage(const PixelRect& rect) { damage_.add(intersect(rect, image_)); }

  PixelRect image_;
  double time_;
  DamageRegion& damage_;
  Layers& cameInSight_;
  std::vector<Visit> visits_;
};

/// Whether the layer shows anything at all, itself or below.
[[nodiscard]] bool isVisible(const CALayer& shown);

/// The pixels of the layer and its sublayers, as far as they were looked at, without its shadow.
[[nodiscard]] PixelRect pixelsOfContent(const CALayer& shown, const LayerBox& box, const PixelRect& below);

/// What it paints within its bounds.
[[nodiscard]] bool hasVisibleBackground(const CALayer& shown);
[[nodiscard]] bool hasVisibleBorder(const CALayer& shown);
[[nodiscard]] bool hasVisibleContents(const CALayer& shown);

/// Whether the layer lies over or under something else of its own: several things, or what may be several.
/// Under one opacity they need a group. `withEmptySublayers` counts those in which nothing was seen.
[[nodiscard]] bool hasSeveralParts(const CALayer& shown, const CALayer& layer, bool hasShadow,
                                   bool withEmptySublayers = false);

}  // namespace bkuk
