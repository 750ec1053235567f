#pragma once

#include <optional>
#include <span>
#include <vector>

#include "host/Bitmap.h"
#include "platform/coregraphics/PaintedPiece.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// An immutable picture that layers share as their contents, with the number of its pixels per point: a
/// bitmap, or pieces that are painted wherever the layer shows.
class CALayerContents : public NSObject {
 public:
  /// What is to be shown, when that is a part of something larger: where its first pixel is in `whole`.
  struct Part {
    host::PixelSize whole;
    int x = 0;
    int y = 0;
  };

  explicit CALayerContents(host::Bitmap bitmap, double scale = 1, std::optional<Part> part = std::nullopt);
  /// `size`: of the bitmap that the pieces are instead of. They are painted in their order and cut to it.
  CALayerContents(std::vector<PaintedPiece> pieces, host::PixelSize size, double scale,
                  std::optional<Part> part = std::nullopt);

  /// Of pieces it is painted when first asked for, and kept.
  [[nodiscard]] const host::Bitmap& bitmap() const;
  /// None for a bitmap that was given.
  [[nodiscard]] std::span<const PaintedPiece> pieces() const { return pieces_; }
  /// The extent of the bitmap, whether there is one or not.
  [[nodiscard]] host::PixelSize bitmapSize() const { return size_; }
  /// Whether it has memory for every pixel.
  [[nodiscard]] bool hasBitmap() const { return !bitmap_.isEmpty(); }
  [[nodiscard]] bool isEmpty() const { return size_.width <= 0 || size_.height <= 0; }
  [[nodiscard]] double scale() const { return scale_; }
  [[nodiscard]] bool isPart() const { return part_.has_value(); }
  /// The pixels that fill a layer, also those that the bitmap has not.
  [[nodiscard]] host::PixelSize size() const { return part_ ? part_->whole : size_; }
  /// Where among them the bitmap begins, from the upper left.
  [[nodiscard]] int x() const { return part_ ? part_->x : 0; }
  [[nodiscard]] int y() const { return part_ ? part_->y : 0; }

 private:
  mutable host::Bitmap bitmap_;
  std::vector<PaintedPiece> pieces_;
  host::PixelSize size_;
  double scale_;
  std::optional<Part> part_;
};

}  // namespace bkuk
