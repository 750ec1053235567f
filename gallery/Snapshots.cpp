#include "gallery/Snapshots.h"

#include <cstdio>
#include <filesystem>

#include "gallery/GalleryWindow.h"
#include "host/PngFile.h"
#include "testing/VirtualHostScope.h"

namespace bkuk::gallery {

namespace {

constexpr CGFloat snapshotWidth = 1180;
constexpr host::Rect screen{0, 0, 1920, 1080};

bool writePage(const GalleryOptions& options, const std::filesystem::path& file) {
  const auto gallery = makeGalleryWindow(options);
  gallery.window->setContentSize({snapshotWidth, gallery.content->heightForWholePage(snapshotWidth)});
  gallery.window->orderFront();
  gallery.window->displayIfNeeded();
  const bool written = host::writePng(gallery.window->image(), file.string());
  gallery.window->close();
  return written;
}

std::string fileName(const GalleryOptions& options, std::string_view slug) {
  std::string name(slug);
  name += options.appearance == AppearanceChoice::dark ? "-dark" : "-light";
  if (options.direction == DirectionChoice::rightToLeft) name += "-rtl";
  if (options.scale != 1) {
    std::string scale = std::to_string(options.scale);
    scale.erase(scale.find_last_not_of('0') + 1);
    if (scale.ends_with('.')) scale.pop_back();
    name += "@" + scale + "x";
  }
  return name + ".png";
}

}  // namespace

int writeSnapshots(const GalleryOptions& options, const std::string& directory) {
  std::error_code error;
  std::filesystem::create_directories(directory, error);
  const VirtualHostScope host;
  host->setScreens({{.frame = screen, .visibleFrame = screen, .scale = options.scale}});
  for (const auto& entry : galleryPages()) {
    if (!options.page.empty() && options.page != entry.slug) continue;
    GalleryOptions single = options;
    single.page = entry.slug;
    const auto file = std::filesystem::path(directory) / fileName(options, entry.slug);
    if (!writePage(single, file)) {
      std::fprintf(stderr, "bkuk-gallery: cannot write %s\n", file.c_str());
      return 1;
    }
    std::printf("%s\n", file.c_str());
  }
  return 0;
}

}  // namespace bkuk::gallery
