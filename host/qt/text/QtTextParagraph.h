#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Text.h"
#include "host/qt/text/QtTextLine.h"

namespace bkuk::host {

class QtTextParagraph final : public TextParagraph {
 public:
  /// `words` are in the order of the text and leave nothing out.
  QtTextParagraph(std::u16string text, TextDirection direction, std::vector<PlacedWord> words,
                  std::shared_ptr<QtRawFonts> rawFonts);

  [[nodiscard]] std::size_t length() const override { return text_.size(); }
  [[nodiscard]] double width() const override { return width_; }
  [[nodiscard]] std::span<const double> advances() const override;
  [[nodiscard]] std::span<const LineBreak> lineBreaks() const override;
  [[nodiscard]] std::shared_ptr<const TextLine> line(std::size_t from, std::size_t to) const override;

 private:
  [[nodiscard]] std::vector<PlacedWord> visualWords(std::size_t from, std::size_t to) const;

  std::u16string text_;
  TextDirection direction_;
  std::vector<PlacedWord> words_;
  std::shared_ptr<QtRawFonts> rawFonts_;
  double width_ = 0;
  // Asked for by those who break lines; most labels never do.
  mutable std::vector<double> advances_;
  mutable std::vector<LineBreak> lineBreaks_;
  mutable std::weak_ptr<const TextLine> wholeLine_;
};

}  // namespace bkuk::host
