#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "platform/appkit/NSLayoutAttribute.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/layout/LayoutSolver.h"

namespace bkuk {

class NSLayoutConstraint;
class NSLayoutItem;
class NSView;

/// Solves the constraints of one tree of views and sets the frames that follow. The root of a tree owns it,
/// from the first active constraint in the tree on.
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
  /// Lets go of all constraints and answers them, when the root comes into another tree.
  [[nodiscard]] std::vector<Ref<NSLayoutConstraint>> dissolve();

  [[nodiscard]] bool needsUpdate() const { return needsUpdate_; }
  /// Solves, and sets the frames that changed, superviews first. Client code is called and may do anything.
  void update();
  /// Solves and answers the size of the root, setting nothing.
  [[nodiscard]] CGSize solvedSize();

 private:
  /// A constraint that an item brings along: its frame or its intrinsic size.
  struct OwnConstraint {
    LayoutExpression expression;
    LayoutRelation relation;
    double priority;
    LayoutConstraintId id = 0;
  };
  struct Item {
    NSLayoutItem* item = nullptr;
    LayoutVariable x, y, width, height;
    std::vector<OwnConstraint> own;
    std::uint32_t depth = 0;
    std::uint32_t constraintCount = 0;
    bool isPlaced = false;  // by constraints, and not by its frame
    bool isStale = false;
    bool needsFrame = false;
  };
  enum class RecordState { waiting, installed, constantChanged };
  struct Record {
    LayoutConstraintId id = 0;
    RecordState state = RecordState::waiting;
    bool isLeftOut = false;
  };
  struct Metrics;
  struct Placement {
    Ref<NSView> view;
    NSRect frame;
    std::uint32_t depth;
  };

  void setNeedsUpdate();
  void solve();
  Item& itemFor(NSLayoutItem& item);
  Item& makeItem(NSLayoutItem& item, std::uint32_t depth);
  void markStale(Item& item);
  void markNeedsFrame(Item& item);
  void refreshItems();
  void refreshIfStale(NSLayoutItem* item);
  void refresh(NSLayoutItem& item);
  void settleRestlessItems();
  void setOwnConstraints(Item& item, std::vector<OwnConstraint> own);
  [[nodiscard]] std::vector<OwnConstraint> ownConstraints(NSLayoutItem& item);
  void addFrame(std::vector<OwnConstraint>& own, NSView& view);
  void addIntrinsicSize(std::vector<OwnConstraint>& own, NSView& view);

  void installWaiting();
  void install(NSLayoutConstraint& constraint);
  void countConstraint(NSLayoutConstraint& constraint, int by);
  [[nodiscard]] LayoutExpression expressionOf(NSLayoutConstraint& constraint);
  [[nodiscard]] LayoutExpression valueOf(NSLayoutItem& item, NSLayoutAttribute attribute,
                                         const Metrics& metrics, const NSView& space);
  [[nodiscard]] static Metrics metricsOf(NSLayoutItem& item);
  void reportLeftOut();

  void noteChangedItems();
  [[nodiscard]] std::vector<Placement> placements();
  [[nodiscard]] NSRect frameOf(const Item& item) const;
  void place(const std::vector<Placement>& placements);

  NSView& root_;
  const Purpose purpose_;
  LayoutSolver solver_;
  std::unordered_map<NSLayoutItem*, Item> items_;
  std::unordered_map<NSLayoutConstraint*, Record> records_;
  std::vector<NSLayoutConstraint*> waiting_;  // to be installed, or with a new constant
  std::vector<NSLayoutItem*> stale_;
  std::vector<Item*> needFrames_;
  std::vector<Item*> itemsByVariable_;
  NSView* placed_ = nullptr;             // while its frame is set from here
  const NSLayoutItem* asked_ = nullptr;  // while it is asked what it wants
  bool hasLeftOut_ = false;
  bool needsUpdate_ = false;
};

}  // namespace bkuk
