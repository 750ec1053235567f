#include <cmath>
#include <gtest/gtest.h>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSTextField.h"
#include "platform/appkit/NSWindow.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

struct Field {
  Field() {
    window->setBackgroundColor(NSColor::white());
    field->setTextColor(NSColor::black());
    field->setFrame({0, 0, 100, 30});
    window->contentView()->addSubview(field);
    window->orderFront();
    host->settle();
  }
  ~Field() { window->close(); }

  /// The columns, from the left, between which there is ink.
  std::pair<int, int> ink() {
    host->settle();
    int first = -1;
    int last = -1;
    for (int x = 0; x < 200; ++x) {
      for (int y = 0; y < 40; ++y) {
        if (host->windows().front()->pixel(x, y) == 0xFFFFFFFF) continue;
        if (first < 0) first = x;
        last = x;
      }
    }
    return {first, last};
  }

  VirtualHostScope host;
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 200, 40), NSWindowStyleMaskBorderless);
  Ref<NSTextField> field = NSTextField::labelWithString("Text");
};

TEST(NSTextField, AlignsItsLineAndCutsWhatIsTooLong) {
  Field shown;
  EXPECT_LT(shown.ink().first, 8);
  shown.field->setAlignment(NSTextAlignment::right);
  EXPECT_GT(shown.ink().first, 50);
  EXPECT_LT(shown.ink().second, 100);
  shown.field->setStringValue("Far too long a text for a field of a hundred points");
  for (const auto mode : {NSLineBreakMode::clipping, NSLineBreakMode::truncatingHead,
                          NSLineBreakMode::truncatingMiddle, NSLineBreakMode::truncatingTail}) {
    shown.field->setLineBreakMode(mode);
    EXPECT_LT(shown.ink().second, 100) << static_cast<int>(mode);
  }
  shown.field->setStringValue(
      "\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600");
  EXPECT_LT(shown.ink().second, 100);
  shown.field->setFrameSize({3, 30});
  EXPECT_LE(shown.ink().second, 3);
}

TEST(NSTextField, TellsAndShowsAttributes) {
  Field shown;
  shown.field->setAlignment(NSTextAlignment::center);
  const auto plain = shown.field->attributedStringValue();
  EXPECT_EQ(plain->attributes(0).object<NSFont>(NSFontAttributeName), shown.field->font().get());
  EXPECT_EQ(plain->attributes(0).object<NSParagraphStyle>(NSParagraphStyleAttributeName)->alignment(),
            NSTextAlignment::center);
  const NSSize before = shown.field->intrinsicContentSize();
  const NSAttributedString large(NSString("Large"), {{NSFontAttributeName, NSFont::systemFont(22)}});
  shown.field->setAttributedStringValue(large);
  EXPECT_EQ(shown.field->stringValue(), "Large");
  EXPECT_TRUE(shown.field->attributedStringValue()->isEqual(&large));
  EXPECT_GT(shown.field->intrinsicContentSize().height, before.height + 5);
  shown.field->setStringValue("Large");
  EXPECT_EQ(shown.field->intrinsicContentSize().height, before.height) << "the attributes are dropped";
  // What wraps is as high as its lines, and its last baseline is lower than the first.
  shown.field->setLineBreakMode(NSLineBreakMode::wordWrapping);
  shown.field->setStringValue("Several words to wrap at the end");
  shown.field->setPreferredMaxLayoutWidth(100);
  const CGFloat height = shown.field->intrinsicContentSize().height;
  EXPECT_GT(height, 2 * before.height);
  shown.field->setFrameSize({100, height});
  EXPECT_LT(shown.field->lastBaselineOffsetFromBottom(), before.height);
  EXPECT_LT(shown.field->firstBaselineOffsetFromTop(), before.height);
}

TEST(NSTextField, TextWithoutAColourFollowsTheAppearance) {
  Field shown;
  shown.field->setTextColor(nullptr);
  const auto before = shown.field->attributedStringValue();
  const auto whiteOf = [](const NSAttributedString& text) {
    return text.attributes(0).object<NSColor>(NSForegroundColorAttributeName)->whiteComponent();
  };
  EXPECT_EQ(whiteOf(*before), 0);
  // Part of another text, it is still not that of a moment.
  shown.field->setAttributedStringValue(*before);
  NSApplication::shared().setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
  EXPECT_EQ(whiteOf(*shown.field->attributedStringValue()), 1);
  EXPECT_EQ(shown.ink().first, -1) << "drawn again in white";
  NSApplication::shared().setAppearance(nullptr);
  EXPECT_GE(shown.ink().first, 0);
}

TEST(NSTextField, TellsConstraintsItsBaselineAtEachSize) {
  Field shown;
  shown.field->setTranslatesAutoresizingMaskIntoConstraints(false);
  const auto height = shown.field->heightAnchor()->constraintEqualToConstant(20);
  const auto top = shown.window->contentView()->topAnchor();
  shown.field->firstBaselineAnchor()->constraintEqualTo(top, 25)->setActive(true);
  for (const CGFloat size : {20, 31}) {
    height->setConstant(size);
    height->setActive(true);
    shown.host->settle();
    const CGFloat above = 40 - shown.field->frame().maxY();
    EXPECT_NEAR(above + shown.field->firstBaselineOffsetFromTop(), 25, 1e-4) << size;
  }
}

TEST(NSTextField, AStaticFieldLeavesPointerAndKeyboardToOthers) {
  Field shown;
  EXPECT_FALSE(shown.field->acceptsFirstResponder());
  EXPECT_FALSE(shown.field->needsPanelToBecomeKey());
  shown.field->setEditable(true);
  EXPECT_TRUE(shown.field->acceptsFirstResponder());
  EXPECT_TRUE(shown.field->needsPanelToBecomeKey());
  shown.field->setBezeled(true);
  shown.field->setBordered(true);
  EXPECT_FALSE(shown.field->isBezeled());
}

TEST(NSFont, TheSameNameAndSizeAreOneObjectWhileItLives) {
  const VirtualHostScope host;
  const auto font = NSFont::systemFont(14);
  EXPECT_EQ(NSFont::systemFont(14), font);
  EXPECT_NE(NSFont::systemFont(15), font);
  EXPECT_EQ(NSFont::font("No such face", 14), nullptr);
  EXPECT_EQ(NSFont::font("", 14), nullptr) << "not the system font";
  EXPECT_GT(NSFont::systemFont(14, 700)->weight(), font->weight());
  EXPECT_EQ(NSFont::fontInFamily("Inter", 700, 14), NSFont::font("Inter-Bold", 14));
  EXPECT_LT(font->descender(), 0);
  const auto usual = NSFont::font("Inter-Regular", 0);
  EXPECT_EQ(usual->pointSize(), 12);
  for (const CGFloat size : {-3.0, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(NSFont::font("Inter-Regular", size), usual);
    EXPECT_EQ(NSFont::systemFont(size)->pointSize(), 13);
  }
}

}  // namespace
}  // namespace bkuk
