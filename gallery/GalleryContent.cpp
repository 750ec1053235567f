#include "gallery/GalleryContent.h"

#include <algorithm>

#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat sidebarWidth = 216;
constexpr CGFloat sidebarPadding = 24;
constexpr CGFloat listBottom = 12;
constexpr CGFloat productNameTop = 22;
constexpr CGFloat pageListTop = 64;
constexpr CGFloat headerHeight = 76;
constexpr CGFloat margin = 28;
constexpr CGFloat switchGap = 12;

template <typename T>
std::vector<std::string> namesOf(const T& entries) {
  std::vector<std::string> names;
  for (const auto& entry : entries) names.emplace_back(entry.name);
  return names;
}

std::size_t indexOfPage(std::string_view slug) {
  const auto pages = galleryPages();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (pages[i].slug == slug) return i;
  }
  return 0;
}

}  // namespace

void applyAppearance(AppearanceChoice choice) {
  auto& application = NSApplication::shared();
  switch (choice) {
    case AppearanceChoice::light:
      return application.setAppearance(NSAppearance::named(NSAppearanceNameAqua));
    case AppearanceChoice::dark:
      return application.setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
    case AppearanceChoice::followDesktop:
      return application.setAppearance(nullptr);
  }
}

void applyDirection(DirectionChoice choice) {
  NSApplication::shared().setUserInterfaceLayoutDirection(choice == DirectionChoice::rightToLeft
                                                              ? NSUserInterfaceLayoutDirection::rightToLeft
                                                              : NSUserInterfaceLayoutDirection::leftToRight);
}

GalleryContent::GalleryContent(std::string_view page, AppearanceChoice appearance, DirectionChoice direction)
    : Box({.fill = role(Role::background)}),
      pageIndex_(indexOfPage(page)),
      appearance_(appearance),
      direction_(direction) {}

void GalleryContent::didInit() {
  Box::didInit();
  makeSidebar();
  makeHeader();
  scroller_ = make<Scroller>(role(Role::background));
  addSubview(scroller_);
  showPage(pageIndex_);
}

void GalleryContent::makeSidebar() {
  sidebar_ = make<Box>(Box::Look{.fill = role(Role::desktopMenu)});
  productName_ = make<TextLabel>(
      "BrenvikUIKit", TextLabel::Style{.size = 15, .weight = 700, .color = role(Role::onDesktopMenu)});
  pageList_ = make<Choice>(Choice::Arrangement::list, namesOf(galleryPages()), pageIndex_,
                           [this](std::size_t index) { showPage(index); });
  pageList_->setAccessibilityLabel("Pages");
  listScroller_ = make<Scroller>(Color(), Scroller::KeyView::never);
  listScroller_->setAccessibilityLabel("Contents");
  addSubview(sidebar_);
  sidebar_->addSubview(productName_);
  sidebar_->addSubview(listScroller_);
  listScroller_->setContent(
      pageList_, [list = pageList_.get()](CGFloat) { return list->fittingSize().height + listBottom; });
}

void GalleryContent::makeHeader() {
  title_ =
      make<TextLabel>("", TextLabel::Style{.size = 24, .weight = 700, .color = role(Role::onBackground)});
  appearanceSwitch_ =
      make<Choice>(Choice::Arrangement::segments, std::vector<std::string>{"Light", "Dark", "Desktop"},
                   static_cast<std::size_t>(appearance_),
                   [](std::size_t index) { applyAppearance(static_cast<AppearanceChoice>(index)); });
  directionSwitch_ = make<Choice>(Choice::Arrangement::segments, std::vector<std::string>{"LTR", "RTL"},
                                  static_cast<std::size_t>(direction_), [](std::size_t index) {
                                    applyDirection(static_cast<DirectionChoice>(index));
                                  });
  title_->setAccessibilityRole(NSAccessibilityHeadingRole);
  appearanceSwitch_->setAccessibilityLabel("Appearance");
  directionSwitch_->setAccessibilityLabel("Direction");
  addSubview(title_);
  addSubview(appearanceSwitch_);
  addSubview(directionSwitch_);
}

void GalleryContent::linkKeyViews() {
  std::vector<NSView*> views{pageList_.get(), appearanceSwitch_.get(), directionSwitch_.get(),
                             scroller_.get()};
  const auto ofPage = page_->keyViews();
  views.insert(views.end(), ofPage.begin(), ofPage.end());
  for (std::size_t i = 0; i < views.size(); ++i) views[i]->setNextKeyView(views[(i + 1) % views.size()]);
}

void GalleryContent::showPage(std::size_t index) {
  const auto& entry = galleryPages()[index];
  pageIndex_ = index;
  page_ = entry.makePage();
  title_->setText(std::string(entry.name));
  scroller_->setAccessibilityLabel(std::string(entry.name));
  scroller_->setContent(page_, [page = page_.get()](CGFloat width) { return page->heightForWidth(width); });
  linkKeyViews();
}

CGFloat GalleryContent::heightForWholePage(CGFloat width) const {
  const CGFloat list = pageListTop + pageList_->fittingSize().height + listBottom;
  return std::max(list, headerHeight + page_->heightForWidth(width - sidebarWidth));
}

void GalleryContent::layout() {
  const NSSize size = bounds().size;
  sidebar_->setFrame(fromLeading(*this, {0, 0, sidebarWidth, size.height}));
  productName_->setFrame({sidebarPadding, productNameTop, sidebarWidth - 2 * sidebarPadding, 24});
  listScroller_->setFrame({0, pageListTop, sidebarWidth, size.height - pageListTop});
  const CGFloat pageWidth = size.width - sidebarWidth;
  const NSSize directionSize = directionSwitch_->fittingSize();
  const NSSize appearanceSize = appearanceSwitch_->fittingSize();
  const CGFloat switchTop = (headerHeight - directionSize.height) / 2;
  CGFloat edge = size.width - margin - directionSize.width;
  directionSwitch_->setFrame(fromLeading(*this, {{edge, switchTop}, directionSize}));
  edge -= switchGap + appearanceSize.width;
  appearanceSwitch_->setFrame(fromLeading(*this, {{edge, switchTop}, appearanceSize}));
  const CGFloat titleStart = sidebarWidth + margin;
  title_->setFrame(fromLeading(*this, {titleStart, 0, edge - switchGap - titleStart, headerHeight}));
  scroller_->setFrame(
      fromLeading(*this, {sidebarWidth, headerHeight, pageWidth, size.height - headerHeight}));
}

}  // namespace bkuk::gallery
