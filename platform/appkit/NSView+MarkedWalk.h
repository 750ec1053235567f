#pragma once

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "platform/appkit/NSView+Parts.h"

namespace bkuk {

/// The way through the marked views of a tree: superviews first, subviews from the back to the front. Views
/// that are marked on the way are taken too unless the way has passed them; those wait for the next. Views
/// may come and go meanwhile.
template <typename Marked>
class NSView::MarkedWalk {
 public:
  explicit MarkedWalk(Marked Subviews::*marked) : marked_(marked) {}

  /// Goes on with the marked subviews of the view.
  void enter(NSView& view) { levels_.push_back({.around = &view}); }
  /// Goes on with all its subviews, as they are now.
  void enterWholly(NSView& view) {
    levels_.push_back({.around = &view, .isWhole = true, .all = view.subviews()});
  }
  /// Whether the view that came last was entered as one of all.
  [[nodiscard]] bool isWhole() const { return !levels_.empty() && levels_.back().isWhole; }

  /// None at the end.
  [[nodiscard]] Ref<NSView> next() {
    while (!levels_.empty()) {
      auto& level = levels_.back();
      if (auto view = level.isWhole ? nextOfAll(level) : nextMarked(level)) return view;
      levels_.pop_back();
    }
    return nullptr;
  }

 private:
  struct Waiting {
    std::size_t place;
    Ref<NSView> view;
  };
  struct Level {
    Ref<NSView> around;
    bool isWhole = false;
    std::vector<Ref<NSView>> all{};
    std::size_t next = 0;            // what stands before has been passed
    std::vector<Waiting> waiting{};  // a heap, the rearmost on top
    std::size_t passedMarks = 0;
  };

  [[nodiscard]] static Ref<NSView> nextOfAll(Level& level) {
    return level.next < level.all.size() ? std::move(level.all[level.next++]) : nullptr;
  }

  [[nodiscard]] Ref<NSView> nextMarked(Level& level) {
    takeMarks(level);
    if (level.waiting.empty()) return nullptr;
    std::ranges::pop_heap(level.waiting, std::greater<>(), &Waiting::place);
    auto first = std::move(level.waiting.back());
    level.waiting.pop_back();
    level.next = first.place + 1;
    return std::move(first.view);
  }

  void takeMarks(Level& level) {
    auto* subviews = level.around->subviews_.get();
    if (!subviews) return;
    auto& marked = (*subviews).*marked_;
    while (level.passedMarks < marked.all().size()) {
      NSView& view = *marked.all()[level.passedMarks];
      const auto place = subviews->list.indexOf(view);
      if (place < level.next) {
        ++level.passedMarks;
        continue;
      }
      marked.remove(view);
      level.waiting.push_back({place, &view});
      std::ranges::push_heap(level.waiting, std::greater<>(), &Waiting::place);
    }
  }

  Marked Subviews::*marked_;
  std::vector<Level> levels_;
};

/// Marks the view for its superviews, as far up as they do not know of marks below yet.
template <typename Marked>
void NSView::markUpwards(Marked Subviews::*marked, bool NSView::*flag) {
  this->*flag = true;
  NSView* each = this;
  while (NSView* parent = each->superview_.peek()) {
    ((*parent->subviews_).*marked).add(*each);
    if (std::exchange(parent->*flag, true)) return;
    each = parent;
  }
}

/// Takes that mark back. False when there was none.
template <typename Marked>
bool NSView::takeMark(Marked Subviews::*marked, bool NSView::*flag) {
  if (const auto* parent = superview_.peek()) ((*parent->subviews_).*marked).remove(*this);
  return std::exchange(this->*flag, false);
}

}  // namespace bkuk
