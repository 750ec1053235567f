#pragma once

#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

/// A rounded rectangle with a fill and a border; what the gallery's own views are made of. Its y runs
/// down.
class Box : public NSView {
 public:
  struct Look {
    Color fill;                ///< absent for none
    Color border;              ///< absent for none
    CGFloat borderWidth = 1;   ///< points
    CGFloat cornerRadius = 0;  ///< points
    bool clips = false;        ///< cuts the subviews off at the edge
  };

  Box();
  explicit Box(Look look);

  /// Replaces the look and displays it.
  void setLook(Look look);

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;

 private:
  Look look_;
};

}  // namespace bkuk::gallery
