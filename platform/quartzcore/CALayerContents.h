#pragma once

#include "host/Bitmap.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// An immutable bitmap that layers share as their contents, with the number of its pixels per point.
class CALayerContents : public NSObject {
 public:
  explicit CALayerContents(host::Bitmap bitmap, double scale = 1)
      : bitmap_(std::move(bitmap)), scale_(scale) {}

  [[nodiscard]] const host::Bitmap& bitmap() const { return bitmap_; }
  [[nodiscard]] double scale() const { return scale_; }

 private:
  host::Bitmap bitmap_;
  double scale_;
};

}  // namespace bkuk
