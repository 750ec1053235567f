#pragma once

#include <memory>

#include "platform/appkit/NSLayoutAnchor.h"

namespace bkuk {

class NSView;
struct LayoutPart;

/// What constraints are laid between: a view or a layout guide.
class NSLayoutItem {
 public:
  NSLayoutItem(const NSLayoutItem&) = delete;
  NSLayoutItem& operator=(const NSLayoutItem&) = delete;

  // One anchor for each attribute, to make constraints with. The edges are those of the alignment rectangle.

  [[nodiscard]] Ref<NSLayoutXAxisAnchor> leadingAnchor();
  [[nodiscard]] Ref<NSLayoutXAxisAnchor> trailingAnchor();
  [[nodiscard]] Ref<NSLayoutXAxisAnchor> leftAnchor();
  [[nodiscard]] Ref<NSLayoutXAxisAnchor> rightAnchor();
  [[nodiscard]] Ref<NSLayoutXAxisAnchor> centerXAnchor();
  [[nodiscard]] Ref<NSLayoutYAxisAnchor> topAnchor();
  [[nodiscard]] Ref<NSLayoutYAxisAnchor> bottomAnchor();
  [[nodiscard]] Ref<NSLayoutYAxisAnchor> centerYAnchor();
  [[nodiscard]] Ref<NSLayoutYAxisAnchor> firstBaselineAnchor();
  [[nodiscard]] Ref<NSLayoutYAxisAnchor> lastBaselineAnchor();
  [[nodiscard]] Ref<NSLayoutDimension> widthAnchor();
  [[nodiscard]] Ref<NSLayoutDimension> heightAnchor();

  /// The item as what it is besides.
  [[nodiscard]] virtual NSObject& layoutObject() = 0;
  /// The view whose space the item lies in; none for a view without a superview.
  [[nodiscard]] virtual Ref<NSView> layoutContainer() const = 0;
  /// The item itself when it is a view, else the view that it lies in.
  [[nodiscard]] virtual Ref<NSView> layoutView() = 0;
  /// True for a layout guide; every other item is a view.
  [[nodiscard]] virtual bool isLayoutGuide() const { return false; }

 protected:
  NSLayoutItem();
  virtual ~NSLayoutItem();

  /// What the platform keeps about the item; none while there was no need.
  std::unique_ptr<LayoutPart> layoutPart_;

 private:
  friend class NSLayoutConstraint;
  friend class LayoutEngine;
  friend class NSView;

  LayoutPart& layoutPart();
};

}  // namespace bkuk
