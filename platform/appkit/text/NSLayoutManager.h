#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/appkit/text/NSTextContainer.h"
#include "platform/appkit/text/NSTextStorage.h"
#include "platform/appkit/text/NSUnderlineStyle.h"
#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"

namespace bkuk {

class LineFragment;
class TextLayout;
struct TextPiece;

/// Sets the text of a storage into containers and draws it.
///
/// There is one glyph index for each UTF-16 code unit of the text, so glyph and character indexes agree: no
/// glyph stands for two characters, and the further code units of a character are null glyphs. Layout happens
/// when something asks for it and holds until the text, an attribute or a container changes. Glyph ranges
/// that reach beyond the text are cut to it.
class NSLayoutManager : public TextStorageListener {
 public:
  // Chain

  /// Null while no storage has this manager.
  [[nodiscard]] NSTextStorage* textStorage() const { return storage_; }
  void setTextStorage(NSTextStorage* storage) override;
  void processEditing(NSTextStorage& storage, const TextStorageEdit& edit) override;

  /// Filled in this order: what has no room in one is set into the next.
  [[nodiscard]] const std::vector<Ref<NSTextContainer>>& textContainers() const { return containers_; }
  /// A container belongs to one manager: it leaves the one that it has.
  void addTextContainer(const Ref<NSTextContainer>& container);
  void removeTextContainer(NSTextContainer& container);

  // Settings

  /// Whether lines are set as far apart as their fonts ask. True at first.
  [[nodiscard]] bool usesFontLeading() const { return usesFontLeading_; }
  void setUsesFontLeading(bool uses);
  /// Of the interface around the text; see `TextLayoutOptions`. That of the application at first.
  [[nodiscard]] NSUserInterfaceLayoutDirection userInterfaceLayoutDirection() const { return direction_; }
  void setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection direction);

  // Layout

  void ensureLayout(const NSTextContainer& forTextContainer);
  /// Sets the text anew when it is next asked for.
  void invalidateLayout();

  [[nodiscard]] std::size_t numberOfGlyphs() const { return storage_ ? storage_->length() : 0; }
  [[nodiscard]] std::size_t characterIndexForGlyph(std::size_t at) const { return at; }
  [[nodiscard]] std::size_t glyphIndexForCharacter(std::size_t at) const { return at; }
  /// What the container shows.
  [[nodiscard]] NSRange glyphRange(const NSTextContainer& forTextContainer);
  /// What of the glyph's line an ellipsis stands for; {NSNotFound, 0} for nothing.
  [[nodiscard]] NSRange truncatedGlyphRange(std::size_t inLineFragmentForGlyphAt);

  // Rectangles, in the space of the container. Zero for a container that is not this manager's, for one
  // without text and for a glyph that no container shows.

  /// Around the lines, padding included.
  [[nodiscard]] NSRect usedRect(const NSTextContainer& forTextContainer);
  /// The share of the container that the glyph's line takes. `effectiveRange`, unless null, becomes the
  /// line's glyphs.
  [[nodiscard]] NSRect lineFragmentRect(std::size_t forGlyphAt, NSRange* effectiveRange = nullptr);
  [[nodiscard]] NSRect lineFragmentUsedRect(std::size_t forGlyphAt, NSRange* effectiveRange = nullptr);
  /// Where the glyph's left edge meets the baseline, from the corner of its line's rectangle.
  [[nodiscard]] NSPoint location(std::size_t forGlyphAt);
  /// From the first glyph to the last, on each line over its full height.
  [[nodiscard]] NSRect boundingRect(NSRange forGlyphRange, const NSTextContainer& in);
  /// The rectangles, one or more for each line, that a selection of the glyphs would fill: in a line with
  /// both directions they need not touch.
  [[nodiscard]] std::vector<NSRect> rects(NSRange forGlyphRange, const NSTextContainer& in);

  /// The glyph under the point, else the nearest in the line at that height; right of a line that ends with a
  /// break, the break's. `fraction`, unless null, becomes how far through the glyph the point is, from its
  /// left edge: 0 to 1. Without text 0.
  [[nodiscard]] std::size_t glyphIndex(NSPoint forPoint, const NSTextContainer& in,
                                       CGFloat* fraction = nullptr);
  [[nodiscard]] std::size_t characterIndex(NSPoint forPoint, const NSTextContainer& in,
                                           CGFloat* fraction = nullptr) {
    return glyphIndex(forPoint, in, fraction);
  }

  // Drawing, into the current flipped context; without one nothing is drawn. `at` is where the upper left
  // corner of the container goes. Colours are resolved now.

  void drawBackground(NSRange forGlyphRange, NSPoint at);
  void drawGlyphs(NSRange forGlyphRange, NSPoint at);
  /// Draws the line under glyphs of one line that have one style. Called for every style but 0, also for a
  /// pattern without a stroke, below which the platform draws nothing. `baselineOffset` is how far the
  /// baseline is above the lower edge of the line's used rectangle.
  virtual void drawUnderline(NSRange forGlyphRange, NSUnderlineStyle underlineType, CGFloat baselineOffset,
                             NSRect lineFragmentRect, NSRange lineFragmentGlyphRange,
                             NSPoint containerOrigin);

  [[nodiscard]] std::string className() const override { return "NSLayoutManager"; }

 protected:
  void didInit() override;

 private:
  using Layout = std::shared_ptr<const TextLayout>;

  [[nodiscard]] const std::vector<Layout>& layouts();
  [[nodiscard]] const TextLayout* layoutIn(const NSTextContainer& container);
  [[nodiscard]] const TextLayout* layoutOf(std::size_t glyph);
  [[nodiscard]] const LineFragment* lineOf(std::size_t glyph);
  [[nodiscard]] NSRange cut(NSRange range) const;
  void drawLine(const LineFragment& line, NSRange range, NSPoint origin);
  void drawUnderlines(const LineFragment& line, const TextPiece& piece, NSRange range, NSPoint origin);

  NSTextStorage* storage_ = nullptr;
  std::vector<Ref<NSTextContainer>> containers_;
  std::vector<Layout> layouts_;  // one for each container, or none while they have to be made
  bool usesFontLeading_ = true;
  NSUserInterfaceLayoutDirection direction_ = NSUserInterfaceLayoutDirection::leftToRight;
};

}  // namespace bkuk
