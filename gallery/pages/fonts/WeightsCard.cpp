#include <algorithm>
#include <string>
#include <utility>

#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/fonts/FontCards.h"

namespace bkuk::gallery {

namespace {

constexpr double sizes[] = {12, 16, 22, 32};
constexpr CGFloat lineGap = 6;

/// One word in some sizes of a type, below each other.
class SizesView : public NSView {
 public:
  explicit SizesView(BKUKFontType type) {
    for (const double size : sizes) labels_.push_back(makeTightLabel("Fjord", cardText(size, type)));
  }

  [[nodiscard]] bool isFlipped() const override { return true; }

  [[nodiscard]] CGFloat height() const {
    CGFloat height = 0;
    for (const auto& label : labels_) height += heightOfText(*label, 0) + lineGap;
    return height - lineGap;
  }

  void layout() override {
    CGFloat top = 0;
    for (const auto& label : labels_) {
      const CGFloat height = heightOfText(*label, 0);
      label->setFrame({0, top, bounds().width(), height});
      top += height + lineGap;
    }
  }

 protected:
  void didInit() override {
    NSView::didInit();
    for (const auto& label : labels_) addSubview(label);
  }

 private:
  std::vector<Ref<BKUKLabel>> labels_;
};

}  // namespace

Ref<Card> makeWeightsCard() {
  std::vector<Ref<Specimen>> specimens;
  CGFloat height = 0;
  for (const auto type :
       {BKUKFontType::thin, BKUKFontType::light, BKUKFontType::regular, BKUKFontType::bold}) {
    const auto shown = make<SizesView>(type);
    height = std::max(height, shown->height());
    specimens.push_back(
        make<Specimen>(shown, std::string(nameOf(type)), BKUKFontManager::Font(type, sizes[0])->fontName()));
  }
  return make<SpecimenCard>("Types", "The faces that stand for the four weights, in 12, 16, 22 and 32 points",
                            SpecimenCard::Cells{.height = height, .narrowest = 96, .maxColumns = 4},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
