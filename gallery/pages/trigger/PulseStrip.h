#pragma once

#include <vector>

#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// Marks moments on a line of three seconds, which starts with the first moment after a pause.
class PulseStrip : public Box {
 public:
  static constexpr CGFloat height = 72;  ///< points

  PulseStrip();

  /// Marks a moment; seconds on the host's clock.
  void mark(double time);

  void layout() override;

 protected:
  void didInit() override;

 private:
  double start_ = -1e9;
  double last_ = -1e9;
  std::vector<double> moments_;  // seconds after the start
  std::vector<Ref<Box>> marks_;
  std::vector<Ref<Box>> seconds_;
};

}  // namespace bkuk::gallery
