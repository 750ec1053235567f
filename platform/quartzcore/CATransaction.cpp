#include "platform/quartzcore/CATransaction.h"

#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "platform/quartzcore/LayerAnimator.h"
#include "platform/quartzcore/RendererList.h"
#include "platform/quartzcore/TransactionLevels.h"

namespace bkuk {

namespace {

using Level = TransactionLevels::Level;

constexpr CGFloat defaultDuration = 0.25;

TransactionLevels& levels() { return TransactionLevels::shared(); }

}  // namespace

void CATransaction::begin() { levels().begin(); }

void CATransaction::commit() {
  if (levels().isOnlyImplicit()) return flush();
  if (!levels().end()) fatal("commit without begin", "CATransaction");
  CompletionGroup::callDueBlocks();
}

void CATransaction::flush() {
  levels().endImplicit();
  if (!levels().isEmpty()) return;
  RendererList::shared().commit();
  // What layers change while they are displayed opens one again, which must not reach into the next turn.
  levels().endImplicit();
  LayerAnimator::shared().dropUnstarted();
  CompletionGroup::callDueBlocks();
}

bool CATransaction::needsFlush() {
  return !levels().isEmpty() || RendererList::shared().needsCommit() || CompletionGroup::hasDueBlocks() ||
         LayerAnimator::shared().hasUnstarted();
}

CGFloat CATransaction::animationDuration() {
  return levels().find(&Level::duration).value_or(defaultDuration);
}

void CATransaction::setAnimationDuration(CGFloat seconds) { levels().innermost().duration = seconds; }

Ref<CAMediaTimingFunction> CATransaction::animationTimingFunction() {
  return levels().find(&Level::timingFunction).value_or(nullptr);
}

void CATransaction::setAnimationTimingFunction(Ref<CAMediaTimingFunction> function) {
  levels().innermost().timingFunction = std::move(function);
}

bool CATransaction::disableActions() { return levels().actionsAreDisabled(); }

void CATransaction::setDisableActions(bool disable) { levels().innermost().disableActions = disable; }

std::function<void()> CATransaction::completionBlock() {
  const auto group = levels().completion();
  return group ? group->block() : nullptr;
}

void CATransaction::setCompletionBlock(std::function<void()> block) {
  auto& level = levels().innermost();
  level.completion = nullptr;
  level.completion = std::make_shared<CompletionGroup>(std::move(block), levels().completion());
}

}  // namespace bkuk
