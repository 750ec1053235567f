#include "BrenvikUIKit/text/BKUKLabel.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "BrenvikUIKit/text/BKUKNSAttributedString+Extensions.h"
#include "BrenvikUIKit/text/CustomAttributes.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/CGRoundedUp.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

double rounded(double height, BKUKLayoutRoundingRule rule) {
  switch (rule) {
    case BKUKLayoutRoundingRule::even:
      return 2 * std::ceil(height / 2);
    case BKUKLayoutRoundingRule::odd:
      return 2 * std::floor(height / 2) + 1;
    case BKUKLayoutRoundingRule::none:
      break;
  }
  return height;
}

constexpr std::string_view noOffset =
    "BKUKFontConfig: an offset is empty; assign a function that answers points, 0 for none";

double textFieldBottom(const NSFont& font) {
  return required(BKUKFontConfig::shared().textFieldBottomOffset, noOffset)(font);
}

}  // namespace

std::function<bool()>& BKUKLabel::defaultUseNSTextFieldSync =
    *new std::function<bool()>([] { return false; });

struct BKUKLabel::Text {
  Ref<BKUKLabelLayoutManager> manager = make<BKUKLabelLayoutManager>();
  TextStack stack{manager};
};

BKUKLabel::BKUKLabel(NSRect frame) : NSView(frame) {}

BKUKLabel::~BKUKLabel() = default;

BKUKLabel::Text& BKUKLabel::text() const {
  if (!text_) text_ = std::make_unique<Text>();
  return *text_;
}

const TextStack& BKUKLabel::stack() const { return text().stack; }

const Ref<BKUKLabelLayoutManager>& BKUKLabel::textLayoutManager() const { return text().manager; }

Ref<BKUKLabel> BKUKLabel::label(std::string_view text) {
  auto label = make<BKUKLabel>();
  label->setStringValue(text);
  return label;
}

Ref<BKUKLabel> BKUKLabel::label(std::string_view text, const BKUKFontSettings& style) {
  auto styled = label(text);
  styled->apply(style);
  return styled;
}

void BKUKLabel::didInit() {
  NSView::didInit();
  setAccessibilityElement(true);
  setAccessibilityRole(NSAccessibilityStaticTextRole);
  setNeedsLayout(true);
}

// Text and attributes

std::string BKUKLabel::stringValue() const {
  const auto& text = builder_->attributedString();
  return text ? text->string().utf8() : std::string();
}

void BKUKLabel::setStringValue(std::string_view text) {
  setAttributedStringValue(make<NSAttributedString>(NSString(text)));
}

const Ref<NSAttributedString>& BKUKLabel::attributedStringValue() const {
  return builder_->attributedString();
}

void BKUKLabel::setAttributedStringValue(Ref<NSAttributedString> text) {
  const auto before = builder_->attributedString();
  builder_->setAttributedString(std::move(text));
  didUpdateAttributes();
  const auto& now = builder_->attributedString();
  const bool isSame = before && now ? before->string() == now->string() : before == now;
  if (!isSame) NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
}

void BKUKLabel::setAttributes(const BKUKTextAttributes& attributes) {
  builder_->setAttributes(attributes);
  didUpdateAttributes();
}

template <typename Change>
void BKUKLabel::changeAttributes(Change change) {
  auto changed = builder_->attributes();
  change(changed);
  setAttributes(changed);
}

void BKUKLabel::apply(const BKUKFontSettings& style) {
  changeAttributes([&](auto& attributes) {
    attributes.alignment = style.alignment;
    attributes.textColor = style.color;
    attributes.font = BKUKFontManager::Font(style.type, style.size);
    attributes.letterSpacing = style.spacing ? std::optional<double>(*style.spacing) : std::nullopt;
  });
}

void BKUKLabel::setFont(Ref<NSFont> font) {
  changeAttributes([&](auto& attributes) { attributes.font = std::move(font); });
}

void BKUKLabel::setTextColor(Ref<NSColor> color) {
  changeAttributes([&](auto& attributes) { attributes.textColor = std::move(color); });
}

void BKUKLabel::setUnderline(std::optional<NSUnderlineStyle> style) {
  changeAttributes([&](auto& attributes) { attributes.underline = style; });
}

void BKUKLabel::setUnderlineColor(Ref<NSColor> color) {
  changeAttributes([&](auto& attributes) { attributes.underlineColor = std::move(color); });
}

void BKUKLabel::setLetterSpacing(std::optional<double> spacing) {
  changeAttributes([&](auto& attributes) { attributes.letterSpacing = spacing; });
}

void BKUKLabel::setLineHeight(std::optional<double> height) {
  changeAttributes([&](auto& attributes) { attributes.lineHeight = height; });
}

void BKUKLabel::setAlignment(std::optional<NSTextAlignment> alignment) {
  changeAttributes([&](auto& attributes) { attributes.alignment = alignment; });
}

void BKUKLabel::setLineBreakMode(std::optional<NSLineBreakMode> mode) {
  changeAttributes([&](auto& attributes) { attributes.lineBreakMode = mode; });
}

void BKUKLabel::setDefaultTightening(std::optional<bool> tightens) {
  changeAttributes([&](auto& attributes) { attributes.defaultTightening = tightens; });
}

void BKUKLabel::setTighteningFactor(std::optional<double> factor) {
  changeAttributes([&](auto& attributes) { attributes.tighteningFactor = factor; });
}

void BKUKLabel::setCustomAttribute(std::optional<CustomAttribute> attribute) {
  changeAttributes([&](auto& attributes) { attributes.customAttribute = std::move(attribute); });
}

BKUKParagraphAttributes BKUKLabel::paragraphAttributes() const {
  const auto& all = attributes();
  return {all.lineHeight, all.alignment, all.lineBreakMode, all.defaultTightening, all.tighteningFactor};
}

void BKUKLabel::setParagraphAttributes(const BKUKParagraphAttributes& paragraph) {
  changeAttributes([&](auto& attributes) {
    attributes.lineHeight = paragraph.lineHeight;
    attributes.alignment = paragraph.alignment;
    attributes.lineBreakMode = paragraph.lineBreakMode;
    attributes.defaultTightening = paragraph.defaultTightening;
    attributes.tighteningFactor = paragraph.tighteningFactor;
  });
}

void BKUKLabel::setAnimatableFontSize(double size) {
  if (!font() || size == font()->pointSize()) return;
  if (auto resized = NSFont::font(font()->fontName(), size)) setFont(std::move(resized));
}

void BKUKLabel::didUpdateAttributes() {
  const Ref<BKUKLabel> self(this);
  replaceCustomAttributes();
  needsUpdateContainer_ = true;
  needsUpdateSecondaryConstraints_ = true;
  textDidChange();
  measureAgain();
}

void BKUKLabel::textDidChange() {}

// Who replaces text hears of stretches that carry something of their own, the last one first, so that what
// is replaced never moves what is still to come.
void BKUKLabel::replaceCustomAttributes() {
  const Ref<NSObject> keepManager = operatorManager_;
  const auto& manager = operatorManager_ ? *operatorManager_ : BKUKCustomAttributeOperatorManager::shared();
  const auto replacer = manager.operator_();
  const auto text = builder_->attributedString();
  if (!replacer || !text) return;
  const auto shown = builder_->build();
  const auto replaced = replacingCustomAttributes(*shown, *text, *replacer);
  // Who replaces text may have given the label another one meanwhile.
  if (replaced && builder_->attributedString() == text) builder_->setAttributedString(replaced);
}

void BKUKLabel::measureAgain() {
  invalidateIntrinsicContentSize();
  setNeedsLayout(true);
  setNeedsDisplay(true);
}

void BKUKLabel::setLayoutRoundingRule(BKUKLayoutRoundingRule rule) {
  if (std::exchange(roundingRule_, rule) != rule) measureAgain();
}

void BKUKLabel::setVerticalAlignment(BKUKLabelVerticalAlignment alignment) {
  if (std::exchange(verticalAlignment_, alignment) != alignment) measureAgain();
}

void BKUKLabel::setDrawingOptions(BKUKLabelDrawingOptions options) {
  if (std::exchange(drawingOptions_, options) != options) setNeedsDisplay(true);
}

BKUKLabel::TextPadding BKUKLabel::defaultTopTextPadding() {
  return required(BKUKFontConfig::shared().labelTopOffset, noOffset);
}

BKUKLabel::TextPadding BKUKLabel::defaultBottomTextPadding() {
  return required(BKUKFontConfig::shared().labelBottomOffset, noOffset);
}

bool BKUKLabel::defaultTextFieldSync() {
  return required(defaultUseNSTextFieldSync,
                  "BKUKLabel: defaultUseNSTextFieldSync is empty; assign a function")();
}

void BKUKLabel::setTopTextPadding(TextPadding padding) {
  topTextPadding_ = required(std::move(padding), "BKUKLabel: no top padding; give a function that answers 0");
  measureAgain();
}

void BKUKLabel::setBottomTextPadding(TextPadding padding) {
  bottomTextPadding_ =
      required(std::move(padding), "BKUKLabel: no bottom padding; give a function that answers 0");
  measureAgain();
}

void BKUKLabel::setShouldUseNSTextFieldSync(bool uses) {
  if (std::exchange(usesTextFieldSync_, uses) == uses) return;
  // Sync writes its line spacing into the storage.
  needsUpdateContainer_ = true;
  measureAgain();
}

void BKUKLabel::setVerticalNSTextFieldSyncOffset(double offset) {
  if (std::exchange(syncOffset_, offset) == offset) return;
  needsUpdateContainer_ = true;
  measureAgain();
}

void BKUKLabel::setVerticalNSTextFieldSyncDrawOffset(double offset) {
  if (std::exchange(syncDrawOffset_, offset) != offset) setNeedsDisplay(true);
}

void BKUKLabel::viewDidChangeEffectiveAppearance() {
  NSView::viewDidChangeEffectiveAppearance();
  builder_->setAttributes(builder_->attributes());
  needsUpdateContainer_ = true;
  measureAgain();
}

// Layout

void BKUKLabel::updateContainer() const {
  if (std::exchange(needsUpdateContainer_, false)) {
    textStorage()->setAttributedString(*builder_->build());
    if (isSynced() && alignment()) setSyncedLineSpacing(*textStorage(), std::round(syncOffset_));
  }
  stack().setLayout(bounds().width(), userInterfaceLayoutDirection());
}

bool BKUKLabel::isSynced() const { return usesTextFieldSync_ && !textStorage()->containsAttachments(); }

void BKUKLabel::setSyncedLineSpacing(NSMutableAttributedString& text, double spacing) const {
  if (!alignment()) fatal("Text field sync needs an alignment", "BrenvikUIKit/BKUKLabel");
  setParagraph(text, *alignment(), spacing);
}

// Synced text is measured without the space between its lines that it is shown with.
NSSize BKUKLabel::textSize(double forWidth) const {
  if (!isSynced()) return stack().measure(forWidth);
  NSMutableAttributedString dense(*textStorage());
  setSyncedLineSpacing(dense, 0);
  return dense.boundingRect({forWidth, 0}, NSStringDrawingOptions::usesLineFragmentOrigin).size;
}

BKUKLabel::Measure BKUKLabel::measured(double labelWidth) const {
  updateContainer();
  const double padding = textContainer()->lineFragmentPadding();
  const double width = labelWidth - 2 * padding;
  const NSSize full = textSize(0);
  const bool isOneSize = width <= 0 || full.width <= width;
  const NSSize wrapped = isOneSize ? full : textSize(width);

  const double natural = CGRoundedUp(wrapped.height);
  const double height = rounded(natural, roundingRule_);
  // Both what is added above the text and what moves it down, which is why it counts twice.
  Measure measure{{CGRoundedUp(full.width) + 2 * padding, height}, 2 * (height - natural)};
  const auto& ownFont = font();
  if (ownFont && isSynced()) {
    measure.size.height += textFieldBottom(*ownFont);
  } else if (ownFont) {
    const double top = topTextPadding_(*ownFont);
    measure.roundingOffset += top;
    measure.size.height += bottomTextPadding_(*ownFont) + top;
  }
  return measure;
}

NSSize BKUKLabel::intrinsicContentSize() const { return measureNow(); }

// Keeps what it finds, for the text to be placed by.
NSSize BKUKLabel::measureNow() const {
  const auto measure = measured(bounds().width());
  cachedIntrinsicContentSize_ = measure.size;
  layoutRoundingOffset_ = measure.roundingOffset;
  return cachedIntrinsicContentSize_;
}

double BKUKLabel::height(double forWidth) const { return measured(forWidth).size.height; }

// Where the text's box lies.
double BKUKLabel::verticalTextOffset() const {
  const double room = std::max(0.0, bounds().height() - cachedIntrinsicContentSize_.height);
  switch (verticalAlignment_) {
    case BKUKLabelVerticalAlignment::top:
      return layoutRoundingOffset_;
    case BKUKLabelVerticalAlignment::bottom:
      return room + layoutRoundingOffset_;
    case BKUKLabelVerticalAlignment::center:
      break;
  }
  return room * 0.5 + layoutRoundingOffset_;
}

double BKUKLabel::drawnTextTop() const {
  if (!isSynced()) return verticalTextOffset() + layoutRoundingOffset_;
  const double bottom = font() ? textFieldBottom(*font()) : 0;
  return verticalTextOffset() + syncDrawOffset_ + 0.5 * bottom;
}

// That of the first character.
Ref<NSFont> BKUKLabel::fontForBaselines() const {
  const auto& text = *builder_->build();
  if (text.length() == 0) return nullptr;
  const auto* value = text.attribute(NSFontAttributeName, 0);
  if (!value) return nullptr;
  const Ref<NSFont> first = value->object<NSFont>();
  return first ? first : font();
}

void BKUKLabel::layout() {
  NSView::layout();
  const NSSize before = cachedIntrinsicContentSize_;
  measureNow();
  if (std::exchange(needsUpdateSecondaryConstraints_, false))
    secondaryConstraintFontCache_ = fontForBaselines();
  double first = 0;
  double last = 0;
  if (const auto& cached = secondaryConstraintFontCache_) {
    const double below = bounds().height() - verticalTextOffset() - cachedIntrinsicContentSize_.height;
    first = cached->ascender() + verticalTextOffset();
    last = cached->descender() - below;
  }
  const bool moved = first != firstBaselineOffsetFromTop_ || last != lastBaselineOffsetFromBottom_;
  firstBaselineOffsetFromTop_ = first;
  lastBaselineOffsetFromBottom_ = last;
  // A new width breaks lines elsewhere, and a new height moves the baselines.
  if (moved || cachedIntrinsicContentSize_ != before) invalidateIntrinsicContentSize();
}

std::size_t BKUKLabel::characterIndex(NSPoint at, bool roundingUp) {
  updateContainer();
  const NSRect used = stack().usedRect();
  if (NSPointInRect(at, used)) {
    CGFloat fraction = 0;
    const std::size_t index = textLayoutManager()->glyphIndex(at, *textContainer(), &fraction);
    return roundingUp && fraction > 0.5 ? index + 1 : index;
  }
  const bool isBehind = at.x > used.maxX() || at.y > used.maxY();
  return isBehind ? textStorage()->length() : 0;
}

// Drawing

void BKUKLabel::draw(NSRect) {
  const auto current = NSGraphicsContext::current();
  if (!current) return;
  updateContainer();
  auto& target = *current->cgContext();
  target.setAllowsFontSubpixelPositioning(true);
  target.setShouldSubpixelPositionFonts(true);
  target.setAllowsFontSubpixelQuantization(true);
  target.setShouldSubpixelQuantizeFonts(true);
  target.setAllowsFontSmoothing(drawingOptions_.fontSmoothing);
  target.setShouldSmoothFonts(drawingOptions_.fontSmoothing);
  target.setAllowsAntialiasing(drawingOptions_.fontAntialiasing);
  target.setShouldAntialias(drawingOptions_.fontAntialiasing);
  stack().draw({0, drawnTextTop()});
}

// Events and assistive clients

BKUKLabelTextClickDelegate* BKUKLabel::clickDelegate() const { return clickDelegate_.get(); }

void BKUKLabel::setClickDelegate(BKUKLabelTextClickDelegate* delegate) { clickDelegate_ = delegate; }

void BKUKLabel::mouseDown(NSEvent& event) {
  const Ref<BKUKLabel> self(this);
  if (const auto delegate = clickDelegate_.lock()) delegate->labelClicked(*this, event);
  NSView::mouseDown(event);
}

NSAccessibilityValue BKUKLabel::accessibilityValue() const { return stringValue(); }

}  // namespace bkuk
