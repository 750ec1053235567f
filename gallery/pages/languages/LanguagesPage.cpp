#include "gallery/pages/languages/LanguagesPage.h"

#include <algorithm>

#include "gallery/cards/Grid.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Direction = NSUserInterfaceLayoutDirection;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;

// Joined and tinted ones where there is a face for them, else those that are also among the symbols.
LanguageCard::Sample emoji() {
  if (NSFont::font("NotoColorEmoji", 0))
    return {.name = "Emoji",
            .text = "At sea ⛴️ 🌊 with 👩‍✈️ 👨‍👩‍👧 and 👍🏽 from 🇳🇴"};
  return {.name = "Emoji",
          .text = "At sea ⚓ in ☀️ and ☂️, back by ✈️ ☺️",
          .remark = "As symbols: in colour with Debian’s package fonts-noto-color-emoji"};
}

// Chinese, Japanese and Korean in the faces that the kit takes for users of these languages.
std::vector<LanguageCard::Sample> samples() {
  return {
      {.name = "English", .text = "The ferry to the outer islands leaves at ten past nine."},
      {.name = "Norwegian",
       .ownName = "norsk",
       .text = "Ferja til dei ytste øyane går ti over ni, også på laurdag."},
      {.name = "Japanese",
       .ownName = "日本語",
       .text = "沖の島へ行くフェリーは九時十分に出ます。",
       .face = "HiraginoSans-W4"},
      {.name = "Chinese",
       .ownName = "中文",
       .text = "开往外岛的渡轮九点十分出发。",
       .face = "PingFangSC-Regular"},
      {.name = "Korean",
       .ownName = "한국어",
       .text = "바깥 섬으로 가는 배는 아홉 시 십 분에 떠납니다.",
       .face = "AppleSDGothicNeo-Regular"},
      {.name = "Arabic",
       .ownName = "العربية",
       .text = "تغادر العبّارة إلى الجزر البعيدة في الساعة التاسعة وعشر دقائق.",
       .direction = Direction::rightToLeft},
      {.name = "Hebrew",
       .ownName = "עברית",
       .text = "המעבורת לאיים הרחוקים יוצאת בתשע ועשר דקות.",
       .direction = Direction::rightToLeft},
      {.name = "Mixed", .text = "The signs say שלום and مرحبا, and berth 24 is ours."},
      {.name = "Mixed, right to left",
       .text = "המעבורת Nordlys יוצאת מרציף 24 בשעה 9:10.",
       .direction = Direction::rightToLeft},
      emoji(),
  };
}

Grid grid(const std::vector<Ref<LanguageCard>>& cards, CGFloat width) {
  Grid cells{.width = width, .narrowest = 320, .gap = 18, .maxColumns = 2};
  for (const auto& card : cards)
    cells.cellHeight = std::max(cells.cellHeight, card->heightForWidth(cells.cell(0).width()));
  return cells;
}

}  // namespace

void LanguagesPage::didInit() {
  GalleryPage::didInit();
  for (const auto& sample : samples()) {
    cards_.push_back(make<LanguageCard>(sample));
    addSubview(cards_.back());
  }
}

CGFloat LanguagesPage::heightForWidth(CGFloat width) const {
  return topMargin + grid(cards_, width - 2 * margin).heightOf(cards_.size()) + margin;
}

void LanguagesPage::layout() {
  const Grid cells = grid(cards_, bounds().width() - 2 * margin);
  for (std::size_t i = 0; i < cards_.size(); ++i)
    cards_[i]->setFrame(fromLeading(*this, cells.cell(i).offsetBy(margin, topMargin)));
}

}  // namespace bkuk::gallery
