#pragma once

#include <string>
#include <vector>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A part of a page upon a surface of its own, with a title and a remark above what it shows.
class Card : public Box {
 public:
  Card(std::string title, std::string remark);

  /// The height that the card needs at that width, in points.
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const;
  /// The views on the card that the keyboard reaches, in the order of the Tab key.
  [[nodiscard]] virtual std::vector<NSView*> keyViews() const { return {}; }

  void layout() override;

 protected:
  void didInit() override;

  [[nodiscard]] virtual CGFloat contentHeight(CGFloat width) const = 0;
  /// Places what the card shows; `content` is in the card's own space.
  virtual void layoutContent(NSRect content) = 0;
  void setRemark(std::string remark);
  /// To be called when the card needs another height.
  void heightDidChange();

 private:
  Ref<TextLabel> title_;
  Ref<TextLabel> remark_;
};

}  // namespace bkuk::gallery
