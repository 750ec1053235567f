#pragma once

#include "host/AccessibilityTree.h"

namespace bkuk::host {

/// One thing that happened to an element.
struct AccessibilityChange {
  enum class Kind {
    focus,      ///< the element has the keyboard now
    value,      ///< its value: a number, a text, a mark
    name,       ///< its name
    state,      ///< one of the `is` members, the focus excepted
    children,   ///< which children it has
    created,    ///< it came to be
    destroyed,  ///< it is about to go, or gone
  };
  Kind kind = Kind::value;
  AccessibilityId id = 0;
};

/// The way from the library to the desktop's assistive clients. Main thread.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// Where the host reads what it tells assistive clients. `tree` must outlive the host. What a client wants
  /// done is asked of it from `Loop::dispatchEvent` only.
  virtual void setTree(AccessibilityTree* tree) = 0;
  /// Whether changes are worth telling: false while no assistive client can listen. A cached answer, asked
  /// before each `announce`.
  [[nodiscard]] virtual bool hasClient() const = 0;
  /// Tells the assistive clients of a change. The host may read the tree meanwhile, and changes nothing.
  virtual void announce(const AccessibilityChange& change) = 0;
};

}  // namespace bkuk::host
