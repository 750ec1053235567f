#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/appkit/NSLayoutAttribute.h"

namespace bkuk {

/// A row or column of items drawn in characters, taken apart. Names are not looked up yet.
struct VisualFormat {
  /// A number, or the name that stands for one, or for an item.
  struct Operand {
    std::string name;
    double number = 0;
  };
  struct Predicate {
    NSLayoutRelation relation = NSLayoutRelation::equal;
    Operand object;
    std::optional<Operand> priority;
  };
  /// An item with the conditions on its size; without a name, the superview.
  struct Element {
    std::string name;
    std::vector<Predicate> size;
    [[nodiscard]] bool isSuperview() const { return name.empty(); }
  };
  /// The distance between two elements: the usual one, or what is said, or 0 without either.
  struct Gap {
    bool isStandard = false;
    std::vector<Predicate> distance;
  };
  struct Error {
    std::string_view message;
    std::size_t position = 0;  ///< in bytes
  };

  NSLayoutConstraintOrientation orientation = NSLayoutConstraintOrientation::horizontal;
  std::vector<Element> elements;
  std::vector<Gap> gaps;  ///< one less than there are elements

  /// At least one view, and the superview at the ends only.
  [[nodiscard]] static std::variant<VisualFormat, Error> parse(std::string_view text);
};

}  // namespace bkuk
