#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "host/Text.h"
#include "platform/foundation/NSAttributedString.h"
#include "platform/foundation/NSGeometry.h"

namespace bkuk {

/// Where a character stands in its line. Lengths are in points, from the container's left edge.
struct GlyphBox {
  CGFloat left = 0;
  CGFloat advance = 0;
  bool isRightToLeft = false;
};

/// Part of a line within one attribute run: shaped, with what its attributes were when the line was set.
struct TextPiece {
  NSRange range;  ///< of the whole text
  NSAttributeDictionary attributes;
  std::shared_ptr<const host::TextLine> line;
  CGFloat left = 0;  ///< where that line starts, from the container's left edge
};

/// What a line shows, and where.
struct LineContent {
  std::shared_ptr<const host::TextParagraph> paragraph;  ///< null for a line without text
  std::size_t from = 0;                                  ///< an index into the paragraph
  std::size_t to = 0;
  NSRange hidden;  ///< of the line's characters, what an ellipsis stands for
  bool hasEllipsis = false;
  CGFloat left = 0;  ///< of the line's start, from the container's left edge
  CGFloat width = 0;
  CGFloat gap = 0;  ///< added to each space, for lines that fill their width
};

/// One line of a laid-out text. Its glyphs are looked up when they are first asked for.
class LineFragment {
 public:
  NSRange range;         ///< the characters, with the break that ends the line
  NSRect rect;           ///< all of the line's share of the container
  NSRect usedRect;       ///< from the first glyph to the last, with the padding at both ends
  CGFloat baseline = 0;  ///< from the container's upper edge
  bool endsWithBreak = false;
  bool isRightToLeft = false;
  LineContent content;

  /// One for each code unit of `range`.
  [[nodiscard]] std::span<const GlyphBox> boxes(const NSAttributedString& text) const;
  /// In the order of the text.
  [[nodiscard]] const std::vector<TextPiece>& pieces(const NSAttributedString& text) const;
  /// The glyphs of characters of one piece, which is asked for first; drawn at the place of that piece.
  [[nodiscard]] std::shared_ptr<const host::TextLine> part(NSRange characters) const;

 private:
  /// What is derived from the content.
  struct Glyphs {
    std::shared_ptr<const host::TextLine> line;
    std::vector<GlyphBox> boxes;
    std::vector<TextPiece> pieces;
    bool hasPieces = false;
    std::vector<CGFloat> gaps;  // the left edges of the spaces that grow, from the line's start, ascending
  };

  [[nodiscard]] Glyphs& glyphs() const;
  [[nodiscard]] std::size_t unitOf(std::size_t offset) const;
  [[nodiscard]] std::size_t shownCount() const;
  [[nodiscard]] CGFloat shiftAt(CGFloat x) const;
  void findGaps(const NSAttributedString& text) const;
  void addPiece(NSRange range, const NSAttributeDictionary& attributes) const;
  void addWords(const NSAttributedString& text, NSRange run, const NSAttributeDictionary& attributes) const;

  mutable std::shared_ptr<Glyphs> glyphs_;
};

}  // namespace bkuk
