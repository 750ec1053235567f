#include "platform/appkit/NSViewOrder.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSControl.h"

namespace bkuk {

namespace {

std::size_t depthOf(const NSView& view) {
  std::size_t depth = 0;
  for (auto each = view.superview(); each; each = each->superview()) ++depth;
  return depth;
}

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

  void sort(std::vector<std::size_t>& siblings) {
    const auto isHigher = [this](auto a, auto b) { return rect(a).maxY() > rect(b).maxY(); };
    std::ranges::stable_sort(siblings, isHigher);
    std::vector<std::size_t> rest = std::exchange(siblings, {});
    while (!rest.empty()) {
      auto row = takeRow(rest);
      std::ranges::stable_sort(row, [this](auto a, auto b) {
        return isRightToLeft_ ? rect(a).maxX() > rect(b).maxX() : rect(a).minX() < rect(b).minX();
      });
      siblings.insert(siblings.end(), row.begin(), row.end());
    }
  }

  // A high view beside two rows of others belongs to the upper one: a row's views all share it.
  [[nodiscard]] std::vector<std::size_t> takeRow(std::vector<std::size_t>& stops) const {
    std::vector<std::size_t> row;
    std::vector<std::size_t> rest;
    for (const auto stop : stops) {
      const bool joins =
          std::ranges::all_of(row, [&](auto member) { return sharesRow(rect(member), rect(stop)); });
      (joins ? row : rest).push_back(stop);
    }
    stops = std::move(rest);
    return row;
  }

  [[nodiscard]] const NSRect& rect(std::size_t stop) const { return stops_[stop].rect; }

  std::vector<Stop> stops_;
  std::vector<std::size_t> outermost_;
  std::vector<Ref<NSView>> result_;
  bool isRightToLeft_ = false;
};

}  // namespace

bool NSViewIsBehind(const NSView& a, const NSView& b) {
  if (&a == &b) return false;
  Ref<const NSView> first(&a);
  Ref<const NSView> second(&b);
  auto firstDepth = depthOf(a);
  auto secondDepth = depthOf(b);
  const bool aIsHigher = firstDepth < secondDepth;
  for (; firstDepth > secondDepth; --firstDepth) first = first->superview();
  for (; secondDepth > firstDepth; --secondDepth) second = second->superview();
  if (first == second) return aIsHigher;
  while (first->superview() != second->superview()) {
    first = first->superview();
    second = second->superview();
  }
  const auto parent = first->superview();
  if (!parent) return false;
  const auto& siblings = parent->subviews();
  return std::ranges::find(siblings, first.get(), &Ref<NSView>::get) <
         std::ranges::find(siblings, second.get(), &Ref<NSView>::get);
}

std::vector<Ref<NSView>> NSViewsInReadingOrder(NSView& root) { return ReadingOrder(root).take(); }

}  // namespace bkuk
