#include "platform/appkit/NSLayoutAnchor.h"

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/constraints/LayoutPart.h"

namespace bkuk {

using Relation = NSLayoutRelation;

NSLayoutAnchorBase::NSLayoutAnchorBase(NSLayoutItem& item, NSLayoutAttribute attribute)
    : attribute_(attribute), isOfGuide_(item.isLayoutGuide()), object_(&item.layoutObject()) {}

NSLayoutItem* NSLayoutAnchorBase::item() const { return layoutItem(object_.peek(), isOfGuide_); }

Ref<NSLayoutConstraint> NSLayoutAnchorBase::constraint(Relation relation, const NSLayoutAnchorBase* other,
                                                       CGFloat multiplier, CGFloat constant) const {
  return make<NSLayoutConstraint>(item(), attribute_, relation, other ? other->item() : nullptr,
                                  other ? other->attribute_ : NSLayoutAttribute::none, multiplier, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintEqualToConstant(CGFloat constant) const {
  return constraint(Relation::equal, nullptr, 1, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintGreaterThanOrEqualToConstant(CGFloat constant) const {
  return constraint(Relation::greaterThanOrEqual, nullptr, 1, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintLessThanOrEqualToConstant(CGFloat constant) const {
  return constraint(Relation::lessThanOrEqual, nullptr, 1, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintEqualTo(const Ref<NSLayoutDimension>& anchor,
                                                             CGFloat multiplier, CGFloat constant) const {
  return constraint(Relation::equal, anchor.get(), multiplier, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintGreaterThanOrEqualTo(
    const Ref<NSLayoutDimension>& anchor, CGFloat multiplier, CGFloat constant) const {
  return constraint(Relation::greaterThanOrEqual, anchor.get(), multiplier, constant);
}

Ref<NSLayoutConstraint> NSLayoutDimension::constraintLessThanOrEqualTo(const Ref<NSLayoutDimension>& anchor,
                                                                       CGFloat multiplier,
                                                                       CGFloat constant) const {
  return constraint(Relation::lessThanOrEqual, anchor.get(), multiplier, constant);
}

}  // namespace bkuk
