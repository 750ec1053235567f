#pragma once

#include <QtCore/QList>
#include <QtGui/QGlyphRun>
#include <cstdint>
#include <memory>
#include <vector>

#include "host/Text.h"
#include "host/qt/text/QtRawFonts.h"
#include "host/qt/text/ShapedWord.h"

namespace bkuk::host {

/// A word at its place in a text.
struct PlacedWord {
  std::shared_ptr<const ShapedWord> word;
  std::size_t start = 0;  ///< the index of its first code unit in the text
  double size = 0;        ///< points to the em
  double kern = 0;        ///< points after each character
  std::size_t rank = 0;   ///< of words that stand apart, the lower one stands left
  bool isRightToLeft = false;

  [[nodiscard]] std::size_t end() const { return start + word->units.size(); }
  [[nodiscard]] double width() const { return word->width * size + kern * word->characterCount; }
};

/// What a line and its parts share.
struct TextLineContent {
  std::vector<PlacedWord> words;
  std::size_t start = 0;  ///< the index of the line's first code unit in the text
  std::vector<TextUnit> units;
  std::shared_ptr<QtRawFonts> rawFonts;
};

class QtTextLine final : public TextLine {
 public:
  /// Of the indexes from `from` up to `to` of the line.
  QtTextLine(std::shared_ptr<const TextLineContent> content, double width, std::size_t from, std::size_t to)
      : content_(std::move(content)), width_(width), from_(from), to_(to) {}

  [[nodiscard]] double width() const override { return width_; }
  [[nodiscard]] std::span<const TextUnit> units() const override { return content_->units; }
  [[nodiscard]] std::shared_ptr<const TextLine> part(std::size_t from, std::size_t to) const override;
  [[nodiscard]] Rect inkBounds() const override;
  [[nodiscard]] std::shared_ptr<const GlyphMasks> masks(double scale, double x) const override;

  /// The glyphs at their final size, positions relative to the start of the baseline. Gathered when first
  /// asked for.
  [[nodiscard]] const QList<QGlyphRun>& runs() const;

 private:
  struct KeptMasks {
    double scale = 0;
    double x = 0;
    std::shared_ptr<const GlyphMasks> masks;
  };

  template <typename Visit>
  bool forEachGlyph(Visit visit) const;
  [[nodiscard]] QList<QGlyphRun> gathered() const;
  [[nodiscard]] std::shared_ptr<const GlyphMasks> gatheredMasks(double scale, double x) const;

  std::shared_ptr<const TextLineContent> content_;
  double width_;
  std::size_t from_;
  std::size_t to_;
  mutable std::unique_ptr<const QList<QGlyphRun>> runs_;
  mutable KeptMasks masks_;
};

}  // namespace bkuk::host
