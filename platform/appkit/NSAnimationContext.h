#pragma once

#include <functional>
#include <optional>

#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"

namespace bkuk {

/// How changes of views and layers animate that are made in a block.
///
/// Every thread has a stack of contexts. The base level is always there; `runAnimationGroup` pushes a level
/// for the length of its block, which starts as a copy of the level below, but without its completion
/// handler. On the main thread each level goes with a transaction, which gets the duration and the curve that
/// were set here or below; where none was set, those of the transaction around it hold.
class NSAnimationContext final : public NSObject {
 public:
  using Changes = std::function<void(NSAnimationContext& context)>;
  using Handler = std::function<void()>;

  /// The innermost level of the calling thread.
  [[nodiscard]] static NSAnimationContext& current();

  /// Calls `changes` in a level of its own. `completion` becomes the level's completion handler.
  static void runAnimationGroup(const Changes& changes, Handler completion = {});

  /// Seconds; 0.25 in the base level.
  [[nodiscard]] CGFloat duration() const { return values_.duration.value_or(0.25); }
  void setDuration(CGFloat seconds);
  /// None in the base level, which stands for the default curve.
  [[nodiscard]] Ref<CAMediaTimingFunction> timingFunction() const;
  void setTimingFunction(Ref<CAMediaTimingFunction> function);
  /// Whether changes of a view's own layer animate; false in the base level. Layers added by hand animate
  /// either way.
  [[nodiscard]] bool allowsImplicitAnimation() const { return values_.allowsImplicitAnimation; }
  void setAllowsImplicitAnimation(bool allows) { values_.allowsImplicitAnimation = allows; }

  /// Called on the main thread, in a later turn of the run loop, once all animations of the group have ended;
  /// it may be set until then. Never called for the base level.
  [[nodiscard]] const Handler& completionHandler() const { return completionHandler_; }
  void setCompletionHandler(Handler handler) { completionHandler_ = std::move(handler); }

  [[nodiscard]] std::string className() const override { return "NSAnimationContext"; }

 private:
  struct Values {
    std::optional<CGFloat> duration;
    std::optional<Ref<CAMediaTimingFunction>> timingFunction;
    bool allowsImplicitAnimation = false;
  };
  class Levels;

  NSAnimationContext() = default;
  explicit NSAnimationContext(Values values);
  template <typename T, typename... Args>
  friend Ref<T> make(Args&&... args);

  void run(const Changes& changes);
  void runInTransaction(const Changes& changes);
  void groupDidEnd() const;
  void applyToTransaction() const;
  void valuesDidChange() const;

  Values values_;
  Handler completionHandler_;
};

}  // namespace bkuk
