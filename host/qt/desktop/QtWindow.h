#pragma once

#include <memory>
#include <optional>

#include "host/Window.h"
#include "host/support/EventQueue.h"
#include "host/support/PointerTracker.h"

class QCloseEvent;
class QEvent;
class QInputEvent;
class QKeyEvent;
class QMouseEvent;
class QPointF;
class QSinglePointEvent;
class QWheelEvent;

namespace bkuk::host {

class QtDesktop;
class QtSurface;

/// A window of the desktop. Native events become entries of the host's queue here; nothing is delivered
/// from inside Qt's own calls.
///
/// Once the application object of an embedding program has gone, the window is an empty shell: it keeps
/// its frame and does nothing.
class QtWindow final : public Window {
 public:
  QtWindow(QtDesktop& desktop, const WindowOptions& options, WindowClient& client);
  ~QtWindow() override;

  void show() override;
  void hide() override;
  [[nodiscard]] bool isVisible() const override;
  void setFrame(const Rect& frame) override;
  [[nodiscard]] Rect frame() const override;
  void setSizeLimits(Size minimum, Size maximum) override;
  void setTitle(std::string_view utf8) override;
  void raise() override;
  void activate() override;
  void setPointerGrab(bool on) override;
  void setCursor(CursorShape shape) override;
  void setOpacity(double opacity) override;
  [[nodiscard]] double scale() const override { return scale_; }
  [[nodiscard]] PixelSize pixelSize() const override;
  [[nodiscard]] Point pointerPosition() const override;
  void present(const Bitmap& image, std::span<const PixelRect> damage) override;

  /// Destroys the native window for good.
  void closeNative();

 private:
  bool handle(QEvent& event);
  bool handlePointer(QMouseEvent& event);
  bool handlePress(const QMouseEvent& event, const PointerSample& sample);
  bool handleWheel(const QWheelEvent& event);
  bool handleKey(const QKeyEvent& event);
  bool handleClose(QCloseEvent& event);
  void handleExpose();
  void push(WindowEvent event);
  void pushIfAny(const std::optional<PointerEvent>& event);
  void cancelPress();
  void refreshScale();
  void applySizeLimits();
  [[nodiscard]] double dateOf(const QInputEvent& event) const;
  [[nodiscard]] PointerSample sampleOf(const QSinglePointEvent& event) const;
  void noteOnScreen(const QSinglePointEvent& event) const;
  [[nodiscard]] bool isOutsideProgram(const QPointF& position) const;

  QtDesktop& desktop_;
  WindowClient& client_;
  WindowKind kind_;
  bool isResizable_;
  Size minimumSize_{1, 1};
  Size maximumSize_{maxSide, maxSide};
  Rect frame_;
  double scale_ = 1;
  bool hasGrab_ = false;
  PointerTracker pointer_;
  std::unique_ptr<QtSurface> surface_;
};

}  // namespace bkuk::host
