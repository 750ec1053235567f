#pragma once

#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

/// A dashed line, or a dashed outline of the view, whose pattern is fitted to its length.
class DashedSample : public BKUKShapeView {
 public:
  enum class Course { line, outline };

  struct Dashes {
    std::vector<CGFloat> pattern;  ///< points, dash first
    BKUKLinePatternModification modification = BKUKLinePatternModification::resizeSpaceBetweenPatterns;
    CGFloat width = 2;  ///< points
    CGLineCap cap = CGLineCap::butt;
  };

  DashedSample(Course course, Dashes dashes, Color color);

  void setDashes(Dashes dashes);
  /// Whether the line starts at the right; an outline stays as it is.
  void setStartsAtRight(bool startsAtRight);

  /// The lengths that the pattern was fitted to, for the present size.
  [[nodiscard]] std::vector<CGFloat> fittedPattern();

  void updateLayer() override;

 protected:
  void didInit() override;

 private:
  [[nodiscard]] BKUKShape::ComputablePath computablePath() const;

  Course course_;
  bool startsAtRight_ = false;
  Dashes dashes_;
  Color color_;
};

}  // namespace bkuk::gallery
