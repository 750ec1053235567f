#include "host/qt/drawing/QtDrawing.h"

#include "host/qt/drawing/QtCanvas.h"
#include "host/qt/drawing/QtImageFile.h"

namespace bkuk::host {

std::unique_ptr<Canvas> QtDrawing::makeCanvas(Bitmap& bitmap) { return std::make_unique<QtCanvas>(bitmap); }

DecodedImage QtDrawing::decodeImage(std::span<const std::byte> file) const { return decodeImageFile(file); }

std::unique_ptr<Drawing> makeDrawing() { return std::make_unique<QtDrawing>(); }

}  // namespace bkuk::host
