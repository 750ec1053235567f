#include "platform/quartzcore/CALayerContents.h"

#include <utility>

#include "platform/quartzcore/raster/PieceRaster.h"

namespace bkuk {

CALayerContents::CALayerContents(host::Bitmap bitmap, double scale, std::optional<Part> part)
    : bitmap_(std::move(bitmap)), size_(bitmap_.size()), scale_(scale), part_(part) {}

CALayerContents::CALayerContents(std::vector<PaintedPiece> pieces, host::PixelSize size, double scale,
                                 std::optional<Part> part)
    : pieces_(std::move(pieces)), size_(size), scale_(scale), part_(part) {}

const host::Bitmap& CALayerContents::bitmap() const {
  if (bitmap_.isEmpty() && !pieces_.empty()) {
    bitmap_ = host::Bitmap(size_);
    const PixelTarget target(bitmap_, 0, 0);
    PieceRaster(target, target.area()).paint(pieces_, 0, 0);
  }
  return bitmap_;
}

}  // namespace bkuk
