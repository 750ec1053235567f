#pragma once

#include <optional>

#include "host/Bitmap.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// An immutable bitmap that layers share as their contents, with the number of its pixels per point.
class CALayerContents : public NSObject {
 public:
  explicit CALayerContents(host::Bitmap bitmap, double scale = 1)
      : bitmap_(std::move(bitmap)), scale_(scale) {}

  /// A bitmap of a part of what is shown: its first pixel is the one at (`x`, `y`) of `whole`.
  CALayerContents(host::Bitmap bitmap, double scale, host::PixelSize whole, int x, int y)
      : bitmap_(std::move(bitmap)), scale_(scale), whole_(whole), x_(x), y_(y) {}

  [[nodiscard]] const host::Bitmap& bitmap() const { return bitmap_; }
  [[nodiscard]] double scale() const { return scale_; }
  [[nodiscard]] bool isPart() const { return whole_.has_value(); }
  /// The pixels that fill a layer, also those that the bitmap has not.
  [[nodiscard]] host::PixelSize size() const { return whole_.value_or(bitmap_.size()); }
  /// Where among them the bitmap begins, from the upper left.
  [[nodiscard]] int x() const { return x_; }
  [[nodiscard]] int y() const { return y_; }

 private:
  host::Bitmap bitmap_;
  double scale_;
  std::optional<host::PixelSize> whole_;
  int x_ = 0;
  int y_ = 0;
};

}  // namespace bkuk
