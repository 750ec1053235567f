#pragma once

#include <string>

#include "gallery/cards/Card.h"
#include "gallery/chrome/Button.h"
#include "gallery/pages/markup/MarkupEditor.h"

namespace bkuk::gallery {

/// Where markup is typed, or taken from one of some samples.
class MarkupSourceCard : public Card {
 public:
  /// `changed` is told of the first sample, which is there at first, too.
  explicit MarkupSourceCard(MarkupEditor::Handler changed);

  [[nodiscard]] std::vector<NSView*> keyViews() const override;

 protected:
  void didInit() override;
  [[nodiscard]] CGFloat contentHeight(CGFloat width) const override;
  void layoutContent(NSRect content) override;

 private:
  void addSample(const char* name, const char* markup);
  /// One for each button, from the leading upper corner of the first.
  [[nodiscard]] std::vector<NSRect> buttonFrames(CGFloat width) const;

  MarkupEditor::Handler changed_;
  Ref<MarkupEditor> editor_;
  std::vector<Ref<Button>> samples_;
};

/// Markup as it shows.
class MarkupResultCard : public Card {
 public:
  MarkupResultCard();

  void show(const std::string& markup);

 protected:
  void didInit() override;
  [[nodiscard]] CGFloat contentHeight(CGFloat width) const override;
  void layoutContent(NSRect content) override;

 private:
  Ref<BKUKLabel> label_ = make<BKUKLabel>();
};

/// The tags and what they look like.
[[nodiscard]] Ref<Card> makeMarkupTagsCard();

}  // namespace bkuk::gallery
