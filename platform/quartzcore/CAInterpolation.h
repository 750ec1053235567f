#pragma once

#include "platform/quartzcore/CAValue.h"

namespace bkuk {

/// Component by component between two values of the same kind; `from` until the end where they are not.
/// An absent colour counts as the other one with alpha 0.
[[nodiscard]] CAValue interpolated(const CAValue& from, const CAValue& to, CGFloat progress);

/// `value` moved by `distance` times `factor`; unchanged when they are not of one kind.
[[nodiscard]] CAValue moved(const CAValue& value, const CAValue& distance, CGFloat factor);

}  // namespace bkuk
