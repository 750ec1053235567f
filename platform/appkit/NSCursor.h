#pragma once

#include "host/Window.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// The shape of the pointer. One object per shape.
class NSCursor : public NSObject {
 public:
  explicit NSCursor(host::CursorShape shape) : shape_(shape) {}

  [[nodiscard]] static const Ref<NSCursor>& arrow();
  [[nodiscard]] static const Ref<NSCursor>& pointingHand();
  [[nodiscard]] static const Ref<NSCursor>& IBeam();

  /// The cursor that was set last, the arrow at first.
  [[nodiscard]] static const Ref<NSCursor>& current();

  /// Shows this shape in all windows of the application at once.
  void set();

  [[nodiscard]] host::CursorShape shape() const { return shape_; }

 private:
  host::CursorShape shape_;
};

}  // namespace bkuk
