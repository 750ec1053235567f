#pragma once

#include <initializer_list>
#include <vector>

#include "platform/foundation/Selector.h"

namespace bkuk {

class NSObject;

/// The operations that a class performs by name: its own and, behind them, its base's.
///
///     const SelectorTable& Dial::selectors() const {
///       static const auto& table =
///           SelectorTable::make(NSView::selectors(), {{"turn", memberAction<&Dial::turn>}});
///       return table;
///     }
class SelectorTable {
 public:
  using Action = void (*)(NSObject& self, NSObject* sender);
  struct Entry {
    Selector selector;
    Action action;
  };

  /// A table that lives until the process ends. `base` must live as long.
  [[nodiscard]] static const SelectorTable& make(const SelectorTable& base,
                                                 std::initializer_list<Entry> entries);
  [[nodiscard]] static const SelectorTable& empty();

  /// None when neither the class nor one of its bases has an operation of that name.
  [[nodiscard]] Action find(const Selector& selector) const;

 private:
  SelectorTable(const SelectorTable* base, std::initializer_list<Entry> entries)
      : base_(base), entries_(entries) {}

  const SelectorTable* base_;
  std::vector<Entry> entries_;
};

namespace detail {

// A sender of another class than the operation expects is a programming error of who sent it.
void requireSender(bool fits);

template <typename S>
S* senderAs(NSObject* sender) {
  auto* cast = dynamic_cast<S*>(sender);
  requireSender(cast != nullptr || sender == nullptr);
  return cast;
}

template <typename C, typename S>
void callMember(void (C::*member)(S*), NSObject& self, NSObject* sender) {
  (static_cast<C&>(self).*member)(senderAs<S>(sender));
}
template <typename C>
void callMember(void (C::*member)(), NSObject& self, NSObject*) {
  (static_cast<C&>(self).*member)();
}

}  // namespace detail

/// A member function, without arguments or with a pointer to its sender, as a table's action.
template <auto Member>
void memberAction(NSObject& self, NSObject* sender) {
  detail::callMember(Member, self, sender);
}

}  // namespace bkuk
