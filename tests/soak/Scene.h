#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "BrenvikUIKit/controls/BKUKTriggerView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "BrenvikUIKit/text/BKUKLabel.h"
#include "platform/foundation/NSTimer.h"
#include "testing/VirtualHostScope.h"

namespace bkuk::soak {

/// A program in full use on the virtual desktop: windows that come and go, controls that are pressed, labels
/// that change, animations, timers, notifications under names never used before, changes of appearance, and
/// objects let go on other threads. At the end of each round nothing is open, and nothing of it should be
/// left.
class Scene {
 public:
  explicit Scene(std::uint32_t seed) : random_(seed) {}

  void playRound();

 private:
  void open();
  void playStep();
  void changeTexts();
  void animate();
  void pressSomething();
  void tellUnderFreshName();
  void changeAppearance();
  void letGoElsewhere();
  void close();
  [[nodiscard]] int upTo(int last) { return std::uniform_int_distribution(0, last)(random_); }

  VirtualHostScope host_;
  std::mt19937 random_;
  std::uint64_t names_ = 0;
  int presses_ = 0;
  Ref<BKUKWindow> window_;
  std::vector<Ref<BKUKLabel>> labels_;
  std::vector<Ref<BKUKTriggerView>> controls_;
  Ref<NSTimer> timer_;
};

}  // namespace bkuk::soak
