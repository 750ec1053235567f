#pragma once

#include <optional>
#include <string>

#include "host/Bitmap.h"

namespace bkuk::host {

// Pictures for people and tests to look at. Defined by the one implementation that is linked; neither
// needs a display.

/// Writes the bitmap, alpha included, to the file of that UTF-8 path. False when it is empty or the file
/// cannot be written.
[[nodiscard, gnu::visibility("default")]] bool writePng(const Bitmap& bitmap, const std::string& path);

/// The picture in the file; none when it cannot be read, is no PNG or has a side beyond `Bitmap::maxSide`.
[[nodiscard, gnu::visibility("default")]] std::optional<Bitmap> readPng(const std::string& path);

}  // namespace bkuk::host
