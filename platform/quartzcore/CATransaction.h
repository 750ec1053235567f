#pragma once

#include <functional>

#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/Ref.h"

namespace bkuk {

class CAMediaTimingFunction;

/// Groups changes of layers and says how they animate. The first change of any layer in a turn of the run
/// loop opens an implicit transaction, which whoever drives the turn commits at its end with `flush`.
/// Explicit levels nest inside it, or stand alone when they are opened first.
///
/// Setting a key writes the innermost level; reading looks outwards until a level has the key. Setting one
/// outside any level opens the implicit transaction.
class CATransaction {
 public:
  CATransaction() = delete;

  static void begin();
  /// Closes the innermost level. Without a `begin` it commits the implicit transaction; without that
  /// either, it is a fatal error.
  static void commit();

  /// Commits the implicit transaction and serves every window's marked layers: layout, then display. While
  /// an explicit level is open, the changes wait for the next flush after its end.
  static void flush();
  /// Whether `flush` has anything to do. Cheap.
  [[nodiscard]] static bool needsFlush();

  /// Seconds; 0.25 unless set.
  [[nodiscard]] static CGFloat animationDuration();
  static void setAnimationDuration(CGFloat seconds);

  /// Empty stands for the default curve.
  [[nodiscard]] static Ref<CAMediaTimingFunction> animationTimingFunction();
  static void setAnimationTimingFunction(Ref<CAMediaTimingFunction> function);

  [[nodiscard]] static bool disableActions();
  static void setDisableActions(bool disable);

  [[nodiscard]] static std::function<void()> completionBlock();
  /// `block` is called on the main thread once all animations that are added after this call in the level,
  /// or in levels inside it, have ended; when there are none, at the level's commit.
  static void setCompletionBlock(std::function<void()> block);
};

}  // namespace bkuk
