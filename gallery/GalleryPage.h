#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// One page of the gallery. Its y runs down.
class GalleryPage : public NSView {
 public:
  /// The height that the page's content needs at that width, in points. Called before each layout.
  [[nodiscard]] virtual CGFloat heightForWidth(CGFloat width) const = 0;
  /// The views on the page that the keyboard reaches, in the order of the Tab key.
  [[nodiscard]] virtual std::vector<NSView*> keyViews() const { return {}; }

  [[nodiscard]] bool isFlipped() const override { return true; }
};

/// A page as the list of pages knows it.
struct GalleryPageEntry {
  std::string_view name;  ///< as shown in the list
  std::string_view slug;  ///< as typed after --page and used for file names
  Ref<GalleryPage> (*makePage)();
};

/// Every page, in the order of the list.
[[nodiscard]] std::span<const GalleryPageEntry> galleryPages();

}  // namespace bkuk::gallery
