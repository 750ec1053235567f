#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "host/Canvas.h"
#include "host/ImageFile.h"
#include "host/Text.h"

namespace bkuk::host {

/// Raster, text and image files of the desktop's host for hosts without a desktop. Drawing needs no display;
/// faces and image files make an application object without one when they are first asked for.
[[nodiscard, gnu::visibility("default")]] std::unique_ptr<Canvas> makeRasterCanvas(Bitmap& bitmap);
[[nodiscard, gnu::visibility("default")]] std::unique_ptr<Fonts> makeInstalledFonts();
[[nodiscard, gnu::visibility("default")]] DecodedImage decodeImageFile(std::span<const std::byte> bytes);

}  // namespace bkuk::host
