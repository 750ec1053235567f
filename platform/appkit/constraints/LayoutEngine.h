#pragma once

#include <deque>
#include <unordered_map>
#include <vector>

#include "platform/appkit/NSLayoutAttribute.h"
#include "platform/appkit/constraints/EngineItem.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/layout/LayoutSolver.h"

namespace bkuk {

class NSLayoutConstraint;
class NSLayoutItem;
class NSView;

/// Solves the constraints of one tree of views and sets the frames that follow. The root of a tree owns it,
/// from the first layout that comes to solve constraints on.
///
/// For each item that constraints name, and the views around it, the solver has the distance of its left and
/// upper edge from those of its container, its width and its height. What changes is noted; `update` does the
/// work, in the layout pass.
class LayoutEngine final : public NSObject {
 public:
  /// `frames` keeps to the root's size and lays out its tree; `fitting` looks for the least size of the root.
  enum class Purpose { frames, fitting };

  explicit LayoutEngine(NSView& root, Purpose purpose = Purpose::frames);
  ~LayoutEngine() override;

  void add(NSLayoutConstraint& constraint);
  void remove(NSLayoutConstraint& constraint);
  void constantDidChange(NSLayoutConstraint& constraint);
  void priorityDidChange(NSLayoutConstraint& constraint);
  /// Frame, intrinsic size, priorities or another property of an item that its constraints depend on.
  void itemDidChange(NSLayoutItem& item);
  /// As before, for what constraints of others take from it: insets and baselines.
  void alignmentDidChange(NSLayoutItem& item);
  void directionDidChange();
  /// Of an item without constraints, which leaves the tree.
  void forget(NSLayoutItem& item);
  /// Lets go of all constraints and items, when the root goes or comes into another tree.
  void disband();

  [[nodiscard]] bool needsUpdate() const { return needsUpdate_; }
  /// Solves, and sets the frames that changed, superviews first. Client code is called and may do anything.
  void update();
  /// Solves and answers the size of the root, setting nothing.
  [[nodiscard]] CGSize solvedSize();

 private:
  using Item = EngineItem;
  using Own = EngineItem::Own;
  struct Metrics;
  struct Placement {
    Ref<NSView> view;
    NSRect frame;
    std::uint32_t depth;
  };

  void setNeedsUpdate();
  void solve();
  [[nodiscard]] Item* find(const NSLayoutItem* item) const;
  Item& itemFor(NSLayoutItem& item);
  Item& makeItem(NSLayoutItem& item, Item* container);
  void link(NSLayoutItem& item, Item* known);
  void markStale(Item& item);
  void markNeedsFrame(Item& item);
  void refreshItems();
  void refresh(Item& item);
  void settleRestlessItems();
  void setOwnConstraints(Item& item);
  void askForOwnConstraints(NSLayoutItem& item);
  void addFrame(NSView& view);
  void addIntrinsicSize(NSView& view);

  void installWaiting();
  void install(NSLayoutConstraint& constraint);
  void takeOut(NSLayoutConstraint& constraint);
  void countConstraint(NSLayoutConstraint& constraint, int by);
  [[nodiscard]] bool readExpression(NSLayoutConstraint& constraint);
  [[nodiscard]] Metrics metricsOf(NSLayoutItem* item, NSLayoutAttribute attribute);
  void addValue(Item& item, NSLayoutAttribute attribute, const Metrics& metrics, const Item& space,
                bool isRightToLeft, double factor);
  void reportLeftOut();

  void noteChangedItems();
  [[nodiscard]] std::vector<Placement> placements();
  [[nodiscard]] NSRect frameOf(const Item& item) const;
  void place(const std::vector<Placement>& placements);

  NSView& root_;
  const Purpose purpose_;
  LayoutSolver solver_;
  std::deque<Item> items_;
  std::vector<Item*> unusedItems_;
  std::unordered_map<const NSLayoutItem*, Item*> fittingItems_;  // those of a tree are found by their parts
  std::vector<Item*> itemsByVariable_;
  std::vector<NSLayoutConstraint*> constraintsById_;
  std::vector<NSLayoutConstraint*> waiting_;  // to be installed; none where one has left
  std::vector<LayoutConstraintId> constantsChanged_;
  std::vector<const NSLayoutConstraint*> leftOut_;
  std::vector<Item*> stale_;
  std::vector<Item*> needFrames_;
  std::vector<Own> asked_;                   // for by the last item that was asked
  LayoutExpression expression_;              // of the constraint at hand
  NSView* placed_ = nullptr;                 // while its frame is set from here
  const NSLayoutItem* askedItem_ = nullptr;  // while it is asked what it wants
  bool needsUpdate_ = false;
};

}  // namespace bkuk
