#include "gallery/pages/layout/LayoutPage.h"

#include <cmath>
#include <utility>

#include "gallery/chrome/Captions.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;
using Constraints = std::vector<Ref<NSLayoutConstraint>>;
using Views = std::map<std::string, NSLayoutItem*>;

constexpr auto horizontal = NSLayoutConstraintOrientation::horizontal;
constexpr CGFloat margin = 28;
constexpr CGFloat cardGap = 18;
constexpr CGFloat narrowestStage = 420;
constexpr CGFloat narrowestTile = 64;  // room for a few letters

template <typename T>
Ref<T> placed(NSView& parent, Ref<T> view) {
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  parent.addSubview(view);
  return view;
}

Ref<TextLabel> placedText(NSView& parent, std::string text, TextLabel::Style style) {
  return placed(parent, make<TextLabel>(std::move(text), std::move(style)));
}

void activate(const Constraints& constraints) { NSLayoutConstraint::activateConstraints(constraints); }

void activate(std::string_view format, const Views& views, NSLayoutFormatOptions options = 0) {
  activate(NSLayoutConstraint::constraintsWithVisualFormat(format, options, {}, views));
}

/// A filled box around a text, as large as that wants it to be.
struct Tile {
  Ref<Box> box;
  Ref<TextLabel> text;
};

Tile placedTile(NSView& parent, std::string text, bool isAccented = false) {
  Tile tile;
  tile.box = placed(parent, make<Box>(Box::Look{.fill = role(isAccented ? Role::accent : Role::surfaceStateA),
                                                .border = role(Role::onSurfaceExtraLight),
                                                .borderWidth = isAccented ? 0.0 : 1.0,
                                                .cornerRadius = 8,
                                                .clips = true}));
  tile.text = placedText(*tile.box, std::move(text),
                         {.size = 13,
                          .weight = 500,
                          .color = role(isAccented ? Role::onAccent : Role::onSurface),
                          .alignment = TextLabel::Alignment::center});
  activate("H:|-12-[text]-12-|", {{"text", tile.text.get()}});
  activate("V:|-8-[text]-8-|", {{"text", tile.text.get()}});
  activate({tile.box->widthAnchor()->constraintGreaterThanOrEqualToConstant(narrowestTile)});
  return tile;
}

}  // namespace

void LayoutPage::didInit() {
  GalleryPage::didInit();
  stage_ = make<NSLayoutGuide>();
  addLayoutGuide(stage_);
  makeWidthControl();
  makeEqualRow();
  makeForm();
  makePriorityRows();
  makeTurnedRow();
  activate({cards_.back()->bottomAnchor()->constraintLessThanOrEqualTo(bottomAnchor(), -margin)});
}

// The cards share the guide's width, which the slider sets between a least one and the page's.
void LayoutPage::makeWidthControl() {
  widthName_ = placed(*this, makeCaption("Width of the cards"));
  widthValue_ = placed(*this, makeCaption(""));
  width_ = placed(*this, make<Slider>(Slider::Range{.least = 0, .greatest = 100, .step = 1}, 100,
                                      [this](CGFloat percent) { setStageShare(percent / 100); }));
  width_->setAccessibilityLabel("Width of the cards");
  const Views views{{"name", widthName_.get()}, {"slider", width_.get()}, {"value", widthValue_.get()}};
  activate("H:|-28-[name]-14-[slider(220)]-10-[value]", views, NSLayoutFormatAlignAllCenterY);
  activate({width_->topAnchor()->constraintEqualTo(topAnchor(), 2),
            width_->heightAnchor()->constraintEqualToConstant(Slider::height),
            stage_->leadingAnchor()->constraintEqualTo(leadingAnchor(), margin)});
  setStageShare(1);
}

// Linear in the page's width, so that it keeps its share of what is beyond the least when the window grows.
void LayoutPage::setStageShare(CGFloat share) {
  if (stageWidth_) stageWidth_->setActive(false);
  stageWidth_ = stage_->widthAnchor()->constraintEqualTo(widthAnchor(), share,
                                                         narrowestStage * (1 - share) - 2 * margin * share);
  stageWidth_->setActive(true);
}

void LayoutPage::layout() {
  GalleryPage::layout();
  widthValue_->setText(std::to_string(std::lround(stage_->frame().width())) + " pt");
}

Ref<Box> LayoutPage::addCard(std::string title, std::string remark) {
  const auto card = placed<Box>(*this, make<Box>(Box::Look{.fill = role(Role::surface),
                                                           .border = role(Role::onSurfaceExtraLight),
                                                           .cornerRadius = 14}));
  const auto name = placed(*card, makeHeading(std::move(title), role(Role::onSurface)));
  const auto text = placed(*card, makeRemark(std::move(remark), role(Role::onSurfaceSecondary)));
  const auto above = cards_.empty() ? width_->bottomAnchor() : cards_.back()->bottomAnchor();
  activate("V:|-14-[name]-2-[text]", {{"name", name.get()}, {"text", text.get()}},
           NSLayoutFormatAlignAllLeading | NSLayoutFormatAlignAllTrailing);
  activate("H:|-18-[name]-18-|", {{"name", name.get()}});
  for (const auto& label : {name, text}) label->setContentCompressionResistancePriority(1, horizontal);
  activate({card->topAnchor()->constraintEqualTo(above, cards_.empty() ? 14 : cardGap),
            card->leadingAnchor()->constraintEqualTo(stage_->leadingAnchor()),
            card->trailingAnchor()->constraintEqualTo(stage_->trailingAnchor())});
  cards_.push_back(card);
  return card;
}

void LayoutPage::makeEqualRow() {
  const auto card = addCard("Equal widths", "Each as wide as the first, whatever they say");
  const auto a = placedTile(*card, "One");
  const auto b = placedTile(*card, "Thirty-two");
  const auto c = placedTile(*card, "Two thousand");
  const Views views{{"a", a.box.get()}, {"b", b.box.get()}, {"c", c.box.get()}};
  for (const auto& tile : {a, b, c}) tile.text->setContentHuggingPriority(1, horizontal);
  activate("H:|-18-[a]-10-[b(==a)]-10-[c(==a)]-18-|", views,
           NSLayoutFormatAlignAllTop | NSLayoutFormatAlignAllBottom);
  activate("V:|-64-[a]-18-|", views);
}

// The widest name sets where the fields begin; each name stands on its field's baseline.
void LayoutPage::makeForm() {
  const auto card = addCard("Labels on baselines", "The longest name sets where all fields begin");
  Ref<TextLabel> first;
  NSLayoutItem* above = nullptr;
  const std::pair<const char*, const char*> rows[] = {
      {"Name", "Adelheid Brenvik"}, {"Street and number", "Havneveien 12"}, {"Note", "Rings twice"}};
  for (const auto& [caption, content] : rows) {
    const auto name =
        placed(*card, makeCaption(caption, role(Role::onSurface), TextLabel::Alignment::trailing));
    const auto field = placed<Box>(*card, make<Box>(Box::Look{.fill = role(Role::background),
                                                              .border = role(Role::onSurfaceLight),
                                                              .cornerRadius = 7,
                                                              .clips = true}));
    const auto text = placedText(*field, content, {.size = 16, .color = role(Role::onBackground)});
    text->setContentCompressionResistancePriority(1, horizontal);
    text->setContentHuggingPriority(1, horizontal);
    activate("H:|-10-[text]-10-|", {{"text", text.get()}});
    activate("V:|-6-[text]-6-|", {{"text", text.get()}});
    activate("H:|-18-[name]-12-[field]-18-|", {{"name", name.get()}, {"field", field.get()}});
    name->setContentHuggingPriority(NSLayoutPriorityDefaultLow + 1, horizontal);
    activate({name->firstBaselineAnchor()->constraintEqualTo(text->firstBaselineAnchor())});
    if (first) activate({name->widthAnchor()->constraintEqualTo(first->widthAnchor())});
    if (above) activate("V:[above]-8-[field]", {{"above", above}, {"field", field.get()}});
    if (!above) activate("V:|-64-[field]", {{"field", field.get()}});
    if (!first) first = name;
    above = field.get();
  }
  activate("V:[field]-18-|", {{"field", above}});
}

// What is left over goes to the tile that minds growing least; what lacks comes from the one that minds
// least.
void LayoutPage::makePriorityRows() {
  const auto card =
      addCard("Priorities", "The accented one gives way first: it grows above, and shrinks below");
  const auto stays = placedTile(*card, "Keeps its width");
  const auto grows = placedTile(*card, "Takes what is left", true);
  const auto alsoStays = placedTile(*card, "Keeps its width");
  grows.text->setContentHuggingPriority(200, horizontal);
  grows.text->setContentCompressionResistancePriority(700, horizontal);
  const auto resists = placedTile(*card, "Does not get any shorter");
  const auto yields = placedTile(*card, "Shrinks before others do", true);
  const auto pushes = placedTile(*card, "Wants three fifths");
  yields.text->setContentCompressionResistancePriority(500, horizontal);
  pushes.text->setContentHuggingPriority(1, horizontal);
  const auto wish = pushes.box->widthAnchor()->constraintEqualTo(card->widthAnchor(), 0.6, 0);
  wish->setPriority(600);
  activate({wish});
  const Views views{{"a", stays.box.get()},   {"b", grows.box.get()},  {"c", alsoStays.box.get()},
                    {"d", resists.box.get()}, {"e", yields.box.get()}, {"f", pushes.box.get()}};
  activate("H:|-18-[a]-10-[b]-10-[c]-18-|", views, NSLayoutFormatAlignAllTop | NSLayoutFormatAlignAllBottom);
  activate("H:|-18-[d]-10-[e]-10-[f]-18-|", views, NSLayoutFormatAlignAllTop | NSLayoutFormatAlignAllBottom);
  activate("V:|-64-[a]-10-[d]-18-|", views);
}

// The same format twice, in views whose text runs one way and the other.
void LayoutPage::makeTurnedRow() {
  const auto card = addCard("Leading to trailing", "One row, laid out from the left and from the right");
  NSLayoutItem* above = nullptr;
  using Direction = NSUserInterfaceLayoutDirection;
  for (const auto direction : {Direction::leftToRight, Direction::rightToLeft}) {
    const auto row = placed(*card, make<Box>());
    row->setUserInterfaceLayoutDirection(direction);
    const auto first = placedTile(*row, "First", true);
    const auto second = placedTile(*row, "Second");
    const auto last = placedTile(*row, "Last");
    activate("H:|[first]-10-[second]-(>=10)-[last]|",
             {{"first", first.box.get()}, {"second", second.box.get()}, {"last", last.box.get()}},
             NSLayoutFormatAlignAllTop | NSLayoutFormatAlignAllBottom);
    activate("V:|[first]|", {{"first", first.box.get()}});
    activate("H:|-18-[row]-18-|", {{"row", row.get()}});
    if (above) activate("V:[above]-10-[row]-18-|", {{"above", above}, {"row", row.get()}});
    if (!above) activate("V:|-64-[row]", {{"row", row.get()}});
    above = row.get();
  }
}

CGFloat LayoutPage::heightForWidth(CGFloat) const { return fittingSize().height; }

std::vector<NSView*> LayoutPage::keyViews() const { return {width_.get()}; }

}  // namespace bkuk::gallery
