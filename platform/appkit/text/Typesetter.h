#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/appkit/text/TextLayout.h"
#include "platform/appkit/text/TextRuns.h"
#include "platform/appkit/text/TextSegment.h"

namespace bkuk {

/// Sets a text line by line, from the top of a container down.
class Typesetter {
 public:
  Typesetter(const NSAttributedString& text, const TextLayoutOptions& options);

  /// Sets the text from the index `from` on, until the container is full, and answers the lines.
  [[nodiscard]] std::vector<LineFragment> lines(std::size_t from);
  /// The used size of the whole text where it is one line of one attribute run, found without setting it;
  /// absent for every other text.
  [[nodiscard]] std::optional<NSSize> sizeOfPlainLine();

 private:
  /// A segment on its way into lines.
  struct Paragraph {
    TextSegment segment;
    Ref<NSParagraphStyle> style;
    host::TextDirection direction;
    TextRuns runs{};
    std::shared_ptr<const host::TextParagraph> shaped{};
    bool isFirstLine = true;  // of its paragraph
  };

  [[nodiscard]] Paragraph paragraphAt(std::size_t from);
  [[nodiscard]] host::TextDirection directionOf(const TextSegment& segment, const NSParagraphStyle& style);
  [[nodiscard]] const NSAttributeDictionary& attributesAt(std::size_t index) const;
  [[nodiscard]] std::u16string_view unitsOf(NSRange range) const {
    return text_.string().units().substr(range.location, range.length);
  }

  bool setLines(Paragraph& paragraph);
  bool setWrapped(Paragraph& paragraph);
  bool setOnOneLine(Paragraph& paragraph);
  bool setCutOff(const Paragraph& paragraph, std::size_t from);
  bool setEmptyLine(const Paragraph& paragraph);
  bool place(const Paragraph& paragraph, NSRange range, LineContent content);

  [[nodiscard]] bool isLastLine() const;
  [[nodiscard]] bool cutsOff(std::size_t end) const;
  [[nodiscard]] CGFloat indent(const Paragraph& paragraph) const;
  [[nodiscard]] CGFloat room(const Paragraph& paragraph) const;
  void align(LineFragment& line, const Paragraph& paragraph);
  void justify(LineFragment& line, CGFloat rest) const;
  void alignAmongThemselves();

  const NSAttributedString& text_;
  const TextLayoutOptions options_;
  const bool isWidthLimited_;
  const bool isHeightLimited_;
  std::vector<LineFragment> lines_;
  std::vector<CGFloat> shares_;                // of each line, how much of the free room goes to its left
  std::optional<host::TextDirection> before_;  // of the part of the paragraph before the segment
  CGFloat y_ = 0;
  CGFloat spaceBelow_ = 0;  // the last line's
};

}  // namespace bkuk
