#pragma once

#include <string_view>

#include "gallery/GalleryOptions.h"
#include "gallery/GalleryPage.h"
#include "gallery/chrome/Choice.h"
#include "gallery/chrome/Scroller.h"

namespace bkuk::gallery {

/// What the gallery's window holds: the list of pages, and beside it the page with its title and the
/// switches for appearance and direction.
class GalleryContent : public Box {
 public:
  /// Opens the page of that slug, the first one when it is empty.
  GalleryContent(std::string_view page, AppearanceChoice appearance, DirectionChoice direction);

  /// The height of a window of that width in which the present page and the list of pages show whole, in
  /// points.
  [[nodiscard]] CGFloat heightForWholePage(CGFloat width) const;

  /// The view that has the keyboard at first.
  /// Scrolls the list so that the present page's row can be seen.
  void revealPage() { pageList_->revealSelected(); }
  [[nodiscard]] NSView& firstKeyView() const { return *pageList_; }

  void layout() override;

 protected:
  void didInit() override;

 private:
  void makeSidebar();
  void makeHeader();
  void showPage(std::size_t index);
  void linkKeyViews();

  std::size_t pageIndex_ = 0;
  AppearanceChoice appearance_;
  DirectionChoice direction_;
  Ref<Box> sidebar_;
  Ref<TextLabel> productName_;
  Ref<Scroller> listScroller_;
  Ref<Choice> pageList_;
  Ref<TextLabel> title_;
  Ref<Choice> appearanceSwitch_;
  Ref<Choice> directionSwitch_;
  Ref<Scroller> scroller_;
  Ref<GalleryPage> page_;
};

/// Gives the application the appearance and direction of a choice.
void applyAppearance(AppearanceChoice choice);
void applyDirection(DirectionChoice choice);

}  // namespace bkuk::gallery
