#include "platform/appkit/window/ViewOrder.h"

#include <algorithm>
#include <cmath>
#include <list>
#include <numeric>
#include <utility>

#include "platform/appkit/NSControl.h"
#include "platform/appkit/NSView+Parts.h"

namespace bkuk {

namespace {

// A view that may be a stop of the keyboard, and those inside it.
struct Stop {
  Ref<NSView> view;
  NSRect rect;  // base coordinates
  std::vector<std::size_t> inside;
};

bool sharesRow(const NSRect& a, const NSRect& b) {
  const CGFloat overlap = std::min(a.maxY(), b.maxY()) - std::max(a.minY(), b.minY());
  return overlap > std::min(a.height(), b.height()) / 2;
}

// What lies nowhere is put somewhere, for numbers alone can be sorted.
NSRect numbered(const NSRect& rect) {
  const auto number = [](CGFloat value) { return std::isnan(value) ? 0 : value; };
  return {number(rect.minX()), number(rect.minY()), number(rect.width()), number(rect.height())};
}

// Takes the uppermost row out of `rest`, which is sorted by upper edges. A high rectangle beside two rows of
// others belongs to the upper one: all of a row share it.
std::vector<std::size_t> takeRow(std::span<const NSRect> rects, std::list<std::size_t>& rest) {
  std::vector<std::size_t> row;
  const CGFloat bottom = rects[rest.front()].minY();
  CGFloat highestBottom = bottom;  // of the row
  for (auto next = rest.begin(); next != rest.end();) {
    const NSRect& rect = rects[*next];
    if (!row.empty() && rect.maxY() <= bottom) break;  // and so are all that follow
    // What shares more than half of its height with the shortest reach down shares it with all.
    const bool surelyJoins = rect.maxY() - std::max(rect.minY(), highestBottom) > rect.height() / 2;
    const bool joins =
        surelyJoins || std::ranges::all_of(row, [&](auto member) { return sharesRow(rects[member], rect); });
    if (joins) {
      row.push_back(*next);
      highestBottom = std::max(highestBottom, rect.minY());
    }
    next = joins ? rest.erase(next) : std::next(next);
  }
  return row;
}

class ReadingOrder {
 public:
  explicit ReadingOrder(NSView& root) {
    collect(root);
    emit();
  }

  [[nodiscard]] std::vector<Ref<NSView>> take() { return std::move(result_); }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  void collect(NSView& root) {
    isRightToLeft_ = root.userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
    std::vector<std::pair<Ref<NSView>, std::size_t>> waiting{{&root, none}};
    while (!waiting.empty()) {
      auto [view, around] = std::move(waiting.back());
      waiting.pop_back();
      if (view.get() != &root && (view->acceptsFirstResponder() || as<NSControl>(view))) {
        stops_.push_back({view, view->convertRectTo(view->bounds(), nullptr), {}});
        (around == none ? outermost_ : stops_[around].inside).push_back(stops_.size() - 1);
        around = stops_.size() - 1;
      }
      for (const auto& subview : view->subviews()) waiting.emplace_back(subview, around);
    }
  }

  void emit() {
    std::vector<std::size_t> waiting;
    push(outermost_, waiting);
    while (!waiting.empty()) {
      const auto stop = waiting.back();
      waiting.pop_back();
      result_.push_back(stops_[stop].view);
      push(stops_[stop].inside, waiting);
    }
  }

  // The last goes in first, for the waiting are taken from the end.
  void push(std::vector<std::size_t>& siblings, std::vector<std::size_t>& waiting) {
    sort(siblings);
    waiting.insert(waiting.end(), siblings.rbegin(), siblings.rend());
  }

  void sort(std::vector<std::size_t>& siblings) const {
    std::vector<NSRect> rects;
    rects.reserve(siblings.size());
    for (const auto stop : siblings) rects.push_back(stops_[stop].rect);
    std::vector<std::size_t> sorted;
    sorted.reserve(siblings.size());
    for (const auto index : NSReadingOrder(rects, isRightToLeft_)) sorted.push_back(siblings[index]);
    siblings = std::move(sorted);
  }

  std::vector<Stop> stops_;
  std::vector<std::size_t> outermost_;
  std::vector<Ref<NSView>> result_;
  bool isRightToLeft_ = false;
};

}  // namespace

bool viewIsBehind(const NSView& a, const NSView& b) {
  if (&a == &b) return false;
  const auto depthOf = [](const NSView* view) {
    std::size_t depth = 0;
    while ((view = view->superview_.peek())) ++depth;
    return depth;
  };
  const NSView* first = &a;
  const NSView* second = &b;
  auto firstDepth = depthOf(first);
  auto secondDepth = depthOf(second);
  const bool aIsHigher = firstDepth < secondDepth;
  for (; firstDepth > secondDepth; --firstDepth) first = first->superview_.peek();
  for (; secondDepth > firstDepth; --secondDepth) second = second->superview_.peek();
  if (first == second) return aIsHigher;
  const NSView* parent = first->superview_.peek();
  for (; parent != second->superview_.peek(); parent = parent->superview_.peek()) {
    first = parent;
    second = second->superview_.peek();
  }
  return parent && parent->subviews_->list.indexOf(*first) < parent->subviews_->list.indexOf(*second);
}

std::vector<std::size_t> NSReadingOrder(std::span<const NSRect> given, bool isRightToLeft) {
  std::vector<NSRect> rects(given.size());
  std::ranges::transform(given, rects.begin(), numbered);
  std::vector<std::size_t> order(rects.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](auto a, auto b) { return rects[a].maxY() > rects[b].maxY(); });
  std::list<std::size_t> rest(order.begin(), order.end());
  order.clear();
  while (!rest.empty()) {
    auto row = takeRow(rects, rest);
    std::ranges::stable_sort(row, [&](auto a, auto b) {
      return isRightToLeft ? rects[a].maxX() > rects[b].maxX() : rects[a].minX() < rects[b].minX();
    });
    order.insert(order.end(), row.begin(), row.end());
  }
  return order;
}

std::vector<Ref<NSView>> viewsInReadingOrder(NSView& root) { return ReadingOrder(root).take(); }

}  // namespace bkuk
