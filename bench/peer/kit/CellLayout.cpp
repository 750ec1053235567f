#include "bench/peer/kit/CellLayout.h"

#include "platform/appkit/NSLayoutAnchor.h"

namespace bkuk::bench {

CellLayout::CellLayout(NSView& container, const peer::CellGrid& cells)
    : container_(container), cells_(cells) {
  addColumns();
  addRows();
}

void CellLayout::addColumns() {
  for (int i = 0; i < cells_.columns; ++i) {
    const auto guide = addGuide();
    if (i == 0) {
      use(guide->leadingAnchor()->constraintEqualTo(container_.leadingAnchor(), cells_.margin));
    } else {
      use(guide->leadingAnchor()->constraintEqualTo(columns_.back()->trailingAnchor()));
      use(guide->widthAnchor()->constraintEqualTo(columns_.front()->widthAnchor(), 1, 0));
    }
    columns_.push_back(guide);
  }
  use(columns_.back()->trailingAnchor()->constraintEqualTo(container_.trailingAnchor(), -cells_.margin));
}

void CellLayout::addRows() {
  for (int i = 0; i < cells_.rows; ++i) {
    const auto guide = addGuide();
    if (i == 0) {
      use(guide->topAnchor()->constraintEqualTo(container_.topAnchor(), cells_.margin));
    } else {
      use(guide->topAnchor()->constraintEqualTo(rows_.back()->bottomAnchor()));
      use(guide->heightAnchor()->constraintEqualTo(rows_.front()->heightAnchor(), 1, 0));
    }
    rows_.push_back(guide);
  }
  use(rows_.back()->bottomAnchor()->constraintEqualTo(container_.bottomAnchor(), -cells_.margin));
}

void CellLayout::add(const Ref<NSView>& view, int index) {
  const auto& column = columns_[static_cast<std::size_t>(index % cells_.columns)];
  const auto& row = rows_[static_cast<std::size_t>(index / cells_.columns)];
  container_.addSubview(view);
  use(view->leadingAnchor()->constraintEqualTo(column->leadingAnchor()));
  use(view->trailingAnchor()->constraintEqualTo(column->trailingAnchor()));
  use(view->centerYAnchor()->constraintEqualTo(row->centerYAnchor()));
}

void CellLayout::activate() { NSLayoutConstraint::activateConstraints(constraints_); }

Ref<NSLayoutGuide> CellLayout::addGuide() {
  auto guide = make<NSLayoutGuide>();
  container_.addLayoutGuide(guide);
  return guide;
}

}  // namespace bkuk::bench
