#pragma once

#include <string>

#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

/// One line of text, vertically centred in its frame. What does not fit ends in an ellipsis.
class TextLabel : public NSView {
 public:
  enum class Alignment { leading, center, trailing };

  struct Style {
    CGFloat size = 13;  ///< points
    int weight = 400;   ///< OpenType weight class
    Color color;
    Alignment alignment = Alignment::leading;
  };

  TextLabel(std::string text, Style style);

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string text);
  void setColor(Color color);

  /// The width that the text needs, in points.
  [[nodiscard]] CGFloat textWidth() const;

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] NSSize intrinsicContentSize() const override;
  [[nodiscard]] CGFloat firstBaselineOffsetFromTop() const override;
  [[nodiscard]] CGFloat lastBaselineOffsetFromBottom() const override;
  void draw(NSRect dirtyRect) override;

  // Lines that wait for text are nothing to stop at.
  [[nodiscard]] bool isAccessibilityElement() const override { return !text_.empty(); }
  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override { return text_; }

 private:
  [[nodiscard]] CGFloat startOf(const CTLine& line) const;
  void shape();
  void drawTruncated(NSRect rect) const;

  std::string text_;
  Style style_;
  Ref<CTLine> line_;
};

}  // namespace bkuk::gallery
