#include "host/qt/desktop/QtWindow.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>
#include <algorithm>
#include <cmath>
#include <utility>

#include "host/FrameClamp.h"
#include "host/qt/accessibility/QtAccessibility.h"
#include "host/qt/desktop/QtApplication.h"
#include "host/qt/desktop/QtDesktop.h"
#include "host/qt/desktop/QtEvents.h"
#include "host/qt/desktop/QtSurface.h"
#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

namespace {

double clickInterval() { return QGuiApplication::styleHints()->mouseDoubleClickInterval() / 1000.0; }

QRect wholePoints(const Rect& frame) {
  return {qRound(frame.x), qRound(frame.y), std::max(1, qRound(frame.width)),
          std::max(1, qRound(frame.height))};
}

QSize wholePoints(Size size) { return {qRound(size.width), qRound(size.height)}; }

Qt::CursorShape cursorShape(CursorShape shape) {
  switch (shape) {
    case CursorShape::arrow:
      return Qt::ArrowCursor;
    case CursorShape::pointingHand:
      return Qt::PointingHandCursor;
    case CursorShape::iBeam:
      return Qt::IBeamCursor;
  }
  return Qt::ArrowCursor;
}

}  // namespace

QtWindow::QtWindow(QtDesktop& desktop, const WindowOptions& options, WindowClient& client)
    : desktop_(desktop),
      client_(client),
      kind_(options.kind),
      isResizable_(options.resizable),
      pointer_(clickInterval()),
      surface_(std::make_unique<QtSurface>(options, [this](QEvent& event) { return handle(event); })) {
  desktop_.application().add(*this);
  desktop_.accessibility().add(*surface_, client_);
  if (auto* parent = static_cast<QtWindow*>(options.parent))
    surface_->setTransientParent(parent->surface_.get());
  QObject::connect(surface_.get(), &QWindow::screenChanged, surface_.get(), [this] { refreshScale(); });
  setFrame(options.frame);
  desktop_.application().nameClass(*surface_);
  scale_ = surface_->devicePixelRatio();
}

QtWindow::~QtWindow() {
  closeNative();
  desktop_.application().remove(*this);
  desktop_.drop(*this);
}

void QtWindow::closeNative() {
  if (surface_) desktop_.accessibility().remove(*surface_);
  surface_.reset();
}

// --- what the library asks for

void QtWindow::show() {
  if (!surface_) return;
  const bool isNew = !surface_->isVisible();
  surface_->show();
  if (isNew) desktop_.accessibility().didShow(*surface_);
  refreshScale();
}

void QtWindow::hide() {
  if (!surface_) return;
  cancelPress();
  setPointerGrab(false);
  if (surface_->isVisible()) desktop_.accessibility().willHide(*surface_);
  surface_->hide();
}

bool QtWindow::isVisible() const { return surface_ && surface_->isVisible(); }

void QtWindow::setFrame(const Rect& frame) {
  frame_ = clampedFrame(frame);
  if (!surface_) return;
  applySizeLimits();
  surface_->setGeometry(wholePoints(frame_));
}

Rect QtWindow::frame() const { return surface_ ? fromQt(surface_->geometry()) : frame_; }

void QtWindow::setSizeLimits(Size minimum, Size maximum) {
  const auto limit = [](double side) { return side == 0 ? maxSide : side; };
  minimumSize_ = clampedSize(minimum);
  maximumSize_ = clampedSize({limit(maximum.width), limit(maximum.height)});
  if (surface_) applySizeLimits();
}

void QtWindow::applySizeLimits() {
  const Size fixed{frame_.width, frame_.height};
  const QSize minimum = wholePoints(isResizable_ ? minimumSize_ : fixed);
  const QSize maximum = wholePoints(isResizable_ ? maximumSize_ : fixed);
  surface_->setMinimumSize(minimum);
  surface_->setMaximumSize(maximum.expandedTo(minimum));
}

void QtWindow::setTitle(std::string_view utf8) {
  if (surface_) surface_->setTitle(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

void QtWindow::raise() {
  if (surface_ && desktop_.canPlaceWindows()) surface_->raise();
}

void QtWindow::activate() {
  if (surface_ && desktop_.canPlaceWindows()) surface_->requestActivate();
}

void QtWindow::setPointerGrab(bool on) {
  if (!surface_ || on == hasGrab_) return;
  hasGrab_ = on;
  if (desktop_.application().isX11()) surface_->setMouseGrabEnabled(on);
}

void QtWindow::setCursor(CursorShape shape) {
  if (surface_) surface_->setCursor(QCursor(cursorShape(shape)));
}

void QtWindow::setOpacity(double opacity) {
  const double usable = std::isnan(opacity) ? 1 : std::clamp(opacity, 0.0, 1.0);
  if (surface_ && desktop_.canPlaceWindows()) surface_->setOpacity(usable);
}

PixelSize QtWindow::pixelSize() const {
  const QSize size = (surface_ ? surface_->size() : wholePoints(frame_).size()) * scale_;
  return {size.width(), size.height()};
}

Point QtWindow::pointerPosition() const {
  if (!surface_) return {};
  const Point onScreen = desktop_.pointer().position();
  const QPointF position = surface_->mapFromGlobal(QPointF(onScreen.x, onScreen.y));
  return {position.x(), position.y()};
}

void QtWindow::present(const Bitmap& image, std::span<const PixelRect> damage) {
  if (surface_ && surface_->isExposed()) surface_->present(image, damage);
}

// --- what the desktop reports

bool QtWindow::handle(QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return handlePointer(static_cast<QMouseEvent&>(event));
    case QEvent::Enter:
      push(pointer_.enter(sampleOf(static_cast<QEnterEvent&>(event))));
      return true;
    case QEvent::Leave:
      desktop_.pointer().loseSight();
      push(pointer_.leave({pointerPosition(), {}, desktop_.now()}));
      return true;
    case QEvent::Wheel:
      return handleWheel(static_cast<QWheelEvent&>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return handleKey(static_cast<QKeyEvent&>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      push(FocusEvent{event.type() == QEvent::FocusIn});
      return false;
    case QEvent::Expose:
      handleExpose();
      return false;
    case QEvent::Hide:
      cancelPress();
      return false;
    case QEvent::Move:
    case QEvent::Resize:
      refreshScale();
      push(FrameEvent{frame()});
      return false;
    case QEvent::Close:
      return handleClose(static_cast<QCloseEvent&>(event));
    default:
      return false;
  }
}

bool QtWindow::handlePointer(QMouseEvent& event) {
  const auto sample = sampleOf(event);
  switch (event.type()) {
    case QEvent::MouseMove:
      push(pointer_.move(sample));
      return true;
    case QEvent::MouseButtonPress:
      return handlePress(event, sample);
    case QEvent::MouseButtonRelease:
      pushIfAny(pointer_.release(buttonFrom(event.button()), sample));
      return true;
    default:
      // A double click follows the press that it consists of; clicks are counted by the tracker.
      return true;
  }
}

bool QtWindow::handlePress(const QMouseEvent& event, const PointerSample& sample) {
  if (hasGrab_ && isOutsideProgram(event.globalPosition())) {
    push(DismissEvent{});
  } else {
    pushIfAny(pointer_.press(buttonFrom(event.button()), sample));
  }
  return true;
}

double QtWindow::dateOf(const QInputEvent& event) const { return desktop_.dateOf(event.timestamp()); }

PointerSample QtWindow::sampleOf(const QSinglePointEvent& event) const {
  noteOnScreen(event);
  const QPointF position = event.position();
  return {{position.x(), position.y()}, modifiersFrom(event.modifiers()), dateOf(event)};
}

void QtWindow::noteOnScreen(const QSinglePointEvent& event) const {
  const QPointF position = event.globalPosition();
  desktop_.pointer().see({position.x(), position.y()});
}

bool QtWindow::isOutsideProgram(const QPointF& position) const {
  return QGuiApplication::topLevelAt(position.toPoint()) == nullptr;
}

bool QtWindow::handleWheel(const QWheelEvent& event) {
  noteOnScreen(event);
  push(wheelEventFrom(event, dateOf(event)));
  return true;
}

bool QtWindow::handleKey(const QKeyEvent& event) {
  if (auto key = keyEventFrom(event, dateOf(event))) push(std::move(*key));
  return true;
}

// The window stays until the library hides it, so Qt, which would destroy it now, must not see the event. It
// counts as accepted, or an application of Qt's could not quit while we have a window.
bool QtWindow::handleClose(QCloseEvent& event) {
  event.accept();
  if (kind_ == WindowKind::popup) {
    push(DismissEvent{});
  } else {
    push(CloseEvent{});
  }
  return true;
}

void QtWindow::handleExpose() {
  refreshScale();
  const bool isExposed = surface_->isExposed();
  if (!isExposed) cancelPress();
  push(ExposeEvent{isExposed});
}

// No release follows a press whose window has gone.
void QtWindow::cancelPress() { pushIfAny(pointer_.cancel(desktop_.now())); }

// Qt tells nobody when this changes, so every event that may come with a change asks.
void QtWindow::refreshScale() {
  const double scale = surface_->devicePixelRatio();
  if (scale == scale_) return;
  scale_ = scale;
  push(ScaleEvent{scale});
}

void QtWindow::pushIfAny(const std::optional<PointerEvent>& event) {
  if (event) push(WindowEvent(*event));
}

void QtWindow::push(WindowEvent event) { desktop_.push(*this, client_, std::move(event)); }

}  // namespace bkuk::host
