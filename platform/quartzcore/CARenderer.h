#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>

#include "host/Bitmap.h"
#include "host/Geometry.h"
#include "platform/foundation/Ref.h"

namespace bkuk {

class CALayer;
struct CGAffineTransform;

/// Brings the layers of one window into an image, repainting only what changed.
///
/// The image covers the window's whole content. The root layer's superspace is the window: points, y up
/// from the lower left corner. A window's height is a whole number of points; where the image is a
/// fraction of a pixel higher, the fraction lies below.
///
/// The window that owns a renderer commits it (or lets `CATransaction::flush` do so), renders, and presents
/// the rectangles it gets. Main thread only.
class CARenderer {
 public:
  CARenderer();
  ~CARenderer();
  CARenderer(const CARenderer&) = delete;
  CARenderer& operator=(const CARenderer&) = delete;

  /// The root of the tree that hangs in this window, none at first. It must have no superlayer.
  void setLayer(Ref<CALayer> root);
  [[nodiscard]] const Ref<CALayer>& layer() const;

  /// Makes a new transparent image when something differs. `scale`: device pixels per point, clamped to
  /// what is finite and positive.
  void setSize(host::PixelSize size, double scale);
  [[nodiscard]] host::PixelSize size() const;
  [[nodiscard]] double scale() const;
  /// From the root's superspace to the pixels of the image, y down.
  [[nodiscard]] CGAffineTransform toDevice() const;

  /// Called once when the first change of a layer after a commit and a render asks for the next ones,
  /// from inside the change: it should only ask for a turn of the run loop.
  void setChangeHandler(std::function<void()> handler);

  /// Whether a layer of the tree is marked for layout or display, or changed, so that another may have come
  /// into sight, or an animation waits for its start. Cheap.
  [[nodiscard]] bool needsCommit() const;
  /// One pass: lays out the marked layers, superlayers first, displays the marked layers, superlayers
  /// first, starts the animations that were added, and draws what came into sight. Marks set by the display
  /// are served in the next pass. Delegates may do what they like meanwhile, also destroy this renderer.
  void commit();

  /// Makes the next `render` paint everything.
  void setNeedsRenderAll();
  /// Whether `render` has anything to do. Cheap; true may turn out to be no rectangle.
  [[nodiscard]] bool hasDamage() const;
  /// Repaints what changed since the last time and answers those rectangles, disjoint, in device pixels of
  /// the image. Calls no client code. The answer is valid until the next call.
  std::span<const host::PixelRect> render();

  [[nodiscard]] const host::Bitmap& image() const;
  /// How many layers the last `render` painted something of.
  [[nodiscard]] std::size_t paintedLayerCount() const;

 private:
  friend class CALayer;
  class Core;

  void treeDidChange();

  std::shared_ptr<Core> core_;
};

}  // namespace bkuk
