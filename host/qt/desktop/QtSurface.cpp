#include "host/qt/desktop/QtSurface.h"

#include <QtGui/QAccessible>
#include <QtGui/QPainter>

#include "host/qt/desktop/QtApplication.h"
#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

namespace {

Qt::WindowFlags titleFlags(const WindowOptions& options) {
  if (!options.titled) return Qt::Window | Qt::FramelessWindowHint;
  Qt::WindowFlags flags =
      Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
  flags.setFlag(Qt::WindowCloseButtonHint, options.closable);
  flags.setFlag(Qt::WindowMinimizeButtonHint, options.miniaturizable);
  flags.setFlag(Qt::WindowMaximizeButtonHint, options.resizable);
  return flags;
}

// On Wayland only a window of the popup type may stand beside its parent and hears of presses elsewhere.
// X11 has the pointer grab for that, and leaves the keys with the parent.
Qt::WindowFlags popupFlags() {
  const bool isX11 = QtApplication::shared(QtApplication::Purpose::windows).canPlaceWindows();
  return (isX11 ? Qt::ToolTip : Qt::Popup) | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
}

Qt::WindowFlags kindFlags(const WindowOptions& options) {
  switch (options.kind) {
    case WindowKind::normal:
      return titleFlags(options);
    case WindowKind::tooltip:
      return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
             Qt::WindowTransparentForInput | Qt::NoDropShadowWindowHint;
    case WindowKind::popup:
      return popupFlags();
    case WindowKind::sheet:
      return Qt::Dialog | Qt::FramelessWindowHint;
  }
  return Qt::Window;
}

Qt::WindowFlags windowFlags(const WindowOptions& options) {
  auto flags = kindFlags(options);
  if (!options.acceptsFocus) flags |= Qt::WindowDoesNotAcceptFocus;
  if (options.ignoresPointer) flags |= Qt::WindowTransparentForInput;
  return flags;
}

QSurfaceFormat surfaceFormat(bool translucent) {
  QSurfaceFormat format;
  format.setAlphaBufferSize(translucent ? 8 : 0);
  return format;
}

// The smallest rectangle of points around a rectangle of device pixels.
QRect pointsAround(const PixelRect& pixels, double scale) {
  const QRectF exact(pixels.x / scale, pixels.y / scale, pixels.width / scale, pixels.height / scale);
  return exact.toAlignedRect();
}

// The device pixels that Qt may wipe before it paints `points`: one more all around for its rounding.
QRect pixelsAround(const QRect& points, double scale) {
  const QRectF exact(points.x() * scale, points.y() * scale, points.width() * scale, points.height() * scale);
  return exact.toAlignedRect().adjusted(-1, -1, 1, 1);
}

}  // namespace

QtSurface::QtSurface(const WindowOptions& options, EventFilter filter)
    : filter_(std::move(filter)), store_(this) {
  setSurfaceType(QSurface::RasterSurface);
  setFormat(surfaceFormat(options.translucent));
  setFlags(windowFlags(options));
}

QtSurface::~QtSurface() {
  // Closing the native window sends events, for which there is nobody left.
  filter_ = nullptr;
}

QAccessibleInterface* QtSurface::accessibleRoot() const {
  return QAccessible::queryAccessibleInterface(const_cast<QtSurface*>(this));
}

bool QtSurface::event(QEvent* event) { return (filter_ && filter_(*event)) || QWindow::event(event); }

QRegion QtSurface::presentedRegion(std::span<const PixelRect> damage) const {
  const QRect all({}, size());
  if (store_.size() != size()) return all;
  QRegion region;
  for (const auto& rect : damage) region += pointsAround(rect, devicePixelRatio()).intersected(all);
  return region;
}

void QtSurface::present(const Bitmap& image, std::span<const PixelRect> damage) {
  const auto region = presentedRegion(damage);
  if (region.isEmpty() || image.isEmpty()) return;
  if (store_.size() != size()) store_.resize(size());
  store_.beginPaint(region);
  if (auto* device = store_.paintDevice()) {
    const QImage source = sharedImage(image);
    QPainter painter(device);
    // From points back to the pixels of the device, so that the copy is exact at any scale.
    const double scale = device->devicePixelRatio();
    painter.scale(1 / scale, 1 / scale);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : region) {
      const QRect pixels = pixelsAround(rect, scale).intersected(source.rect());
      painter.drawImage(pixels.topLeft(), source, pixels);
    }
  }
  store_.endPaint();
  store_.flush(region);
}

}  // namespace bkuk::host
