#pragma once

#include <array>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"
#include "gallery/pages/shapes/DashedSample.h"

namespace bkuk::gallery {

/// One way of fitting a pattern, as a card: on an open line and around an outline, with the lengths that came
/// out below each.
class DashRow : public Box {
 public:
  static constexpr CGFloat height = 104;  ///< points

  DashRow(BKUKLinePatternModification modification, std::string name, std::string detail);

  /// The row's own modification takes the place of the one in `dashes`.
  void setDashes(DashedSample::Dashes dashes);
  /// How much of its column a sample takes, 0 to 1.
  void setExtent(CGFloat extent);

  /// Where the samples of that column may lie in a row of that width, measured from the leading edge.
  [[nodiscard]] static NSRect columnFrame(std::size_t column, CGFloat rowWidth);

  void layout() override;

 protected:
  void didInit() override;

 private:
  struct Column {
    Ref<DashedSample> sample;
    Ref<TextLabel> lengths;
  };

  void placeColumn(std::size_t index);
  void placeEnds();

  BKUKLinePatternModification modification_;
  CGFloat extent_ = 1;
  Ref<TextLabel> name_;
  Ref<TextLabel> detail_;
  std::array<Column, 2> columns_;
  std::array<Ref<Box>, 2> ends_;  // mark where the open line begins and ends
};

}  // namespace bkuk::gallery
