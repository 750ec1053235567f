#pragma once

#include <memory>
#include <string_view>

#include "host/Text.h"
#include "host/qt/QtFace.h"
#include "host/qt/QtRawFonts.h"
#include "host/qt/ShapedWord.h"

namespace bkuk::host {

/// How a word is set, besides its text.
struct WordStyle {
  const QtFace* face = nullptr;
  bool usesPairKerning = true;
  TextDirection direction = TextDirection::leftToRight;
};

/// The longest text that `shapeWord` is meant for, in UTF-16 units: its time grows with the square.
constexpr std::size_t longestWord = 64;

/// Shapes a word whose characters all run in one direction.
[[nodiscard]] std::shared_ptr<const ShapedWord> shapeWord(std::u16string_view text, const WordStyle& style,
                                                          QtRawFonts& rawFonts);

}  // namespace bkuk::host
