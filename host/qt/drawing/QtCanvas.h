#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <memory>
#include <optional>
#include <vector>

#include "host/Canvas.h"

namespace bkuk::host {

/// The canvas over Qt's raster engine. Works without an application object as long as it draws no text.
class QtCanvas final : public Canvas {
 public:
  explicit QtCanvas(Bitmap& bitmap);
  ~QtCanvas() override;

  void save() override;
  void restore() override;
  void concatenate(const Transform& transform) override;
  void setAlpha(double alpha) override;
  void setBlendMode(BlendMode mode) override;
  void setAntialias(bool on) override;

  void fill(Path path, FillRule rule, const Rgba& color) override;
  void fill(Path path, FillRule rule, const Gradient& gradient) override;
  void paint(const Gradient& gradient) override;
  void stroke(Path path, const Stroke& stroke, const Rgba& color) override;
  void clip(Path path, FillRule rule) override;
  void drawBitmap(const Bitmap& image, const Rect& target) override;
  void drawText(const TextLine& line, Point origin, const Rgba& color) override;
  void beginGroup() override;
  void endGroup() override;
  [[nodiscard]] std::vector<PathElement> outline(Path path, const Stroke& stroke) const override;

 private:
  // The bitmap itself, or the image of an open group. Each has a stack of states of its own, so that
  // saves and restores cannot cross the borders of a group. It stays where it is, as its painter knows it.
  struct Layer {
    Layer(QImage pixels, QPoint at);
    // Takes back what was saved and not restored, of which painters complain, and ends painting.
    void finish();

    QImage image;
    QPoint origin;  // of the image in its parent layer
    std::unique_ptr<QPainter> painter;
    bool paints = true;  // false once the transform maps nothing onto the image
    std::vector<bool> savedPaints;
  };

  [[nodiscard]] Layer& layer() { return *layers_.back(); }
  [[nodiscard]] const Layer& layer() const { return *layers_.back(); }
  [[nodiscard]] QPainter& painter() { return *layer().painter; }
  [[nodiscard]] const QPainter& painter() const { return *layer().painter; }
  [[nodiscard]] bool paints() const { return layer().paints; }
  [[nodiscard]] std::optional<QPainterPath> shape(Path path, FillRule rule) const;
  [[nodiscard]] std::optional<QPainterPath> userBounds() const;
  [[nodiscard]] QRect clipBounds();
  void clipToDevice(const QRectF& rect);
  void fill(const QPainterPath& area, const Gradient& gradient);

  std::vector<std::unique_ptr<Layer>> layers_;
};

}  // namespace bkuk::host
