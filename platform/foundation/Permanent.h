#pragma once

#include <utility>

#include "platform/foundation/LiveObjects.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Keeps what `make` answers for good: a shared object, a constant, with all that it consists of. Keep the
/// reference itself, not one to its insides, so that a leak checker finds the way to it.
///
///     static const auto& style = permanent([] { return make<NSParagraphStyle>(); });
template <typename Make>
[[nodiscard]] auto& permanent(Make make) {
  const LiveObjects::Pause pause;
  return *new auto(make());
}

/// As `make`, for what a shared object of that kind, or a thread, makes of itself and keeps.
template <typename T, typename... Args>
[[nodiscard]] Ref<T> permanentObject(Args&&... args) {
  const LiveObjects::Pause pause;
  return make<T>(std::forward<Args>(args)...);
}

}  // namespace bkuk
