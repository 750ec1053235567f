#include "gallery/GalleryWindow.h"

#include "BrenvikUIKit/interaction/BKUKWindow.h"

namespace bkuk::gallery {

namespace {

constexpr NSSize usualSize{1180, 800};
constexpr NSSize smallestSize{940, 420};

DirectionChoice desktopDirection() {
  return NSApplication::shared().userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft
             ? DirectionChoice::rightToLeft
             : DirectionChoice::leftToRight;
}

}  // namespace

GalleryWindow makeGalleryWindow(const GalleryOptions& options) {
  const auto appearance = options.appearance.value_or(AppearanceChoice::followDesktop);
  const auto direction = options.direction.value_or(desktopDirection());
  applyAppearance(appearance);
  if (options.direction) applyDirection(direction);
  GalleryWindow gallery{make<BKUKWindow>(NSRect({}, usualSize)),
                        make<GalleryContent>(options.page, appearance, direction)};
  gallery.window->setAutorecalculatesKeyViewLoop(false);  // the content links its views itself
  gallery.window->setTitle("BrenvikUIKit Gallery");
  gallery.window->setBackgroundColor(NSColor::bkuk::background());
  gallery.window->setContentSizeLimits(smallestSize);
  gallery.window->setContentView(gallery.content);
  gallery.window->setInitialFirstResponder(&gallery.content->firstKeyView());
  gallery.window->makeFirstResponder(&gallery.content->firstKeyView());
  gallery.window->layoutIfNeeded();
  gallery.content->revealPage();
  gallery.window->center();
  return gallery;
}

}  // namespace bkuk::gallery
