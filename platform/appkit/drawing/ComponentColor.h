#pragma once

#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// The plain colour that the factories of `NSColor` make: fixed components in a colour space.
class ComponentColor final : public NSColor {
 public:
  explicit ComponentColor(Ref<CGColor> color);

  [[nodiscard]] Ref<CGColor> cgColor() const override { return color_; }

  /// Equal to a plain colour of the same space and components; the same look in another space is not equal.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override { return color_->hash(); }

  /// That of the public class, under which archives know plain colours.
  [[nodiscard]] std::string className() const override { return "NSColor"; }

 private:
  const Ref<CGColor> color_;
};

}  // namespace bkuk
