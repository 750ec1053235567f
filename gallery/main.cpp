#include <cstdio>

#include "gallery/GalleryOptions.h"
#include "gallery/GalleryWindow.h"
#include "gallery/Snapshots.h"
#include "gallery/brand/Brand.h"
#include "host/Desktop.h"
#include "host/Host.h"

namespace bkuk::gallery {

namespace {

constexpr const char* unattendedDirectory = "build/gallery-pages";

int listPages() {
  for (const auto& entry : galleryPages()) std::printf("%s\n", std::string(entry.slug).c_str());
  return 0;
}

int runWindow(const GalleryOptions& options) {
  auto& application = NSApplication::shared();
  application.setApplicationName("BrenvikUIKit Gallery");
  application.setDesktopIdentifier("bkuk-gallery");
  const auto gallery = makeGalleryWindow(options);
  gallery.window->makeKeyAndOrderFront();
  if (options.exitAfterFirstFrame) {
    gallery.window->displayIfNeeded();
    return 0;
  }
  application.run();
  return 0;
}

int run(const GalleryOptions& options) {
  if (options.showHelp) return std::fputs(usageText().c_str(), stdout) < 0 ? 1 : 0;
  if (options.listPages) return listPages();
  installBrand();
  if (options.snapshotDirectory) return writeSnapshots(options, *options.snapshotDirectory);
  if (options.exitAfterFirstFrame || host::current().desktop().hasDisplay()) return runWindow(options);
  std::fprintf(stderr, "bkuk-gallery: no display, writing the pages to %s\n", unattendedDirectory);
  return writeSnapshots(options, unattendedDirectory);
}

}  // namespace

}  // namespace bkuk::gallery

int main(int argc, char** argv) {
  using namespace bkuk::gallery;
  const auto parsed = parseOptions({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
  if (const auto* wrong = std::get_if<std::string>(&parsed)) {
    std::fprintf(stderr, "bkuk-gallery: %s\n%s", wrong->c_str(), usageText().c_str());
    return 2;
  }
  return run(std::get<GalleryOptions>(parsed));
}
