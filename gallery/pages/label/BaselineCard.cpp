#include <utility>

#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;
using Texts = std::vector<Ref<NSView>>;

constexpr CGFloat rowHeight = 64;
constexpr CGFloat baselineBelowTop = 44;
constexpr CGFloat gap = 14;

void activate(const std::vector<Ref<NSLayoutConstraint>>& constraints) {
  NSLayoutConstraint::activateConstraints(constraints);
}

/// Texts in a row whose first baselines constraints set on one line, which is drawn.
class BaselineRow : public Box {
 public:
  explicit BaselineRow(Texts texts)
      : Box({.fill = role(Role::background), .cornerRadius = 8}), texts_(std::move(texts)) {}

 protected:
  void didInit() override {
    Box::didInit();
    const auto rule = make<Box>(Box::Look{.fill = role(Role::accent)});
    rule->setTranslatesAutoresizingMaskIntoConstraints(false);
    addSubview(rule);
    activate({rule->topAnchor()->constraintEqualTo(topAnchor(), baselineBelowTop),
              rule->heightAnchor()->constraintEqualToConstant(1),
              rule->leadingAnchor()->constraintEqualTo(leadingAnchor()),
              rule->trailingAnchor()->constraintEqualTo(trailingAnchor())});
    auto start = leadingAnchor();
    for (const auto& text : texts_) {
      text->setTranslatesAutoresizingMaskIntoConstraints(false);
      addSubview(text);
      activate({text->leadingAnchor()->constraintEqualTo(start, gap),
                text->firstBaselineAnchor()->constraintEqualTo(rule->topAnchor())});
      start = text->trailingAnchor();
    }
  }

 private:
  Texts texts_;
};

Texts sizes() {
  Texts texts;
  for (const double size : {11, 15, 21, 30}) {
    texts.push_back(makeTightLabel("Fjord", cardText(size)));
  }
  return texts;
}

// A label in sync needs an alignment, which the style gives it.
Texts besideTextField() {
  const auto style = cardText(16);
  const auto synced = BKUKLabel::label("In sync", style);
  synced->setShouldUseNSTextFieldSync(true);
  const auto field = NSTextField::labelWithString("Text field");
  apply(*field, style);
  return {synced, field, BKUKLabel::label("On its own", style)};
}

}  // namespace

Ref<Card> makeBaselineCard() {
  std::vector<Ref<Specimen>> specimens{
      make<Specimen>(make<BaselineRow>(sizes()), "Sizes", "Labels in 11, 15, 21 and 30 points"),
      make<Specimen>(make<BaselineRow>(besideTextField()), "Text field",
                     "Between a label that is in sync with it and one that is not")};
  return make<SpecimenCard>("Baselines", "Constraints set each text on the line by its first baseline",
                            SpecimenCard::Cells{.height = rowHeight, .narrowest = 320, .maxColumns = 2},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
