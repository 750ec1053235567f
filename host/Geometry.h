#pragma once

namespace bkuk::host {

/// A position in points. The host's y axis runs down; the platform above turns it over.
struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

/// An extent in points.
struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

/// A rectangle in points, given by its upper left corner.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Rect&) const = default;
};

/// An extent in device pixels. Never the type of an extent in points.
struct PixelSize {
  int width = 0;
  int height = 0;
  bool operator==(const PixelSize&) const = default;
};

/// A rectangle of device pixels, given by its upper left pixel.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
  [[nodiscard]] int maxX() const { return x + width; }
  [[nodiscard]] int maxY() const { return y + height; }
  bool operator==(const PixelRect&) const = default;
};

/// An affine map: x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct Transform {
  double a = 1;
  double b = 0;
  double c = 0;
  double d = 1;
  double tx = 0;
  double ty = 0;
  bool operator==(const Transform&) const = default;
};

}  // namespace bkuk::host
