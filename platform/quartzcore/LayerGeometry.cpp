#include "platform/quartzcore/LayerGeometry.h"

#include "platform/quartzcore/LayerAccess.h"

namespace bkuk {

CGAffineTransform transformToSuperlayer(const CALayer& layer) {
  const auto& values = LayerAccess::values(layer);
  const auto& bounds = values.bounds;
  const CGAffineTransform unturned{
      1,
      0,
      0,
      values.geometryFlipped ? -1.0 : 1.0,
      -bounds.minX() - values.anchorPoint.x * bounds.width(),
      (values.geometryFlipped ? bounds.maxY() : -bounds.minY()) - values.anchorPoint.y * bounds.height()};
  const auto position = CGAffineTransform::translation(values.position.x, values.position.y);
  if (!LayerAccess::mayBeTransformed(layer)) return unturned.concatenating(position);
  return unturned.concatenating(CATransform3DGetAffineTransform(layer.transform())).concatenating(position);
}

CGAffineTransform transformToRoot(const CALayer& layer) {
  auto transform = transformToSuperlayer(layer);
  for (const auto* above = LayerAccess::container(layer); above; above = LayerAccess::container(*above)) {
    transform = transform.concatenating(transformToSuperlayer(*above));
  }
  return transform;
}

}  // namespace bkuk
