#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/Text.h"
#include "host/qt/text/GenerationCache.h"
#include "host/qt/text/QtFace.h"
#include "host/qt/text/QtRawFonts.h"
#include "host/qt/text/QtTextParagraph.h"
#include "host/qt/text/ShapedWord.h"

namespace bkuk::host {

/// A stretch of text in one face.
struct StyledRun {
  std::size_t length = 0;
  const QtFace* face = nullptr;
  double size = 0;
  double kern = 0;
  bool usesPairKerning = true;
};

/// Shapes text word by word and keeps words and short texts that were shaped lately. Words are kept in ems,
/// so one serves all sizes.
class QtTextShaper {
 public:
  /// Lone runs of short texts are answered from memory when they come again.
  [[nodiscard]] std::shared_ptr<const TextParagraph> paragraph(std::u16string_view text,
                                                               std::span<const StyledRun> runs,
                                                               TextDirection direction);

  /// How many words have been shaped so far, rather than remembered.
  [[nodiscard]] std::size_t shapedWordCount() const { return shapedWordCount_; }

 private:
  struct Style {
    std::uint32_t face = 0;
    bool usesPairKerning = true;
    TextDirection direction = TextDirection::leftToRight;
    double size = 0;  // 0 for words
    double kern = 0;
    bool operator==(const Style&) const = default;
  };
  struct Lookup {
    Style style;
    std::u16string_view text;
  };
  struct Key {
    Style style;
    std::u16string text;
  };
  struct Hash {
    using is_transparent = void;
    template <typename T>
    std::size_t operator()(const T& key) const {
      const auto text = std::hash<std::u16string_view>{}(key.text);
      return text ^ (std::hash<double>{}(key.style.size) * 31 + key.style.face) * 0x9E3779B97F4A7C15;
    }
  };
  struct Equal {
    using is_transparent = void;
    template <typename A, typename B>
    bool operator()(const A& a, const B& b) const {
      return a.style == b.style && a.text == b.text;
    }
  };
  template <typename Value>
  using Cache = GenerationCache<Key, Value, Hash, Equal>;

  class ParagraphBuilder;

  [[nodiscard]] std::shared_ptr<const TextParagraph> shape(std::u16string_view text,
                                                           std::span<const StyledRun> runs,
                                                           TextDirection direction);
  /// The word at the front of `text`, which is all in one run and direction.
  [[nodiscard]] std::shared_ptr<const ShapedWord> word(std::u16string_view text, std::size_t length,
                                                       const StyledRun& run, TextDirection direction);
  [[nodiscard]] std::shared_ptr<const ShapedWord> shapeNewWords(std::u16string_view text, std::size_t length,
                                                                const StyledRun& run, const Style& style);

  Cache<std::shared_ptr<const ShapedWord>> words_{8192};
  Cache<std::shared_ptr<const TextParagraph>> paragraphs_{4096};
  std::shared_ptr<QtRawFonts> rawFonts_ = std::make_shared<QtRawFonts>();
  std::size_t shapedWordCount_ = 0;
};

}  // namespace bkuk::host
