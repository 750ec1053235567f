#pragma once

#include <compare>
#include <cstddef>
#include <string_view>
#include <utility>

namespace bkuk {

/// A text of which the process keeps one copy for as long as somebody holds it: equal texts have the same
/// address, and comparing them costs a pointer. To be made, copied and let go on any thread.
class CountedText {
 public:
  /// None.
  constexpr CountedText() noexcept = default;
  explicit CountedText(std::string_view text);
  CountedText(const CountedText& other) noexcept;
  CountedText(CountedText&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
  ~CountedText() {
    if (entry_) release();
  }
  CountedText& operator=(CountedText other) noexcept {
    std::swap(entry_, other.entry_);
    return *this;
  }

  /// Valid for as long as this, or an equal one, lives.
  [[nodiscard]] std::string_view view() const;
  explicit operator bool() const { return entry_ != nullptr; }
  bool operator==(const CountedText&) const = default;
  /// An order that holds for as long as both live, not that of the characters.
  auto operator<=>(const CountedText& other) const { return std::compare_three_way()(entry_, other.entry_); }

  /// How many texts there are, for tests.
  [[nodiscard]] static std::size_t livingCount();

 private:
  friend struct std::hash<CountedText>;
  struct Entry;
  void release() noexcept;

  const Entry* entry_ = nullptr;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::CountedText> {
  std::size_t operator()(const bkuk::CountedText& text) const noexcept {
    return std::hash<const void*>{}(text.entry_);
  }
};
