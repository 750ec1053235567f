#include "platform/appkit/NSLayoutConstraint.h"

#include <utility>

#include "platform/appkit/NSView.h"
#include "platform/appkit/constraints/VisualFormat.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSLayoutConstraint";
constexpr CGFloat distanceBetweenViews = 8;
constexpr CGFloat distanceFromSuperview = 20;

using Attribute = NSLayoutAttribute;
using Constraints = std::vector<Ref<NSLayoutConstraint>>;

/// Makes constraints of a format that was taken apart.
class Maker {
 public:
  Maker(const VisualFormat& format, NSLayoutFormatOptions options,
        const std::map<std::string, CGFloat>& metrics, const std::map<std::string, NSLayoutItem*>& views)
      : format_(format), options_(options), metrics_(metrics), views_(views) {
    for (const auto& element : format.elements) {
      items_.push_back(element.isSuperview() ? nullptr : viewNamed(element.name));
    }
    const auto* first = items_.front() ? items_.front() : items_[1];
    superview_ = first->layoutContainer();
    for (auto*& item : items_) {
      if (!item && !superview_) fatal("The views of a format have no superview", unit);
      if (!item) item = superview_.get();
    }
  }

  Constraints make() {
    for (std::size_t i = 0; i < format_.elements.size(); ++i) addSizes(i);
    for (std::size_t i = 0; i < format_.gaps.size(); ++i) addGap(i);
    addAlignments();
    return std::move(made_);
  }

 private:
  [[nodiscard]] bool isHorizontal() const {
    return format_.orientation == NSLayoutConstraintOrientation::horizontal;
  }

  void addSizes(std::size_t index) {
    const Attribute attribute = isHorizontal() ? Attribute::width : Attribute::height;
    for (const auto& predicate : format_.elements[index].size) {
      const auto view = views_.find(predicate.object.name);
      if (view != views_.end() && view->second) {
        add(items_[index], attribute, predicate, view->second, attribute, 0);
      } else {
        add(items_[index], attribute, predicate, nullptr, Attribute::none, numberOf(predicate.object));
      }
    }
  }

  // From the end of one to the start of the next; the superview's edges are the same from inside.
  void addGap(std::size_t index) {
    const auto& gap = format_.gaps[index];
    const bool touchesSuperview =
        format_.elements[index].isSuperview() || format_.elements[index + 1].isSuperview();
    const CGFloat standard = touchesSuperview ? distanceFromSuperview : distanceBetweenViews;
    if (gap.distance.empty()) return addDistance(index, {}, gap.isStandard ? standard : 0);
    for (const auto& predicate : gap.distance) addDistance(index, predicate, numberOf(predicate.object));
  }

  void addDistance(std::size_t index, const VisualFormat::Predicate& predicate, CGFloat distance) {
    auto start = isHorizontal() ? Attribute::leading : Attribute::top;
    auto end = isHorizontal() ? Attribute::trailing : Attribute::bottom;
    const bool isLeftToRight = (options_ & NSLayoutFormatDirectionLeftToRight) != 0;
    const bool isRightToLeft = (options_ & NSLayoutFormatDirectionRightToLeft) != 0;
    if (isHorizontal() && (isLeftToRight || isRightToLeft)) {
      start = isLeftToRight ? Attribute::left : Attribute::right;
      end = isLeftToRight ? Attribute::right : Attribute::left;
    }
    auto* before = items_[index];
    auto* after = items_[index + 1];
    Attribute beforeEdge = format_.elements[index].isSuperview() ? start : end;
    Attribute afterEdge = format_.elements[index + 1].isSuperview() ? end : start;
    // Distances count to the right, where the element that the format names first stands.
    if (isHorizontal() && isRightToLeft) {
      std::swap(before, after);
      std::swap(beforeEdge, afterEdge);
    }
    add(after, afterEdge, predicate, before, beforeEdge, distance);
  }

  void addAlignments() {
    NSLayoutItem* first = nullptr;
    for (std::size_t i = 0; i < items_.size(); ++i) {
      if (format_.elements[i].isSuperview()) continue;
      if (first) align(items_[i], first);
      if (!first) first = items_[i];
    }
  }

  // Each alignment's bit is that of its attribute's number.
  void align(NSLayoutItem* item, NSLayoutItem* first) {
    for (int i = 1; i <= static_cast<int>(Attribute::firstBaseline); ++i) {
      const auto attribute = static_cast<Attribute>(i);
      const bool isSize = attribute == Attribute::width || attribute == Attribute::height;
      if (!isSize && (options_ & (1U << i))) add(item, attribute, {}, first, attribute, 0);
    }
  }

  void add(NSLayoutItem* item, Attribute attribute, const VisualFormat::Predicate& predicate,
           NSLayoutItem* other, Attribute otherAttribute, CGFloat constant) {
    made_.push_back(bkuk::make<NSLayoutConstraint>(item, attribute, predicate.relation, other, otherAttribute,
                                                   1.0, constant));
    if (!predicate.priority) return;
    made_.back()->setPriority(static_cast<NSLayoutPriority>(numberOf(*predicate.priority)));
  }

  [[nodiscard]] NSLayoutItem* viewNamed(const std::string& name) const {
    const auto found = views_.find(name);
    if (found == views_.end() || !found->second) fatal("A format names an unknown view: " + name, unit);
    return found->second;
  }

  [[nodiscard]] CGFloat numberOf(const VisualFormat::Operand& operand) const {
    if (operand.name.empty()) return operand.number;
    const auto found = metrics_.find(operand.name);
    if (found == metrics_.end()) fatal("A format names an unknown metric: " + operand.name, unit);
    return found->second;
  }

  const VisualFormat& format_;
  const NSLayoutFormatOptions options_;
  const std::map<std::string, CGFloat>& metrics_;
  const std::map<std::string, NSLayoutItem*>& views_;
  Ref<NSView> superview_;
  std::vector<NSLayoutItem*> items_;  // one for each element
  Constraints made_;
};

}  // namespace

std::vector<Ref<NSLayoutConstraint>> NSLayoutConstraint::constraintsWithVisualFormat(
    std::string_view format, NSLayoutFormatOptions options, const std::map<std::string, CGFloat>& metrics,
    const std::map<std::string, NSLayoutItem*>& views) {
  const auto parsed = VisualFormat::parse(format);
  if (const auto* error = std::get_if<VisualFormat::Error>(&parsed)) {
    fatal("A visual format cannot be read at " + std::to_string(error->position) + ", " +
              std::string(error->message) + ": " + std::string(format),
          unit);
  }
  return Maker(std::get<VisualFormat>(parsed), options, metrics, views).make();
}

}  // namespace bkuk
