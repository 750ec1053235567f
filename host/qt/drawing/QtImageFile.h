#pragma once

#include <cstddef>
#include <span>

#include "host/ImageFile.h"

namespace bkuk::host {

/// The picture in the bytes of a file, by what they begin with, read by the plug-ins that Qt has for it.
[[nodiscard]] DecodedImage decodeImageFile(std::span<const std::byte> bytes);

}  // namespace bkuk::host
