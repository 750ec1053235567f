#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/Bitmap.h"
#include "platform/quartzcore/raster/RoundedBox.h"

namespace bkuk {

/// How much of each pixel a rounded box covers, or the ring along its edge. Boxes that differ in nothing but
/// their lengths share it: it holds the pixels of a short one, whose middle row and column repeat in longer
/// ones.
///
/// It is measured, by filling that box as a path: so what is painted by it looks like what is filled as a
/// path, on any host.
class BoxCoverage {
 public:
  /// The greatest radius and ring it is kept for, in device pixels.
  static constexpr int mostPixels = 512;

  /// Kept for the next use. `box` is `fitted`; a `ringWidth` of 0 means the whole box. Neither is more than
  /// `mostPixels`.
  [[nodiscard]] static std::shared_ptr<const BoxCoverage> of(const RoundedBox& box, int ringWidth);

  BoxCoverage(const RoundedBox& shortBox, int ringWidth);

  /// One row: `leftLength` pixels from the left edge on, whose coverages start at `left`; `rightLength`
  /// pixels up to the right edge, whose coverages end at `rightEnd`; and `middle` for all between them.
  struct Row {
    const std::uint8_t* left = nullptr;
    const std::uint8_t* rightEnd = nullptr;
    int leftLength = 0;
    int rightLength = 0;
    std::uint8_t middle = 255;
    bool isWhole = true;  ///< every pixel is covered
  };

  /// `fromTop` and `fromBottom` count the rows of the box that is painted from 0.
  [[nodiscard]] const Row& row(int fromTop, int fromBottom) const;

 private:
  [[nodiscard]] Row measuredRow(int y) const;

  PixelSize size_;
  std::vector<std::uint8_t> cells_;
  std::vector<Row> rows_;
};

}  // namespace bkuk
