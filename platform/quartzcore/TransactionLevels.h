#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/foundation/CGGeometry.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "platform/quartzcore/CompletionGroup.h"

namespace bkuk {

/// The levels of transactions that are open, outermost first, as layers and `CATransaction` see them.
class TransactionLevels {
 public:
  struct Level {
    std::optional<CGFloat> duration;
    std::optional<Ref<CAMediaTimingFunction>> timingFunction;
    std::optional<bool> disableActions;
    std::shared_ptr<CompletionGroup> completion;
    bool isImplicit = false;
  };

  [[nodiscard]] static TransactionLevels& shared();

  /// The innermost level; opens the implicit one when there is none.
  Level& innermost();
  void begin() { levels_.emplace_back(); }
  /// Closes the innermost level. False when none is open.
  bool end();
  /// Closes the implicit level, unless explicit ones are open inside it.
  void endImplicit();
  [[nodiscard]] bool isOnlyImplicit() const { return levels_.size() == 1 && levels_.front().isImplicit; }
  [[nodiscard]] bool isEmpty() const { return levels_.empty(); }

  /// What the innermost level that has the key says.
  template <typename T>
  [[nodiscard]] std::optional<T> find(std::optional<T> Level::*key) const {
    for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
      if ((*level).*key) return (*level).*key;
    }
    return std::nullopt;
  }

  [[nodiscard]] bool actionsAreDisabled() const { return find(&Level::disableActions).value_or(false); }
  /// What an animation that is added now keeps waiting; none when nobody waits.
  [[nodiscard]] std::shared_ptr<CompletionGroup> completion() const;

 private:
  std::vector<Level> levels_;
};

}  // namespace bkuk
