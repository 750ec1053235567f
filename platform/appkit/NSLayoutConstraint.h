#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/appkit/NSLayoutAttribute.h"
#include "platform/appkit/NSLayoutItem.h"

namespace bkuk {

/// How a visual format aligns its views; a sum of bits.
using NSLayoutFormatOptions = unsigned;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllLeft = 1U << 1;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllRight = 1U << 2;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllTop = 1U << 3;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllBottom = 1U << 4;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllLeading = 1U << 5;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllTrailing = 1U << 6;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllCenterX = 1U << 9;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllCenterY = 1U << 10;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllLastBaseline = 1U << 11;
inline constexpr NSLayoutFormatOptions NSLayoutFormatAlignAllFirstBaseline = 1U << 12;
/// Without either, a horizontal format runs from leading to trailing.
inline constexpr NSLayoutFormatOptions NSLayoutFormatDirectionLeftToRight = 1U << 16;
inline constexpr NSLayoutFormatOptions NSLayoutFormatDirectionRightToLeft = 2U << 16;

/// A linear relation between two attributes: `first = multiplier * second + constant`, or at least or at most
/// that. Positions are measured in the nearest view around both items, from its leading or upper edge.
///
/// While it is active that view keeps it. A constraint that names an item which has left the tree of the
/// other becomes inactive. Required constraints that contradict each other are not an error: one is left out,
/// with a line on the standard error stream, until it fits.
class NSLayoutConstraint final : public NSObject {
 public:
  /// Without `toItem` the attribute is set to the constant; a position is then in the item's superview.
  /// Attributes that cannot be compared are a fatal error, as is a number that is not finite.
  NSLayoutConstraint(NSLayoutItem* item, NSLayoutAttribute attribute, NSLayoutRelation relatedBy,
                     NSLayoutItem* toItem, NSLayoutAttribute toAttribute, CGFloat multiplier,
                     CGFloat constant);
  ~NSLayoutConstraint() override;

  /// The constraints that a drawing in characters describes, inactive: `H:|-[label]-8-[field(>=100)]-|`. It
  /// starts with `H:`, the default, or `V:`. `|` is the superview, `[name]` an item of `views`, the numbers
  /// between them are points, or names of `metrics`; `-` alone is the usual distance, 8 between views and 20
  /// from the superview. In parentheses stand conditions, `==`, `>=` or `<=` a number, a metric or, for
  /// sizes, a view, and after `@` a priority. What cannot be read, and an unknown name, is a fatal error.
  [[nodiscard]] static std::vector<Ref<NSLayoutConstraint>> constraintsWithVisualFormat(
      std::string_view format, NSLayoutFormatOptions options, const std::map<std::string, CGFloat>& metrics,
      const std::map<std::string, NSLayoutItem*>& views);

  static void activateConstraints(std::span<const Ref<NSLayoutConstraint>> constraints);
  static void deactivateConstraints(std::span<const Ref<NSLayoutConstraint>> constraints);

  /// None when it is gone or there is none.
  [[nodiscard]] NSLayoutItem* firstItem() const;
  [[nodiscard]] NSLayoutItem* secondItem() const;
  [[nodiscard]] NSLayoutAttribute firstAttribute() const { return firstAttribute_; }
  [[nodiscard]] NSLayoutAttribute secondAttribute() const { return secondAttribute_; }
  [[nodiscard]] NSLayoutRelation relation() const { return relation_; }
  [[nodiscard]] CGFloat multiplier() const { return multiplier_; }

  [[nodiscard]] CGFloat constant() const { return constant_; }
  /// In points, also while active.
  void setConstant(CGFloat constant);
  [[nodiscard]] NSLayoutPriority priority() const { return priority_; }
  /// Also while active, unless it changes between required and not required, which is a fatal error then.
  void setPriority(NSLayoutPriority priority);

  [[nodiscard]] bool isActive() const { return holder_.isAlive(); }
  /// To activate a constraint whose items have no common view is a fatal error.
  void setActive(bool active);

  [[nodiscard]] const std::string& identifier() const;
  void setIdentifier(std::string identifier);

  /// As a formula, for messages.
  [[nodiscard]] std::string description() const;
  [[nodiscard]] std::string className() const override { return "NSLayoutConstraint"; }

 private:
  friend class LayoutEngine;
  friend class NSView;

  /// How far an engine has come with the constraint.
  enum class Work : std::uint8_t { none, waiting, installed, constantChanged };

  void activate();
  void deactivate();
  void enterItems();
  void leaveItems();
  [[nodiscard]] static NSView* viewOf(NSLayoutItem& item);
  [[nodiscard]] NSView* commonView() const;
  [[nodiscard]] bool hasSecond() const { return secondAttribute_ != NSLayoutAttribute::none; }

  // In an order that leaves no holes, for there are many constraints.
  const NSLayoutAttribute firstAttribute_;
  const NSLayoutAttribute secondAttribute_;
  const NSLayoutRelation relation_;
  const bool firstIsGuide_ : 1;
  const bool secondIsGuide_ : 1;
  bool hasIdentifier_ : 1 = false;
  bool isListed_ : 1 = false;  // by its items
  bool isWithin_ : 1 = false;  // a tree that is about to leave another
  Work work_ : 3 = Work::none;
  const Weak<NSObject> first_;
  const Weak<NSObject> second_;
  const CGFloat multiplier_;
  CGFloat constant_;
  Weak<NSView> holder_;
  NSLayoutPriority priority_ = NSLayoutPriorityRequired;
  std::uint32_t place_ = 0;        // among those that the holder holds
  std::uint32_t engineIndex_ = 0;  // of the solver's constraint, or the place among those that wait
};

}  // namespace bkuk
