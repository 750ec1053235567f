#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

inline constexpr std::uint16_t spaceKey = 49;

/// Writes down the states that a view tells it.
class StateLog : public NSObject, public BKUKStatefulViewDelegate {
 public:
  void stateChanged(BKUKInteractionState state, BKUKStatefulView&) override { states.push_back(state); }
  std::vector<BKUKInteractionState> take() { return std::exchange(states, {}); }

  std::vector<BKUKInteractionState> states;
};

/// A stateful view in a window that has the keyboard, the pointer outside of it.
class ControlFixture : public testing::Test {
 public:
  static constexpr host::Point inside{60, 50};  // y down, in a window of 100 points
  static constexpr host::Point outside{5, 5};

  ControlFixture() {
    window->contentView()->addSubview(view);
    view->delegates()->add(log.get());
    view->setActionBlock([this](BKUKStatefulView&) { ++actions; });
    window->makeKeyAndOrderFront();
    host->settle();
    log->take();
  }
  ~ControlFixture() override { window->close(); }

  [[nodiscard]] VirtualWindow& desktop() const { return *host->windows().front(); }

  VirtualHostScope host;
  int actions = 0;
  Ref<StateLog> log = make<StateLog>();
  Ref<BKUKWindow> window = make<BKUKWindow>(NSRect(0, 0, 200, 100));
  Ref<BKUKStatefulView> view = make<BKUKStatefulView>(NSRect(50, 20, 100, 50));
};

}  // namespace bkuk
