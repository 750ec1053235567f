#pragma once

#include "gallery/GalleryContent.h"
#include "gallery/GalleryOptions.h"

namespace bkuk::gallery {

/// The gallery's window with its content, not yet shown.
struct GalleryWindow {
  Ref<NSWindow> window;
  Ref<GalleryContent> content;
};

/// Gives the application the choices of the options and makes the window that shows them.
[[nodiscard]] GalleryWindow makeGalleryWindow(const GalleryOptions& options);

}  // namespace bkuk::gallery
