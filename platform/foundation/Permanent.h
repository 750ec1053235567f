#pragma once

#include <type_traits>
#include <utility>

#include "platform/foundation/LiveObjects.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Makes what is never destroyed: a shared object, a constant, with all that it consists of.
///
/// Answers what `make` returned by reference, and as it is where that is a pointer to something new.
///
///     static const auto& style = permanent([] { return make<NSParagraphStyle>(); });
template <typename Make>
[[nodiscard]] decltype(auto) permanent(Make make) {
  const LiveObjects::Pause pause;
  if constexpr (std::is_pointer_v<decltype(make())>) {
    return make();
  } else {
    auto* const made = new auto(make());
    // What is referred to by its insides alone would be taken for a leak.
    [[maybe_unused]] static const auto* const kept = made;
    return *made;
  }
}

/// As `make`, for what a shared object of that kind, or a thread, makes of itself and keeps.
template <typename T, typename... Args>
[[nodiscard]] Ref<T> permanentObject(Args&&... args) {
  const LiveObjects::Pause pause;
  return make<T>(std::forward<Args>(args)...);
}

}  // namespace bkuk
