#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Accessibility.h"
#include "testing/VirtualHost.h"

namespace bkuk {

/// An assistive client of the virtual host, such as a screen reader: reads what the windows publish, acts on
/// it and writes down what it is told. Listens from when it is made until it goes, and must not outlive the
/// host.
class VirtualScreenReader final {
 public:
  using Id = host::AccessibilityId;
  using Kind = host::AccessibilityChange::Kind;
  using Role = host::AccessibilityRole;
  using Action = host::AccessibilityAction;

  explicit VirtualScreenReader(VirtualHost& host);
  ~VirtualScreenReader();
  VirtualScreenReader(const VirtualScreenReader&) = delete;
  VirtualScreenReader& operator=(const VirtualScreenReader&) = delete;

  // Reading. 0 and empty answers stand for what is not there.

  /// The window that was made in that place among those that live.
  [[nodiscard]] Id window(std::size_t index = 0) const;
  [[nodiscard]] std::vector<Id> children(Id id) const;
  [[nodiscard]] Id parent(Id id) const;
  [[nodiscard]] bool exists(Id id) const;
  [[nodiscard]] host::AccessibilityElement element(Id id) const;
  [[nodiscard]] std::string name(Id id) const { return element(id).name; }
  /// The first in the order of reading, of all windows.
  [[nodiscard]] Id find(Role role, std::string_view name) const;
  /// By the identifier for tests.
  [[nodiscard]] Id findIdentifier(std::string_view identifier) const;
  /// Which element of the window has, or would have, the keyboard.
  [[nodiscard]] Id focused(std::size_t window = 0) const;

  // Acting; answers whether it was done, once the library has dealt with it

  bool perform(Id id, Action action);
  bool press(Id id) { return perform(id, Action::press); }
  bool focus(Id id) { return perform(id, Action::focus); }
  bool setValue(Id id, double value);

  // What it was told

  /// Since it was made or made to forget; of very many the latest.
  [[nodiscard]] const std::vector<host::AccessibilityChange>& changes() const { return changes_; }
  /// How often it was told of such a change of that element.
  [[nodiscard]] std::size_t count(Kind kind, Id id) const;
  void forgetChanges() { changes_.clear(); }

 private:
  friend class VirtualAccessibility;

  static constexpr std::size_t mostChanges = 100'000;

  void note(const host::AccessibilityChange& change);
  [[nodiscard]] host::AccessibilityTree& tree() const;
  template <typename Fits>
  [[nodiscard]] Id findIf(Fits&& fits) const;

  VirtualHost& host_;
  std::vector<host::AccessibilityChange> changes_;
};

}  // namespace bkuk
