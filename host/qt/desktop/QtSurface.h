#pragma once

#include <QtGui/QBackingStore>
#include <QtGui/QWindow>
#include <functional>
#include <span>

#include "host/Window.h"

namespace bkuk::host {

/// The native window of a `QtWindow`, with the image that the desktop shows of it.
class QtSurface final : public QWindow {
 public:
  /// Called with each native event before Qt handles it; true when it needs no more handling.
  using EventFilter = std::function<bool(QEvent&)>;

  explicit QtSurface(const WindowOptions& options, EventFilter filter);
  ~QtSurface() override;

  /// What Qt's bridge shows of the window to assistive clients.
  [[nodiscard]] QAccessibleInterface* accessibleRoot() const override;

  /// Copies the damaged pixels to the desktop. `image` covers the whole surface.
  void present(const Bitmap& image, std::span<const PixelRect> damage);

 protected:
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] QRegion presentedRegion(std::span<const PixelRect> damage) const;

  EventFilter filter_;
  QBackingStore store_;
};

}  // namespace bkuk::host
