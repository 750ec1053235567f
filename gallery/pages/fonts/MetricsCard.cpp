#include <cmath>
#include <string>
#include <utility>

#include "gallery/cards/LabelText.h"
#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/fonts/FontCards.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr double size = 112;
constexpr CGFloat captionWidth = 132;
constexpr CGFloat captionGap = 10;
constexpr CGFloat captionHeight = 16;
constexpr CGFloat wordStart = 14;

class MetricsCard : public Card {
 public:
  MetricsCard() : Card("Metrics", "A word of 112 points between the heights that its font tells") {}

 protected:
  void didInit() override {
    Card::didInit();
    word_ = makeTightLabel("Fjord", cardText(size));
    word_->setLineBreakMode(NSLineBreakMode::clipping);
    const auto& font = *word_->font();
    addRule("Ascender", font.ascender());
    addRule("Cap height", font.capHeight());
    addRule("x height", font.xHeight());
    addRule("Baseline", 0);
    addRule("Descender", font.descender());
    addSubview(word_);
  }

  [[nodiscard]] CGFloat contentHeight(CGFloat) const override {
    return heightOfText(*word_, 0) + captionHeight;
  }

  void layoutContent(NSRect content) override {
    const CGFloat rulesWidth = content.width() - captionWidth - captionGap;
    // The topmost caption reaches half its height above its rule.
    const CGFloat top = content.minY() + captionHeight / 2;
    word_->setFrame(fromLeading(
        *this, {content.minX() + wordStart, top, rulesWidth - wordStart, heightOfText(*word_, 0)}));
    const CGFloat baseline = top + word_->font()->ascender();
    for (const auto& rule : rules_) {
      const CGFloat y = std::round(baseline - rule.height);
      rule.line->setFrame(fromLeading(*this, {content.minX(), y, rulesWidth, 1}));
      rule.caption->setFrame(fromLeading(
          *this, {content.maxX() - captionWidth, y - captionHeight / 2, captionWidth, captionHeight}));
    }
  }

 private:
  struct Rule {
    CGFloat height = 0;  // above the baseline
    Ref<Box> line;
    Ref<TextLabel> caption;
  };

  void addRule(const std::string& name, CGFloat height) {
    const Rule rule{
        height, make<Box>(Box::Look{.fill = role(height == 0 ? Role::accent : Role::onSurfaceLight)}),
        makeRemark(name + (height == 0 ? "" : ", " + pointsText(height)), role(Role::onSurfaceSecondary))};
    addSubview(rule.line);
    addSubview(rule.caption);
    rules_.push_back(rule);
  }

  Ref<BKUKLabel> word_;
  std::vector<Rule> rules_;
};

}  // namespace

Ref<Card> makeMetricsCard() { return make<MetricsCard>(); }

}  // namespace bkuk::gallery
