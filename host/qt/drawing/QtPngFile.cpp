#include <QtGui/QImage>
#include <algorithm>

#include "host/PngFile.h"
#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

bool writePng(const Bitmap& bitmap, const std::string& path) {
  return !bitmap.isEmpty() && sharedImage(bitmap).save(QString::fromStdString(path), "PNG");
}

std::optional<Bitmap> readPng(const std::string& path) {
  QImage image;
  if (!image.load(QString::fromStdString(path), "PNG")) return std::nullopt;
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  Bitmap bitmap(PixelSize{image.width(), image.height()});
  if (bitmap.isEmpty()) return std::nullopt;
  for (int y = 0; y < image.height(); ++y) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    std::copy_n(pixels, image.width(), bitmap.row(y).begin());
  }
  return bitmap;
}

}  // namespace bkuk::host
