#include <array>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"
#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "bench/peer/common/Phrases.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/common/StyledText.h"
#include "bench/peer/kit/Scenes.h"
#include "bench/peer/kit/Text.h"
#include "bench/peer/kit/Workloads.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk::bench {

namespace {

constexpr std::array plainTags{"b", "i", "u", "s"};

peer::MarkupForms bracketForms() {
  peer::MarkupForms forms;
  const auto set = [&](std::size_t number, const std::string& tag) {
    forms.open[number] = std::string("[").append(tag).append("]");
    forms.close[number] = std::string("[/").append(tag).append("]");
  };
  for (std::size_t i = 0; i < plainTags.size(); ++i) set(i, plainTags[i]);
  for (std::size_t i = 0; i < peer::MarkupForms::colors.size(); ++i)
    set(plainTags.size() + i, peer::MarkupForms::colors[i]);
  forms.betweenParagraphs = "\n";
  return forms;
}

NSAttributeDictionary plainStyle() {
  return BKUKFontManager::FontAttributes(BKUKFontType::regular, peer::fontSize, nullptr,
                                         NSTextAlignment::natural);
}

// Nothing strikes text out here: that tag raises it.
BKUKAttributedTextXMLConstructor::Styles styles() {
  const auto with = [](const NSAttributedStringKey& key, NSAttributeValue value) {
    auto style = plainStyle();
    style.set(key, std::move(value));
    return style;
  };
  BKUKAttributedTextXMLConstructor::Styles styles{
      {"b", with(NSFontAttributeName, BKUKFontManager::Font(BKUKFontType::bold, peer::fontSize))},
      {"i", with(NSFontAttributeName, NSFont::font("Inter-Italic", peer::fontSize))},
      {"u", with(NSUnderlineStyleAttributeName, NSUnderlineStyle::single)},
      {"s", with(NSBaselineOffsetAttributeName, 1)},
  };
  for (const std::string color : peer::MarkupForms::colors)
    styles[color] = with(NSForegroundColorAttributeName, rgb(std::stoul(color, nullptr, 16), 1));
  return styles;
}

}  // namespace

Result readMarkup(int pieces) {
  const auto text = peer::styledText(bracketForms(), pieces);
  const auto tags = styles();
  const auto plain = plainStyle();
  return {1, peer::costsOf(7, [&] {
            if (!BKUKAttributedTextXMLFactory::createAttributedText(NSString(text), tags, plain))
              throw std::runtime_error("the markup is malformed");
          })};
}

Result measureLabels() {
  std::vector<Ref<BKUKLabel>> labels;
  for (const auto& phrase : peer::phrases(peer::measuredCount)) labels.push_back(makeLabel(phrase));
  (void)makeLabel("what all of them share")->intrinsicContentSize();
  double width = 0;
  const auto cost = peer::costOf([&] {
    for (const auto& label : labels) width += label->intrinsicContentSize().width;
  });
  if (width <= 0) throw std::runtime_error("the labels have no size");
  return {peer::measuredCount, {cost}};
}

Result repaintLabels() {
  const auto stage = makeLabels();
  stage->showFirstFrame();
  Stage::settle();
  return {1, peer::costsOf(40, [&] { stage->paintAgain(Stage::Redraw::views); })};
}

}  // namespace bkuk::bench
