#pragma once

#include "host/Drawing.h"
#include "host/qt/text/QtFonts.h"

namespace bkuk::host {

/// Qt's raster engine, text and image readers. Drawing needs no application object; faces and image files
/// make one without a display when they are first asked for and the process has none.
class QtDrawing final : public Drawing {
 public:
  [[nodiscard]] std::unique_ptr<Canvas> makeCanvas(Bitmap& bitmap) override;
  [[nodiscard]] Fonts& fonts() override { return fonts_; }
  [[nodiscard]] DecodedImage decodeImage(std::span<const std::byte> file) const override;

 private:
  QtFonts fonts_;
};

}  // namespace bkuk::host
