#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/quartzcore/compositor/Scene.h"
#include "platform/quartzcore/raster/PixelTarget.h"

namespace bkuk {

/// Paints scenes into an image. Boxes, rings, shadows and contents that fall on whole pixels are written
/// directly, everything else goes through a context.
class ScenePainter {
 public:
  /// `image` shows the device from its first pixel on and must outlive the painter.
  explicit ScenePainter(host::Bitmap& image);
  ~ScenePainter();

  /// Replaces what is in `area`, for which the scene was built.
  void paint(const Scene& scene, const PixelRect& area);

 private:
  using Item = Scene::Item;
  struct Surface;

  void paintItem(const Scene& scene, const Item& item);
  void paintPath(const Item& item, const LayerBox& box, const CGPath& path, const Ref<CGColor>& color,
                 double alpha);
  void paintFill(const Item& item, const LayerBox& box);
  void paintRing(const Item& item, const LayerBox& box);
  void paintContents(const Item& item, const LayerBox& box);
  void paintOnPixels(const Item& item, const CALayerContents& contents, const LayerBox& box);
  void paintCustom(const Item& item, const LayerBox& box);
  void paintShadow(const Item& item, const LayerBox& box, std::span<const PixelRect> covers);
  void beginGroup(const Item& item);
  void beginMask();
  void endGroup(const Item& item, const LayerBox& box);
  void composeMask();
  void cutToBox(const Item& item, const LayerBox& box);

  Surface& top() { return *surfaces_.back(); }

  std::vector<std::unique_ptr<Surface>> surfaces_;
};

}  // namespace bkuk
