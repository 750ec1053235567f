#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "gallery/cards/LabelText.h"
#include "gallery/chrome/Direction.h"
#include "gallery/chrome/LogCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Action = BKUKInteractiveLabel::Action;

constexpr std::size_t logLines = 4;
constexpr CGFloat gap = 20;

constexpr const char* names[] = {"timetable", "fares", "weather"};
constexpr const char* markup =
    "Before you go aboard, look at the [timetable]timetable[/timetable], compare the "
    "[fares]fares for cars and trailers[/fares] and ask for the [weather]weather[/weather].";

// Lines so far apart that the ring around a link covers none of its neighbours.
BKUKFontSettings spacedText() {
  const auto paragraph = make<NSMutableParagraphStyle>();
  paragraph->setLineSpacing(8);
  return cardText(16).withCustomAttribute(
      BKUKFontSettings::CustomAttribute(NSParagraphStyleAttributeName, paragraph));
}

class TextLinksCard : public Card {
 public:
  TextLinksCard() : Card("Links", "Clicked, or reached with Tab and pressed with space or return") {}

  [[nodiscard]] std::vector<NSView*> keyViews() const override { return {label_.get()}; }

 protected:
  void didInit() override {
    Card::didInit();
    const auto plain = spacedText();
    const auto link = plain.with({.color = BKUKTheme::accentHighContrast()})
                          .withUnderline(NSUnderlineStyle::single, nullptr);
    const Action follow = [card = Weak<TextLinksCard>(this)](const std::string& name) {
      if (const auto self = card.lock()) self->followed(name);
    };
    std::map<std::string, BKUKFontSettings> styles;
    std::map<std::string, Action> actions;
    for (const auto* name : names) {
      styles.emplace(name, link);
      actions.emplace(name, follow);
    }
    label_->setMarkup(markup, styles, plain, actions);
    label_->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
    addSubview(label_);
    addSubview(log_);
  }

  [[nodiscard]] CGFloat contentHeight(CGFloat width) const override {
    return std::max(heightOfText(*label_, labelWidth(width)), log_->fittingHeight());
  }

  void layoutContent(NSRect content) override {
    const CGFloat text = labelWidth(content.width());
    label_->setFrame(fromLeading(*this, {content.origin, {text, content.height()}}));
    log_->setFrame(fromLeading(*this, {content.minX() + text + gap, content.minY(),
                                       content.width() - text - gap, content.height()}));
  }

 private:
  static CGFloat labelWidth(CGFloat width) { return std::round((width - gap) * 0.56); }

  void followed(const std::string& name) { log_->add("Link " + std::to_string(++count_) + ": " + name); }

  Ref<BKUKInteractiveLabel> label_ = make<BKUKInteractiveLabel>();
  Ref<LogCard> log_ = make<LogCard>(logLines, "No link was followed yet.");
  int count_ = 0;
};

}  // namespace

Ref<Card> makeTextLinksCard() { return make<TextLinksCard>(); }

}  // namespace bkuk::gallery
