#include "platform/appkit/NSAnimationContext.h"

#include <utility>
#include <vector>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/Permanent.h"
#include "platform/quartzcore/CATransactionScope.h"

namespace bkuk {

/// The levels of one thread, base first; never empty.
class NSAnimationContext::Levels {
 public:
  [[nodiscard]] static Levels& ofThisThread() {
    thread_local Levels levels;
    return levels;
  }

  [[nodiscard]] const Ref<NSAnimationContext>& top() const { return levels_.back(); }
  void push(const Ref<NSAnimationContext>& level) { levels_.push_back(level); }
  void pop() { levels_.pop_back(); }

 private:
  // The base stays as long as the thread.
  std::vector<Ref<NSAnimationContext>> levels_{permanentObject<NSAnimationContext>()};
};

NSAnimationContext::NSAnimationContext(Values values) : values_(std::move(values)) {}

NSAnimationContext& NSAnimationContext::current() { return *Levels::ofThisThread().top(); }

void NSAnimationContext::runAnimationGroup(const Changes& changes, Handler completion) {
  required(changes, "NSAnimationContext: no block of changes; give runAnimationGroup one");
  const auto level = make<NSAnimationContext>(current().values_);
  level->completionHandler_ = std::move(completion);
  if (NSThread::isMainThread()) return level->runInTransaction(changes);
  level->run(changes);
  level->groupDidEnd();
}

// Two transaction levels: the outer one waits for the whole group, the inner one is the block's, which may
// give it a completion block of its own.
void NSAnimationContext::runInTransaction(const Changes& changes) {
  const CATransactionScope group;
  CATransaction::setCompletionBlock([level = Ref<NSAnimationContext>(this)] { level->groupDidEnd(); });
  const CATransactionScope block;
  applyToTransaction();
  run(changes);
}

void NSAnimationContext::run(const Changes& changes) {
  auto& levels = Levels::ofThisThread();
  levels.push(this);
  changes(*this);
  levels.pop();
}

void NSAnimationContext::groupDidEnd() const {
  if (completionHandler_) DispatchQueue::main().async(completionHandler_);
}

void NSAnimationContext::applyToTransaction() const {
  if (values_.duration) CATransaction::setAnimationDuration(*values_.duration);
  if (values_.timingFunction) CATransaction::setAnimationTimingFunction(*values_.timingFunction);
}

void NSAnimationContext::valuesDidChange() const {
  if (NSThread::isMainThread() && this == &current()) applyToTransaction();
}

Ref<CAMediaTimingFunction> NSAnimationContext::timingFunction() const {
  return values_.timingFunction.value_or(nullptr);
}

void NSAnimationContext::setDuration(CGFloat seconds) {
  values_.duration = seconds;
  valuesDidChange();
}

void NSAnimationContext::setTimingFunction(Ref<CAMediaTimingFunction> function) {
  values_.timingFunction = std::move(function);
  valuesDidChange();
}

}  // namespace bkuk
