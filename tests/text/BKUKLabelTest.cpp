#include <filesystem>
#include <fstream>
#include <span>
#include <unistd.h>

#include "BrenvikUIKit/text/BKUKLabel.h"
#include "BrenvikUIKit/text/BKUKNSTextField+Extensions.h"
#include "host/support/FontFile.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/coretext/CTFontManager.h"
#include "tests/support/StopLine.h"
#include "tests/text/LabelFixture.h"

namespace bkuk {
namespace {

struct BKUKLabelTest : LabelFixture {
  BKUKLabelTest() { label->apply(style); }
  ~BKUKLabelTest() override {
    BKUKCustomAttributeOperatorManager::shared().setOperator(nullptr);
    BKUKFontConfig::shared().textFieldBottomOffset = [](const NSFont&) { return 0.0; };
  }

  [[nodiscard]] double naturalHeight() const {
    const auto& font = label->font();
    return std::ceil(font->ascender() - font->descender());
  }

  const BKUKFontSettings style{NSColor::black(), 15, Type::regular, NSTextAlignment::left};
  Ref<BKUKLabel> label = BKUKLabel::label("Label");
};

TEST_F(BKUKLabelTest, RoundsTheHeightOfItsText) {
  const double natural = naturalHeight();
  const auto heightWith = [&](BKUKLayoutRoundingRule rule) {
    label->setLayoutRoundingRule(rule);
    return label->intrinsicContentSize().height;
  };
  EXPECT_EQ(heightWith(BKUKLayoutRoundingRule::none), natural);
  EXPECT_EQ(heightWith(BKUKLayoutRoundingRule::even), 2 * std::ceil(natural / 2));
  EXPECT_EQ(heightWith(BKUKLayoutRoundingRule::odd), 2 * std::floor(natural / 2) + 1);
  EXPECT_EQ(label->layoutRoundingOffset(), 2 * (label->cachedIntrinsicContentSize().height - natural));
  EXPECT_EQ(std::fmod(label->intrinsicContentSize().width, 1), 0);
  // A point more above the text moves it by two, and by two more when it is drawn.
  const bool isEven = std::fmod(natural, 2) == 0;
  show(label, {0, 0, 200, 60});
  label->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  label->setLayoutRoundingRule(BKUKLayoutRoundingRule::none);
  const int before = inkRows().first;
  label->setLayoutRoundingRule(isEven ? BKUKLayoutRoundingRule::odd : BKUKLayoutRoundingRule::even);
  EXPECT_EQ(inkRows().first, before + 4);
}

/// Makes a face known whose lines are just as high as its size: four fifths of it and one fifth, which are no
/// binary numbers.
void registerSquareFace() {
  std::ifstream source("/usr/share/fonts/opentype/inter/Inter-Regular.otf", std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(source), {}};
  auto faces = host::readFontFile(std::as_bytes(std::span(content)));
  const auto write = [&](std::string_view table, std::size_t at, int value) {
    const auto start = reinterpret_cast<const char*>(faces[0].table(table).data()) - content.data();
    content[static_cast<std::size_t>(start) + at] = static_cast<char>(value >> 8);
    content[static_cast<std::size_t>(start) + at + 1] = static_cast<char>(value);
  };
  write("head", 18, 1000);
  write("hhea", 4, 800);
  write("hhea", 6, -200);
  faces[0].postScriptName = "Square-Regular";
  const auto made = host::fileOfFace(faces[0], "Square");
  const auto path = testing::TempDir() + "bkuk-square-face" + std::to_string(getpid());
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(made.data()), static_cast<std::streamsize>(made.size()));
  CTFontManagerRegisterFontsForURL(path, kCTFontManagerScopeProcess);
  std::filesystem::remove(path);
}

TEST_F(BKUKLabelTest, WholeHeightsAreNotRoundedUp) {
  registerSquareFace();
  const auto field = NSTextField::labelWithString("Label");
  for (const int size : {7, 14, 28, 29, 35, 41}) {
    const auto font = NSFont::font("Square-Regular", size);
    ASSERT_TRUE(font);
    label->setFont(font);
    field->setFont(font);
    EXPECT_EQ(label->intrinsicContentSize().height, size);
    EXPECT_EQ(field->intrinsicContentSize().height, size);
  }
}

TEST_F(BKUKLabelTest, TellsItsHeightForAWidthThatItDoesNotHave) {
  label->setStringValue("several words that wrap");
  label->setLayoutRoundingRule(BKUKLayoutRoundingRule::even);
  label->setTopTextPadding([](const NSFont&) { return 3.0; });
  show(label, {0, 0, 200, 30});
  const double offset = label->layoutRoundingOffset();
  const double narrow = label->height(60);
  EXPECT_GT(narrow, 3 * naturalHeight());
  EXPECT_EQ(label->height(0), label->height(1000));
  EXPECT_EQ(label->layoutRoundingOffset(), offset);
  label->setFrameSize({60, 100});
  EXPECT_EQ(label->intrinsicContentSize().height, narrow);
}

TEST_F(BKUKLabelTest, PlacesItsTextAndTellsItsBaselines) {
  show(label, {0, 0, 200, 60});
  const auto top = [&](BKUKLabelVerticalAlignment alignment) {
    label->setVerticalAlignment(alignment);
    return inkRows().first - 40;
  };
  const int highest = top(BKUKLabelVerticalAlignment::top);
  EXPECT_NEAR(label->firstBaselineOffsetFromTop(), label->font()->ascender(), 1e-9);
  const double room = 60 - naturalHeight();
  EXPECT_NEAR(top(BKUKLabelVerticalAlignment::center), highest + room / 2, 1);
  EXPECT_NEAR(label->firstBaselineOffsetFromTop(), label->font()->ascender() + room / 2, 1e-9);
  EXPECT_NEAR(top(BKUKLabelVerticalAlignment::bottom), highest + room, 1);
  EXPECT_NEAR(label->lastBaselineOffsetFromBottom(), label->font()->descender(), 1e-9);
  // A label that is lower than its text starts it at its upper edge.
  label->setVerticalAlignment(BKUKLabelVerticalAlignment::center);
  label->setFrame({0, 0, 200, 10});
  host->settle();
  EXPECT_NEAR(label->firstBaselineOffsetFromTop(), label->font()->ascender(), 1e-9);
  label->setStringValue("");
  host->settle();
  EXPECT_EQ(label->firstBaselineOffsetFromTop(), 0);
  EXPECT_EQ(label->intrinsicContentSize().height, 0);
  EXPECT_EQ(inkRows().first, -1);
}

TEST_F(BKUKLabelTest, PaddingsOfTheTimeWhenItWasMadeCount) {
  auto& config = BKUKFontConfig::shared();
  const auto before = std::pair(config.labelTopOffset, config.labelBottomOffset);
  config.labelTopOffset = [](const NSFont&) { return 1.0; };
  config.labelBottomOffset = [](const NSFont& font) { return font.pointSize() / -4.5 - 1; };
  const auto padded = BKUKLabel::label("Label", style);
  std::tie(config.labelTopOffset, config.labelBottomOffset) = before;
  EXPECT_NEAR(padded->intrinsicContentSize().height, naturalHeight() + 1 - 13 / 3.0, 1e-9);
  padded->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  show(padded, {0, 0, 200, 60});
  EXPECT_NEAR(padded->firstBaselineOffsetFromTop(), padded->font()->ascender() + 1, 1e-9);
}

TEST_F(BKUKLabelTest, ConstraintsLineUpBaselinesAndFollowTheText) {
  const auto large = BKUKLabel::label("Large", style.with({.size = 30}));
  for (const auto& each : {label, large}) {
    each->setTranslatesAutoresizingMaskIntoConstraints(false);
    window->contentView()->addSubview(each);
  }
  large->topAnchor()->constraintEqualTo(window->contentView()->topAnchor())->setActive(true);
  label->leftAnchor()->constraintEqualTo(large->rightAnchor())->setActive(true);
  const auto aligned = label->firstBaselineAnchor()->constraintEqualTo(large->firstBaselineAnchor());
  aligned->setActive(true);
  host->settle();
  const auto baseline = [](const BKUKLabel& of) {
    return of.frame().maxY() - of.firstBaselineOffsetFromTop();
  };
  EXPECT_NEAR(baseline(*label), baseline(*large), 1e-6);
  const CGFloat width = label->frame().width();
  label->setStringValue("Longer text");
  host->settle();
  EXPECT_GT(label->frame().width(), width + 20);
  aligned->setActive(false);
  label->lastBaselineAnchor()->constraintEqualTo(large->lastBaselineAnchor())->setActive(true);
  host->settle();
  EXPECT_NEAR(label->frame().minY() + label->lastBaselineDistanceFromBottom(),
              large->frame().minY() + large->lastBaselineDistanceFromBottom(), 1e-6);
}

TEST_F(BKUKLabelTest, TheSameBaselineIsTheSameRowWhereverTheLabelBegins) {
  label->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  label->setStringValue("x");
  show(label, {0, 0, 200, 30});
  // Baselines 50 points from the top; the first label begins at half a point.
  const std::pair<const char*, double> fonts[] = {
      {"Inter-Regular", 16}, {"Inter-Regular", 15}, {"DejaVuSans", 15}, {"DejaVuSans", 15.35}};
  for (const auto& [name, size] : fonts) {
    label->setFont(NSFont::font(name, size));
    label->setFrame({0, 20 + label->font()->ascender(), 200, 30});
    EXPECT_EQ(inkRows().second, 49) << name << " " << size;
  }
}

TEST_F(BKUKLabelTest, OwnAttributesGoBeforeThoseOfTheLabel) {
  const auto bold = BKUKFontManager::Font(Type::bold, 20);
  const auto text = make<NSMutableAttributedString>(NSString("ab"));
  text->addAttribute(NSFontAttributeName, bold, {1, 1});
  label->setAttributedStringValue(text);
  text->replaceCharacters({0, 2}, NSString("changed"));
  const auto built = label->builder()->build();
  EXPECT_EQ(label->stringValue(), "ab") << "later changes of the text are not the label's";
  EXPECT_EQ(built->attributes(0).object<NSFont>(NSFontAttributeName), label->font().get());
  EXPECT_EQ(built->attributes(1).object<NSFont>(NSFontAttributeName), bold.get());
  EXPECT_EQ(built->attributes(1).object<NSColor>(NSForegroundColorAttributeName), NSColor::black().get());
  label->setFont(BKUKFontManager::Font(Type::bold, 11));
  label->setAnimatableFontSize(13);
  EXPECT_EQ(label->font()->fontName(), bold->fontName());
  EXPECT_EQ(label->animatableFontSize(), 13);
}

/// Puts text in place of what is marked, and counts.
struct Replacer : BKUKCustomAttributeOperator {
  Ref<NSAttributedString> replace(const Ref<NSAttributedString>& text, const NSAttributedStringKey& key,
                                  const NSAttributeValue& value) override {
    heard.push_back(text->string().utf8() + ":" + std::string(key.text()));
    look = text->attributes(0);
    if (!value.string()) return nullptr;
    return make<NSAttributedString>(*value.string());
  }
  std::vector<std::string> heard;
  NSAttributeDictionary look;
};

TEST_F(BKUKLabelTest, AnOperatorReplacesWhatIsMarked) {
  const auto replacer = make<Replacer>();
  BKUKCustomAttributeOperatorManager::shared().setOperator(replacer);
  const auto text = make<NSMutableAttributedString>(NSString("a NAME, b NAME"));
  text->addAttribute("mark", "somebody", {2, 4});
  text->addAttribute("mark", 5, {10, 4});
  label->setAttributedStringValue(text);
  EXPECT_EQ(label->stringValue(), "a somebody, b NAME");
  EXPECT_EQ(replacer->heard, (std::vector<std::string>{"NAME:mark", "NAME:mark"}));
  // The label's own mark is on all of its text, which keeps following the label's look.
  const auto own = make<BKUKCustomAttributeOperatorManager>();
  label->setCustomAttributeOperatorManager(own);
  own->setOperator(replacer);
  label->setStringValue("text");
  label->setCustomAttribute({{"whole", "other"}});
  EXPECT_EQ(label->stringValue(), "other");
  EXPECT_EQ(replacer->look.object<NSFont>(NSFontAttributeName), label->font().get()) << "as it is shown";
  EXPECT_EQ(replacer->look.find("whole")->string()->utf8(), "other");
  label->setTextColor(NSColor::red());
  EXPECT_EQ(label->builder()->build()->attributes(0).object<NSColor>(NSForegroundColorAttributeName),
            NSColor::red().get());
}

struct EditCounter : TextStorageListener {
  void setTextStorage(NSTextStorage*) override {}
  void processEditing(NSTextStorage&, const TextStorageEdit&) override { ++count; }
  int count = 0;
};

TEST_F(BKUKLabelTest, SyncsWithTextFields) {
  label->setShouldUseNSTextFieldSync(true);
  label->setVerticalNSTextFieldSyncOffset(3.4);
  label->setStringValue("one\ntwo");
  BKUKFontConfig::shared().textFieldBottomOffset = [](const NSFont& font) { return font.pointSize() / 5; };
  const auto& font = label->font();
  EXPECT_EQ(label->intrinsicContentSize().height, std::ceil(2 * (font->ascender() - font->descender())) + 3)
      << "measured without the space between the lines";
  const auto* set =
      label->textStorage()->attributes(0).object<NSParagraphStyle>(NSParagraphStyleAttributeName);
  EXPECT_EQ(set->lineSpacing(), 3);
  const auto counter = make<EditCounter>();
  label->textStorage()->addLayoutManager(counter);
  (void)label->intrinsicContentSize();
  (void)label->height(20);
  EXPECT_EQ(counter->count, 0) << "measuring edits nothing";
  label->setVerticalNSTextFieldSyncOffset(5);
  (void)label->intrinsicContentSize();
  set = label->textStorage()->attributes(0).object<NSParagraphStyle>(NSParagraphStyleAttributeName);
  EXPECT_EQ(set->lineSpacing(), 5);
  label->setAlignment(std::nullopt);
  EXPECT_TRUE(stopLine([&] { (void)label->intrinsicContentSize(); }).has_value());
}

struct Painter : BKUKUnderlineDrawer {
  void drawUnderline(const Ref<NSFont>& font, const Ref<NSColor>& color, NSRect rect) override {
    calls.push_back(rect);
    lastFont = font;
    lastColor = color;
    NSColor::black()->setFill();
    NSRectFill({rect.minX(), rect.maxY() - 1, rect.width(), 1});
    if (deed) deed();
  }
  std::vector<NSRect> calls;
  Ref<NSFont> lastFont;
  Ref<NSColor> lastColor;
  std::function<void()> deed;
};

TEST_F(BKUKLabelTest, LeavesUnderlinesToTheirDrawers) {
  const auto painter = make<Painter>();
  const auto manager = make<BKUKUnderlineDrawerManager>();
  label->textLayoutManager()->setUnderlineDrawerManager(manager);
  manager->set(painter, NSUnderlineStyle::thick);
  label->setUnderline(NSUnderlineStyle::thick);
  label->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  show(label, {0, 20, 200, 60});
  ASSERT_EQ(painter->calls.size(), 1u);
  EXPECT_EQ(painter->calls.front().minY(), 0) << "in the space of the container";
  EXPECT_EQ(painter->lastFont, label->font());
  EXPECT_EQ(painter->lastColor, NSColor::black());
  EXPECT_EQ(inkRows().second, 20 + static_cast<int>(std::ceil(painter->calls.front().maxY())) - 1);
  label->setUnderline(NSUnderlineStyle::single);
  host->settle();
  EXPECT_EQ(painter->calls.size(), 1u) << "a style without a drawer is the platform's";
  for (const auto bare : {NSUnderlineStyle::patternDot, static_cast<NSUnderlineStyle>(0x10000)}) {
    manager->set(painter, bare);
    label->setUnderline(bare);
    painter->calls.clear();
    host->settle();
    EXPECT_EQ(painter->calls.size(), 1u) << "no stroke, and a drawer all the same";
  }
  EXPECT_EQ(manager->remove(NSUnderlineStyle::thick), painter);
  EXPECT_EQ(manager->drawer(NSUnderlineStyle::thick), nullptr);
  // A drawer may do away with the label while it is drawn.
  painter->deed = [&] {
    label->setStringValue("");
    label->removeFromSuperview();
  };
  manager->set(painter, NSUnderlineStyle::thick);
  label->setUnderline(NSUnderlineStyle::thick);
  host->settle();
  EXPECT_EQ(label->superview(), nullptr);
}

TEST_F(BKUKLabelTest, FindsCharactersFromItsUpperEdge) {
  label->setStringValue("abc");
  show(label, {0, 0, 200, 60});
  const double width = label->textStorage()->size().width;
  const double b = label->textLayoutManager()->boundingRect({1, 1}, *label->textContainer()).midX();
  EXPECT_EQ(label->characterIndex({b - 1, 5}, true), 1u);
  EXPECT_EQ(label->characterIndex({b + 1, 5}, true), 2u);
  EXPECT_EQ(label->characterIndex({b + 1, 5}, false), 1u);
  EXPECT_EQ(label->characterIndex({width, 5}, true), 0u) << "on the edge";
  EXPECT_EQ(label->characterIndex({width + 1, 5}, true), 3u);
  EXPECT_EQ(label->characterIndex({b, 50}, true), 3u);
  EXPECT_EQ(label->characterIndex({-1, 5}, true), 0u);
}

struct ClickLog : NSObject, BKUKLabelTextClickDelegate {
  void labelClicked(BKUKLabel& clicked, NSEvent&) override {
    ++clicks;
    clicked.removeFromSuperview();
  }
  int clicks = 0;
};

TEST_F(BKUKLabelTest, TellsOfClicksWhileItsDelegateLives) {
  auto log = make<ClickLog>();
  label->setClickDelegate(log.get());
  show(label, {0, 0, 200, 100});
  desktop().click({20, 50});
  EXPECT_EQ(log->clicks, 1);
  log = nullptr;
  EXPECT_EQ(label->clickDelegate(), nullptr);
  show(label, {0, 0, 200, 100});
  desktop().click({20, 50});
}

TEST_F(BKUKLabelTest, TextFieldsTakeMarkupAndStyles) {
  const auto field = NSTextField::labelWithString("Read [b]this[/b]");
  const auto bold = style.with({.type = Type::bold});
  apply(*field, {{"b", bold}}, style);
  EXPECT_EQ(field->stringValue(), "Read this");
  const auto fontAt = [&](std::size_t i) {
    return field->attributedStringValue()->attributes(i).object<NSFont>(NSFontAttributeName);
  };
  EXPECT_EQ(fontAt(5), bold.font().get());
  EXPECT_EQ(fontAt(0), style.font().get());
  apply(*field, bold, "ad");
  apply(*field, style, "not there");
  EXPECT_EQ(fontAt(2), bold.font().get());
  EXPECT_EQ(fontAt(1), style.font().get());
  // What the expression is not in keeps following the appearance.
  const auto plain = NSTextField::labelWithString("a plain text");
  apply(*plain, bold, "plain");
  const auto color =
      plain->attributedStringValue()->attributes(0).object<NSColor>(NSForegroundColorAttributeName);
  EXPECT_EQ(color->whiteComponent(), 0);
  NSApplication::shared().setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
  EXPECT_EQ(color->whiteComponent(), 1);
  NSApplication::shared().setAppearance(nullptr);
  field->setStringValue("[b]open");
  apply(*field, {{"b", bold}}, style);
  EXPECT_EQ(field->stringValue(), "[b]open") << "malformed markup is shown as it is";
  EXPECT_EQ(fontAt(0), style.font().get());
}

}  // namespace
}  // namespace bkuk
