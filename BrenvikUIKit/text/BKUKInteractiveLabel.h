#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKLabel.h"
#include "platform/appkit/NSAccessibilityElement.h"
#include "platform/appkit/NSTrackingArea.h"

namespace bkuk {

/// A label with links: stretches of its text that can be clicked, and reached and pressed with the keyboard
/// and by assistive clients.
///
/// The keyboard reaches the links one after the other, in the order of the text, with Tab and the arrow keys,
/// of which left and right follow the direction of the interface; at the first and the last link they go on
/// to the next responder. Space and return press. A link's action is only called for a click, a key or an
/// assistive press, and may do anything, even do away with the label.
class BKUKInteractiveLabel : public BKUKLabel {
 public:
  using Action = std::function<void(const std::string& identifier)>;

  /// A part of the label as assistive clients see it.
  class TextFrame : public NSAccessibilityElement {
   public:
    explicit TextFrame(BKUKInteractiveLabel* label) : view_(label) {}

    /// Empty when the label is gone.
    [[nodiscard]] Ref<BKUKInteractiveLabel> view() const { return view_.lock(); }
    [[nodiscard]] Ref<NSAccessibility> accessibilityParent() const override { return view(); }

   private:
    Weak<BKUKInteractiveLabel> view_;
  };

  /// A link.
  class LinkFrame final : public TextFrame {
   public:
    LinkFrame(BKUKInteractiveLabel* label, std::string identifier, NSRange range, Action action);

    /// What the action is told; also finds the link in tests.
    [[nodiscard]] const std::string& identifier() const { return identifier_; }
    [[nodiscard]] NSRange range() const { return range_; }
    [[nodiscard]] const Action& action() const { return action_; }

    [[nodiscard]] NSAccessibilityRole accessibilityRole() const override { return NSAccessibilityLinkRole; }
    [[nodiscard]] std::string accessibilityLabel() const override;
    [[nodiscard]] std::string accessibilityIdentifier() const override { return identifier_; }
    [[nodiscard]] std::optional<NSRect> accessibilityFrameInParentSpace() const override;
    [[nodiscard]] bool isAccessibilityFocusable() const override { return true; }
    [[nodiscard]] bool isAccessibilityFocused() const override;
    bool accessibilityPerformFocus() override;
    bool accessibilityPerformPress() override;

   private:
    std::string identifier_;
    NSRange range_;
    Action action_;
  };

  struct RangeOrder {
    bool operator()(NSRange a, NSRange b) const {
      return a.location != b.location ? a.location < b.location : a.length < b.length;
    }
  };
  /// In the order of the text; where links overlap, the one that begins first is hit.
  using Links = std::map<NSRange, Ref<LinkFrame>, RangeOrder>;

  using BKUKLabel::BKUKLabel;
  /// A label with that text, in UTF-8, and no links as yet.
  [[nodiscard]] static Ref<BKUKInteractiveLabel> label(std::string_view text);
  [[nodiscard]] static Ref<BKUKInteractiveLabel> label(std::string_view text, const BKUKFontSettings& style);

  [[nodiscard]] const Links& links() const { return links_; }
  /// Makes a stretch of the text a link, in place of one with the same range. A range that leaves the text,
  /// or is empty, makes none. Without an action the link is there and does nothing.
  void addLink(NSRange range, std::string identifier, Action action);
  void removeAllLinks();

  /// Shows marked-up text in the styles of its tags. The tags that `linkActions` names become links whose
  /// identifier is the name of the tag; one that occurs more than once is a link where it occurs last. A link
  /// whose tag `stylesToTags` does not name has the default style with a single underline, also within
  /// another tag. Malformed markup is shown as it is in the default style, without links, and the answer is
  /// false.
  bool setMarkup(std::string_view markup, const std::map<std::string, BKUKFontSettings>& stylesToTags,
                 const BKUKFontSettings& defaultStyle, const std::map<std::string, Action>& linkActions);

  /// Around the text of the link, line by line, in the label's space.
  [[nodiscard]] std::vector<NSRect> rects(const LinkFrame& link) const;
  /// The link that has, or would get, the keyboard; empty without links.
  [[nodiscard]] Ref<LinkFrame> focusedLink() const;
  /// Whether the pointing hand is shown.
  [[nodiscard]] bool cursored() const { return cursored_; }
  [[nodiscard]] const Ref<NSTrackingArea>& trackingArea() const { return trackingArea_; }

  // NSView

  void updateTrackingAreas() override;
  void mouseMoved(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void mouseDown(NSEvent& event) override;
  [[nodiscard]] bool acceptsFirstResponder() const override { return !links_.empty(); }
  [[nodiscard]] bool takesFocusOnClick() const override { return false; }
  bool becomeFirstResponder() override;
  void keyDown(NSEvent& event) override;
  [[nodiscard]] NSRect focusRingMaskBounds() override;
  void drawFocusRingMask() override;
  [[nodiscard]] std::vector<Ref<NSAccessibility>> accessibilityChildren() const override;
  [[nodiscard]] Ref<NSAccessibility> accessibilityFocusedUIElement() const override;
  [[nodiscard]] bool isAccessibilityFocused() const override { return false; }
  [[nodiscard]] bool isAccessibilityFocusable() const override { return false; }
  [[nodiscard]] std::string className() const override { return "BKUKInteractiveLabel"; }

 protected:
  /// Links end with the text that they were made in.
  void textDidChange() override;

 private:
  [[nodiscard]] Ref<LinkFrame> linkAt(const NSEvent& event);
  [[nodiscard]] bool hasKeyboard() const;
  bool focus(const LinkFrame& link);
  bool moveFocus(bool forward);
  [[nodiscard]] bool isBackwardArrow(const NSEvent& event) const;
  [[nodiscard]] bool isForwardArrow(const NSEvent& event) const;
  [[nodiscard]] std::vector<NSRect> focusRingMask() const;
  void focusedLinkDidChange();
  bool press(const LinkFrame& link);
  void showArrow();

  Links links_;
  Ref<NSAttributedString> linkedText_;  // the text that the links are part of
  std::size_t focused_ = 0;             // among the links
  Ref<NSTrackingArea> trackingArea_;
  bool cursored_ = false;
};

}  // namespace bkuk
