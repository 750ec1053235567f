#pragma once

#include "gallery/GalleryOptions.h"

namespace bkuk::gallery {

/// Writes the pages that the options name, each whole, as PNG files into `directory`, which is made when it
/// is missing, and prints their paths. Needs no display. The process's exit code.
[[nodiscard]] int writeSnapshots(const GalleryOptions& options, const std::string& directory);

}  // namespace bkuk::gallery
