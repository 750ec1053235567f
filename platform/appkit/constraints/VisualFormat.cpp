#include "platform/appkit/constraints/VisualFormat.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace bkuk {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isNameStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

/// Reads from left to right. After the first error everything else fails.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::variant<VisualFormat, VisualFormat::Error> read() {
    VisualFormat format;
    if (take("V:")) {
      format.orientation = NSLayoutConstraintOrientation::vertical;
    } else {
      take("H:");
    }
    readElements(format);
    if (!error_ && position_ < text_.size()) fail("the drawing has ended here");
    const auto isView = [](const auto& element) { return !element.isSuperview(); };
    if (!error_ && std::ranges::none_of(format.elements, isView)) fail("there is no view");
    if (error_) return *error_;
    return format;
  }

 private:
  using Predicate = VisualFormat::Predicate;

  void readElements(VisualFormat& format) {
    format.elements.push_back(readElement());
    while (!error_ && position_ < text_.size()) {
      if (format.elements.size() > 1 && format.elements.back().isSuperview()) return;
      format.gaps.push_back(readGap());
      format.elements.push_back(readElement());
    }
  }

  VisualFormat::Element readElement() {
    VisualFormat::Element element;
    if (take("|")) return element;
    if (!take("[")) return fail("a view or | is expected"), element;
    element.name = readName();
    if (take("(")) element.size = readPredicates();
    expect("]", "a ] is expected");
    return element;
  }

  VisualFormat::Gap readGap() {
    VisualFormat::Gap gap;
    if (!take("-")) return gap;
    if (isAt('[') || isAt('|')) {
      gap.isStandard = true;
      return gap;
    }
    if (take("(")) {
      gap.distance = readPredicates();
    } else {
      gap.distance.push_back({.object = readOperand()});
    }
    expect("-", "a - is expected");
    return gap;
  }

  // Behind the opening parenthesis.
  std::vector<Predicate> readPredicates() {
    std::vector<Predicate> predicates;
    do {
      predicates.push_back(readPredicate());
    } while (take(","));
    expect(")", "a ) is expected");
    return predicates;
  }

  Predicate readPredicate() {
    Predicate predicate;
    if (take("<=")) {
      predicate.relation = NSLayoutRelation::lessThanOrEqual;
    } else if (take(">=")) {
      predicate.relation = NSLayoutRelation::greaterThanOrEqual;
    } else {
      take("==");
    }
    predicate.object = readOperand();
    if (take("@")) predicate.priority = readOperand();
    return predicate;
  }

  VisualFormat::Operand readOperand() {
    if (position_ < text_.size() && isNameStart(text_[position_])) return {.name = readName()};
    return {.number = readNumber()};
  }

  std::string readName() {
    const std::size_t start = position_;
    if (start == text_.size() || !isNameStart(text_[start])) return fail("a name is expected"), "";
    while (position_ < text_.size() && (isNameStart(text_[position_]) || isDigit(text_[position_]))) {
      ++position_;
    }
    return std::string(text_.substr(start, position_ - start));
  }

  double readNumber() {
    double number = 0;
    const char* const start = text_.data() + position_;
    const char* const end = text_.data() + text_.size();
    const char* const firstDigit = start != end && *start == '-' ? start + 1 : start;
    const bool isNumber = firstDigit != end && (isDigit(*firstDigit) || *firstDigit == '.');
    const auto read = std::from_chars(start, end, number, std::chars_format::fixed);
    if (!isNumber || read.ec != std::errc()) return fail("a number or a name is expected"), 0;
    position_ += static_cast<std::size_t>(read.ptr - start);
    return number;
  }

  [[nodiscard]] bool isAt(char c) const { return position_ < text_.size() && text_[position_] == c; }

  bool take(std::string_view word) {
    if (error_ || !text_.substr(position_).starts_with(word)) return false;
    position_ += word.size();
    return true;
  }

  void expect(std::string_view word, std::string_view message) {
    if (!take(word)) fail(message);
  }

  void fail(std::string_view message) {
    if (!error_) error_ = {message, position_};
  }

  std::string_view text_;
  std::size_t position_ = 0;
  std::optional<VisualFormat::Error> error_;
};

}  // namespace

std::variant<VisualFormat, VisualFormat::Error> VisualFormat::parse(std::string_view text) {
  return Reader(text).read();
}

}  // namespace bkuk
