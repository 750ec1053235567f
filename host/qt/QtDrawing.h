#pragma once

#include <memory>

#include "host/Canvas.h"
#include "host/Text.h"

namespace bkuk::host {

/// The raster and the text of the desktop's host for hosts without a desktop. Drawing needs no display;
/// the faces make an application object without one when they are first asked for.
[[nodiscard]] std::unique_ptr<Canvas> makeRasterCanvas(Bitmap& bitmap);
[[nodiscard]] std::unique_ptr<Fonts> makeInstalledFonts();

}  // namespace bkuk::host
