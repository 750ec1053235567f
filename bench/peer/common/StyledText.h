#pragma once

#include <array>
#include <string>

namespace peer {

/// How a reader of markup wants its tags: bold, italic, underlined, struck out, then four colours.
struct MarkupForms {
  static constexpr std::array colors{"3366cc", "aa2211", "118844", "775500"};
  static constexpr int plainTags = 4;

  std::array<std::string, plainTags + colors.size()> open;
  std::array<std::string, plainTags + colors.size()> close;
  std::string begin;
  std::string betweenParagraphs;
  std::string end;
};

// As many pieces as make a text of about 1 MiB and of 64 KiB with tags of few letters.
inline constexpr int piecesOfLongText = 57'600;
inline constexpr int piecesOfShortText = 3'600;

/// The same text in any form: pieces of about 12 letters with a tag between any two, which nest up to four
/// deep, in paragraphs of 40.
[[nodiscard]] std::string styledText(const MarkupForms& forms, int pieces);

}  // namespace peer
