#pragma once

#include <string>

#include "platform/appkit/NSLayoutItem.h"

namespace bkuk {

/// A rectangle of a view that constraints place like a subview, but that shows nothing.
class NSLayoutGuide final : public NSObject, public NSLayoutItem {
 public:
  /// The view that it was added to; none before.
  [[nodiscard]] Ref<NSView> owningView() const;
  /// In the space of the owning view, as last laid out.
  [[nodiscard]] CGRect frame() const { return frame_; }

  [[nodiscard]] const std::string& identifier() const { return identifier_; }
  void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }

  [[nodiscard]] std::string className() const override { return "NSLayoutGuide"; }
  [[nodiscard]] NSObject& layoutObject() override { return *this; }
  [[nodiscard]] Ref<NSView> layoutContainer() const override;
  [[nodiscard]] Ref<NSView> layoutView() override;
  [[nodiscard]] bool isLayoutGuide() const override { return true; }

 private:
  friend class LayoutEngine;
  friend class NSLayoutConstraint;
  friend class NSView;

  Weak<NSView> owner_;
  CGRect frame_;
  std::string identifier_;
};

}  // namespace bkuk
