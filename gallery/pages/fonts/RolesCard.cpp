#include <string>
#include <utility>

#include "gallery/cards/LabelText.h"
#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/fonts/FontCards.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat nameWidth = 92;
constexpr CGFloat remarkWidth = 96;
constexpr CGFloat rowGap = 10;
constexpr CGFloat captionHeight = 18;

constexpr std::pair<const char*, BKUKBrandFont::Role> roles[] = {
    {"h1", BKUKBrandFont::h1},           {"h2", BKUKBrandFont::h2},
    {"h3", BKUKBrandFont::h3},           {"h4", BKUKBrandFont::h4},
    {"h5", BKUKBrandFont::h5},           {"h6", BKUKBrandFont::h6},
    {"body1", BKUKBrandFont::body1},     {"body2", BKUKBrandFont::body2},
    {"button", BKUKBrandFont::button},   {"buttonSmall", BKUKBrandFont::buttonSmall},
    {"caption", BKUKBrandFont::caption},
};

class RolesCard : public Card {
 public:
  RolesCard() : Card("Roles", "What a text is says how large and how heavy it is") {}

 protected:
  void didInit() override {
    Card::didInit();
    for (const auto& [name, style] : roles) addRow(name, style);
  }

  [[nodiscard]] CGFloat contentHeight(CGFloat) const override {
    CGFloat height = 0;
    for (const auto& row : rows_) height += row.height() + rowGap;
    return height - rowGap;
  }

  void layoutContent(NSRect content) override {
    CGFloat top = content.minY();
    for (const auto& row : rows_) {
      layoutRow(row, {content.minX(), top, content.width(), row.height()});
      top += row.height() + rowGap;
    }
  }

 private:
  struct Row {
    Ref<TextLabel> name;
    Ref<TextLabel> remark;
    Ref<BKUKLabel> sample;

    [[nodiscard]] CGFloat height() const { return heightOfText(*sample, 0); }
  };

  void addRow(const char* name, BKUKBrandFont style) {
    const BKUKFontSettings look(style, BKUKTheme::onSurface(), NSTextAlignment::natural);
    auto remark = pointsText(look.size) + ", " + std::string(nameOf(look.type));
    const Row row{makeCaption(name, role(Role::onSurface)),
                  makeRemark(std::move(remark), role(Role::onSurfaceSecondary)),
                  makeTightLabel("Harbour light", look)};
    row.sample->setLineBreakMode(NSLineBreakMode::truncatingTail);
    addSubview(row.name);
    addSubview(row.remark);
    addSubview(row.sample);
    rows_.push_back(row);
  }

  // All three stand on the baseline of the sample.
  void layoutRow(const Row& row, NSRect frame) {
    const CGFloat baseline = frame.minY() + row.sample->font()->ascender();
    const auto place = [&](TextLabel& caption, CGFloat start, CGFloat width) {
      const CGFloat inside =
          caption.firstBaselineOffsetFromTop() + (captionHeight - caption.intrinsicContentSize().height) / 2;
      caption.setFrame(fromLeading(*this, {frame.minX() + start, baseline - inside, width, captionHeight}));
    };
    place(*row.name, 0, nameWidth);
    place(*row.remark, nameWidth, remarkWidth);
    const CGFloat start = nameWidth + remarkWidth;
    row.sample->setFrame(
        fromLeading(*this, {frame.minX() + start, frame.minY(), frame.width() - start, frame.height()}));
  }

  std::vector<Row> rows_;
};

}  // namespace

Ref<Card> makeRolesCard() { return make<RolesCard>(); }

}  // namespace bkuk::gallery
