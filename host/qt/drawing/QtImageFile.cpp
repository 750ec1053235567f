#include "host/qt/drawing/QtImageFile.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <algorithm>
#include <optional>
#include <string_view>

#include "host/qt/desktop/QtApplication.h"
#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

namespace {

std::string_view textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

enum class Format { png, jpeg, svg };

// What the bytes begin with, absent for anything else.
std::optional<Format> formatOf(std::string_view file) {
  using namespace std::string_view_literals;
  constexpr auto prologue = 65536;
  if (file.starts_with("\x89PNG\r\n\x1a\n"sv)) return Format::png;
  if (file.starts_with("\xff\xd8\xff"sv)) return Format::jpeg;
  const auto start = file.substr(0, prologue);
  const auto first = start.find_first_not_of("\xef\xbb\xbf \t\r\n"sv);
  const bool isMarkup = first != start.npos && start[first] == '<';
  if (isMarkup && start.find("<svg"sv) != start.npos) return Format::svg;
  return std::nullopt;
}

// What Qt calls its reader.
const char* readerOf(Format format) {
  switch (format) {
    case Format::png:
      return "png";
    case Format::jpeg:
      return "jpeg";
    case Format::svg:
      return "svg";
  }
  return "";
}

// Reads one file as often as it is asked to.
class Source {
 public:
  Source(std::span<const std::byte> bytes, Format format)
      : bytes_(textOf(bytes).data(), static_cast<qsizetype>(bytes.size())), format_(format) {}

  [[nodiscard]] QSize size() const {
    Reading reading(*this);
    return reading.reader.size();
  }

  [[nodiscard]] QImage image(QSize scaled = {}) const {
    Reading reading(*this);
    if (scaled.isValid()) reading.reader.setScaledSize(scaled);
    return reading.reader.read();
  }

 private:
  struct Reading {
    explicit Reading(const Source& source) {
      buffer.setData(source.bytes_);
      buffer.open(QIODevice::ReadOnly);
      reader.setDevice(&buffer);
      reader.setAutoDetectImageFormat(false);
      reader.setFormat(readerOf(source.format_));
      // Cameras store what is up beside the pixels.
      reader.setAutoTransform(true);
    }
    QBuffer buffer;
    QImageReader reader;
  };

  QByteArray bytes_;
  Format format_;
};

bool isTooLarge(QSize size) {
  return size.width() > Bitmap::maxSide || size.height() > Bitmap::maxSide ||
         static_cast<long>(size.width()) * size.height() > mostImagePixels;
}

Bitmap bitmapOf(QImage image) {
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  Bitmap bitmap(PixelSize{image.width(), image.height()});
  for (int y = 0; y < bitmap.size().height; ++y) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    std::copy_n(pixels, image.width(), bitmap.row(y).begin());
  }
  return bitmap;
}

class QtScalableImage final : public ScalableImage {
 public:
  QtScalableImage(Source source, QSize size) : source_(std::move(source)), size_(size) {}

  [[nodiscard]] Size size() const override { return {double(size_.width()), double(size_.height())}; }
  [[nodiscard]] Bitmap render(PixelSize size) const override {
    const QSize scaled(size.width, size.height);
    return scaled.isEmpty() || isTooLarge(scaled) ? Bitmap() : bitmapOf(source_.image(scaled));
  }

 private:
  Source source_;
  QSize size_;
};

DecodedImage faulty(ImageFault fault) { return {{}, nullptr, fault}; }

}  // namespace

DecodedImage decodeImageFile(std::span<const std::byte> bytes) {
  const auto format = formatOf(textOf(bytes));
  if (!format) return faulty(ImageFault::unknownKind);
  // The readers are plug-ins, which are found through the application object.
  QtApplication::shared(QtApplication::Purpose::drawing);
  if (!QImageReader::supportedImageFormats().contains(readerOf(*format)))
    return faulty(ImageFault::notSupported);
  Source source(bytes, *format);
  const auto size = source.size();
  if (size.isEmpty()) return faulty(ImageFault::damaged);
  if (format == Format::svg) {
    return {{}, std::make_shared<QtScalableImage>(std::move(source), size), ImageFault::none};
  }
  if (isTooLarge(size)) return faulty(ImageFault::tooLarge);
  auto pixels = bitmapOf(source.image());
  if (pixels.isEmpty()) return faulty(ImageFault::damaged);
  return {std::move(pixels), nullptr, ImageFault::none};
}

}  // namespace bkuk::host
