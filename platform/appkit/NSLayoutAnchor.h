#pragma once

#include "platform/appkit/NSLayoutAttribute.h"
#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSLayoutConstraint;
class NSLayoutItem;

/// One attribute of one item, for making constraints. Does not keep the item alive.
class NSLayoutAnchorBase : public NSObject {
 public:
  NSLayoutAnchorBase(NSLayoutItem& item, NSLayoutAttribute attribute);

  /// None when it is gone.
  [[nodiscard]] NSLayoutItem* item() const;
  [[nodiscard]] NSLayoutAttribute attribute() const { return attribute_; }

 protected:
  [[nodiscard]] Ref<NSLayoutConstraint> constraint(NSLayoutRelation relation, const NSLayoutAnchorBase* other,
                                                   CGFloat multiplier, CGFloat constant) const;

 private:
  NSLayoutAttribute attribute_;
  bool isOfGuide_;
  Weak<NSObject> object_;
};

/// Anchors of one kind, which alone can be put in relation. The constraints are made inactive:
/// this = anchor + constant, in points.
template <typename Kind>
class NSLayoutAnchor : public NSLayoutAnchorBase {
 public:
  using NSLayoutAnchorBase::NSLayoutAnchorBase;

  [[nodiscard]] Ref<NSLayoutConstraint> constraintEqualTo(const Ref<Kind>& anchor,
                                                          CGFloat constant = 0) const {
    return constraint(NSLayoutRelation::equal, anchor.get(), 1, constant);
  }
  [[nodiscard]] Ref<NSLayoutConstraint> constraintGreaterThanOrEqualTo(const Ref<Kind>& anchor,
                                                                       CGFloat constant = 0) const {
    return constraint(NSLayoutRelation::greaterThanOrEqual, anchor.get(), 1, constant);
  }
  [[nodiscard]] Ref<NSLayoutConstraint> constraintLessThanOrEqualTo(const Ref<Kind>& anchor,
                                                                    CGFloat constant = 0) const {
    return constraint(NSLayoutRelation::lessThanOrEqual, anchor.get(), 1, constant);
  }
};

/// Left, right, leading, trailing and horizontal centre.
class NSLayoutXAxisAnchor final : public NSLayoutAnchor<NSLayoutXAxisAnchor> {
 public:
  using NSLayoutAnchor::NSLayoutAnchor;
};

/// Top, bottom, vertical centre and baselines.
class NSLayoutYAxisAnchor final : public NSLayoutAnchor<NSLayoutYAxisAnchor> {
 public:
  using NSLayoutAnchor::NSLayoutAnchor;
};

/// Width and height, which may also be set to a number or a multiple of another.
class NSLayoutDimension final : public NSLayoutAnchor<NSLayoutDimension> {
 public:
  using NSLayoutAnchor::NSLayoutAnchor;
  using NSLayoutAnchor::constraintEqualTo;
  using NSLayoutAnchor::constraintGreaterThanOrEqualTo;
  using NSLayoutAnchor::constraintLessThanOrEqualTo;

  [[nodiscard]] Ref<NSLayoutConstraint> constraintEqualToConstant(CGFloat constant) const;
  [[nodiscard]] Ref<NSLayoutConstraint> constraintGreaterThanOrEqualToConstant(CGFloat constant) const;
  [[nodiscard]] Ref<NSLayoutConstraint> constraintLessThanOrEqualToConstant(CGFloat constant) const;
  [[nodiscard]] Ref<NSLayoutConstraint> constraintEqualTo(const Ref<NSLayoutDimension>& anchor,
                                                          CGFloat multiplier, CGFloat constant) const;
  [[nodiscard]] Ref<NSLayoutConstraint> constraintGreaterThanOrEqualTo(const Ref<NSLayoutDimension>& anchor,
                                                                       CGFloat multiplier,
                                                                       CGFloat constant) const;
  [[nodiscard]] Ref<NSLayoutConstraint> constraintLessThanOrEqualTo(const Ref<NSLayoutDimension>& anchor,
                                                                    CGFloat multiplier,
                                                                    CGFloat constant) const;
};

}  // namespace bkuk
