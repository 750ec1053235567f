#pragma once

#include <vector>

#include "bench/peer/common/Scene.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/NSView.h"

namespace bkuk::bench {

/// Puts views into the cells of a grid that fills its container: columns and rows are layout guides of one
/// size, and each view fills its column and is centred in its row.
class CellLayout {
 public:
  CellLayout(NSView& container, const peer::CellGrid& cells);

  void add(const Ref<NSView>& view, int index);
  /// After the last view.
  void activate();

 private:
  void addColumns();
  void addRows();
  Ref<NSLayoutGuide> addGuide();
  void use(Ref<NSLayoutConstraint> constraint) { constraints_.push_back(std::move(constraint)); }

  NSView& container_;
  const peer::CellGrid cells_;
  std::vector<Ref<NSLayoutGuide>> columns_;
  std::vector<Ref<NSLayoutGuide>> rows_;
  std::vector<Ref<NSLayoutConstraint>> constraints_;
};

}  // namespace bkuk::bench
