#include "host/qt/QtDrawing.h"

#include "host/qt/QtCanvas.h"
#include "host/qt/text/QtFonts.h"

namespace bkuk::host {

std::unique_ptr<Canvas> makeRasterCanvas(Bitmap& bitmap) { return std::make_unique<QtCanvas>(bitmap); }

std::unique_ptr<Fonts> makeInstalledFonts() { return std::make_unique<QtFonts>(); }

}  // namespace bkuk::host
