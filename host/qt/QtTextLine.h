#pragma once

#include <QtCore/QList>
#include <QtGui/QGlyphRun>

#include "host/Text.h"

namespace bkuk::host {

class QtTextLine final : public TextLine {
 public:
  QtTextLine(QList<QGlyphRun> runs, double width) : runs_(std::move(runs)), width_(width) {}

  [[nodiscard]] double width() const override { return width_; }
  /// The glyphs at their final size, positions relative to the start of the baseline.
  [[nodiscard]] const QList<QGlyphRun>& runs() const { return runs_; }

 private:
  QList<QGlyphRun> runs_;
  double width_;
};

}  // namespace bkuk::host
