#include "testing/VirtualWindow.h"

#include <algorithm>
#include <cmath>

#include "host/FrameClamp.h"
#include "testing/VirtualDesktop.h"
#include "testing/VirtualLoop.h"

namespace bkuk {

namespace {

host::PixelRect intersection(const host::PixelRect& a, const host::PixelRect& b) {
  const int left = std::max(a.x, b.x);
  const int top = std::max(a.y, b.y);
  return {left, top, std::min(a.maxX(), b.maxX()) - left, std::min(a.maxY(), b.maxY()) - top};
}

// A window of a test that runs for long is presented without end.
constexpr std::size_t mostDamage = 1024;

host::PixelRect unionOf(std::span<const host::PixelRect> rects) {
  auto result = rects.front();
  for (const auto& rect : rects) {
    const int left = std::min(result.x, rect.x);
    const int top = std::min(result.y, rect.y);
    result = {left, top, std::max(result.maxX(), rect.maxX()) - left,
              std::max(result.maxY(), rect.maxY()) - top};
  }
  return result;
}

void copyPixels(const host::Bitmap& from, host::Bitmap& to, const host::PixelRect& area) {
  for (int y = area.y; y < area.maxY(); ++y) {
    std::ranges::copy(from.row(y).subspan(area.x, area.width), to.row(y).begin() + area.x);
  }
}

}  // namespace

VirtualWindow::VirtualWindow(VirtualDesktop& desktop, const host::WindowOptions& options,
                             host::WindowClient& client)
    : desktop_(desktop),
      client_(client),
      options_(options),
      frame_(host::clampedFrame(options.frame)),
      scale_(desktop.screens().front().scale) {
  desktop_.add(*this);
}

VirtualWindow::~VirtualWindow() { desktop_.remove(*this); }

// --- pointer

void VirtualWindow::movePointer(host::Point position) {
  queueMove(position);
  settle();
}

void VirtualWindow::leavePointer() {
  desktop_.setPointerWindow(nullptr);
  settle();
}

void VirtualWindow::press(host::PointerButton button) {
  queuePress(button);
  settle();
}

void VirtualWindow::release(host::PointerButton button) {
  queueRelease(button);
  settle();
}

void VirtualWindow::click(host::Point position, host::PointerButton button) {
  queueMove(position);
  queuePress(button);
  queueRelease(button);
  settle();
}

void VirtualWindow::doubleClick(host::Point position) {
  queueMove(position);
  for (int i = 0; i < 2; ++i) {
    queuePress(host::PointerButton::left);
    queueRelease(host::PointerButton::left);
  }
  settle();
}

// Any step may close the window and let it go, which ends the drag.
void VirtualWindow::drag(host::Point from, host::Point to) {
  constexpr int steps = 4;
  const auto isLive = [&desktop = desktop_, this] {
    return std::ranges::find(desktop.windows(), this) != desktop.windows().end();
  };
  movePointer(from);
  if (isLive()) press();
  for (int step = 1; step <= steps && isLive(); ++step) {
    const double part = double(step) / steps;
    movePointer({std::lerp(from.x, to.x, part), std::lerp(from.y, to.y, part)});
  }
  if (isLive()) release();
}

void VirtualWindow::scroll(double deltaX, double deltaY) {
  push(host::WheelEvent{pointerPosition(), deltaX, deltaY, true, modifiers_, desktop_.loop_.now()});
  settle();
}

void VirtualWindow::queueMove(host::Point position) {
  desktop_.pointer_ = {frame_.x + position.x, frame_.y + position.y};
  const bool isDragging = pointer_.heldButton() != host::PointerButton::none;
  if (!isDragging) desktop_.setPointerWindow(contains(position) ? this : nullptr);
  if (isDragging || hasPointerGrab_ || contains(position)) push(pointer_.move(sample()));
}

void VirtualWindow::queuePress(host::PointerButton button) { pushIfAny(pointer_.press(button, sample())); }

// A drag that ends outside leaves the window only now.
void VirtualWindow::queueRelease(host::PointerButton button) {
  pushIfAny(pointer_.release(button, sample()));
  const bool isDragging = pointer_.heldButton() != host::PointerButton::none;
  if (!isDragging && !contains(pointerPosition()) && desktop_.pointerWindow_ == this) {
    desktop_.setPointerWindow(nullptr);
  }
}

bool VirtualWindow::contains(host::Point position) const {
  return position.x >= 0 && position.y >= 0 && position.x < frame_.width && position.y < frame_.height;
}

host::PointerSample VirtualWindow::sample() const {
  return {pointerPosition(), modifiers_, desktop_.loop_.now()};
}

host::Point VirtualWindow::pointerPosition() const {
  return {desktop_.pointer_.x - frame_.x, desktop_.pointer_.y - frame_.y};
}

void VirtualWindow::tellEnter() { push(pointer_.enter(sample())); }

void VirtualWindow::tellLeave() { push(pointer_.leave(sample())); }

// --- keyboard

void VirtualWindow::setModifiers(const host::Modifiers& modifiers) {
  modifiers_ = modifiers;
  pushKey(host::KeyEvent::Kind::modifiersChanged, host::unknownKeyCode, {}, false);
  settle();
}

void VirtualWindow::pressKey(std::uint16_t keyCode, std::string_view characters, bool isRepeat) {
  pushKey(host::KeyEvent::Kind::press, keyCode, characters, isRepeat);
  settle();
}

void VirtualWindow::releaseKey(std::uint16_t keyCode, std::string_view characters) {
  pushKey(host::KeyEvent::Kind::release, keyCode, characters, false);
  settle();
}

void VirtualWindow::typeKey(std::uint16_t keyCode, std::string_view characters) {
  pushKey(host::KeyEvent::Kind::press, keyCode, characters, false);
  pushKey(host::KeyEvent::Kind::release, keyCode, characters, false);
  settle();
}

void VirtualWindow::pushKey(host::KeyEvent::Kind kind, std::uint16_t keyCode, std::string_view characters,
                            bool isRepeat) {
  push(host::KeyEvent{kind, keyCode, std::string(characters), std::string(characters), isRepeat, modifiers_,
                      desktop_.loop_.now()});
}

// --- desktop

void VirtualWindow::setFocused(bool isFocused) {
  if (isFocused || desktop_.focusedWindow_ == this) desktop_.setFocusedWindow(isFocused ? this : nullptr);
  settle();
}

void VirtualWindow::changeFrame(const host::Rect& frame) {
  frame_ = host::clampedFrame(frame);
  push(host::FrameEvent{frame_});
  settle();
}

void VirtualWindow::setScale(double scale) {
  scale_ = scale;
  push(host::ScaleEvent{scale});
  settle();
}

void VirtualWindow::setExposed(bool isExposed) {
  isExposed_ = isExposed;
  if (!isExposed) pushIfAny(pointer_.cancel(desktop_.loop_.now()));
  push(host::ExposeEvent{isExposed});
  settle();
}

void VirtualWindow::requestClose() {
  push(host::CloseEvent{});
  settle();
}

void VirtualWindow::dismiss() {
  push(host::DismissEvent{});
  settle();
}

// --- what the library made of it

std::uint32_t VirtualWindow::pixel(int x, int y) const {
  const auto [width, height] = image_.size();
  return x >= 0 && y >= 0 && x < width && y < height ? image_.row(y)[static_cast<std::size_t>(x)] : 0;
}

void VirtualWindow::forgetPresents() {
  presentCount_ = 0;
  presentedDamage_.clear();
}

// --- Window

void VirtualWindow::show() {
  if (isVisible_) return;
  isVisible_ = true;
  push(host::ExposeEvent{isExposed_});
}

void VirtualWindow::hide() {
  if (!isVisible_) return;
  isVisible_ = false;
  hasPointerGrab_ = false;
  pushIfAny(pointer_.cancel(desktop_.loop_.now()));
  if (desktop_.pointerWindow_ == this) desktop_.setPointerWindow(nullptr);
  if (desktop_.focusedWindow_ == this) desktop_.setFocusedWindow(nullptr);
  push(host::ExposeEvent{false});
}

void VirtualWindow::setFrame(const host::Rect& frame) {
  const auto clamped = host::clampedFrame(frame);
  if (clamped == frame_) return;
  frame_ = clamped;
  push(host::FrameEvent{frame_});
}

void VirtualWindow::setSizeLimits(host::Size minimum, host::Size maximum) {
  minimumSize_ = minimum;
  maximumSize_ = maximum;
}

void VirtualWindow::activate() {
  if (isVisible_ && options_.acceptsFocus) desktop_.setFocusedWindow(this);
}

host::PixelSize VirtualWindow::pixelSize() const {
  return {int(std::lround(frame_.width * scale_)), int(std::lround(frame_.height * scale_))};
}

void VirtualWindow::present(const host::Bitmap& image, std::span<const host::PixelRect> damage) {
  if (!isVisible_ || !isExposed_) return;
  if (image_.size() != image.size()) image_ = host::Bitmap(image.size());
  const host::PixelRect all{0, 0, image.size().width, image.size().height};
  for (const auto& rect : damage) copyPixels(image, image_, intersection(rect, all));
  presentedDamage_.insert(presentedDamage_.end(), damage.begin(), damage.end());
  if (presentedDamage_.size() > mostDamage) presentedDamage_ = {unionOf(presentedDamage_)};
  ++presentCount_;
}

void VirtualWindow::push(host::WindowEvent event) { desktop_.queue_.push(*this, client_, std::move(event)); }

void VirtualWindow::pushIfAny(const std::optional<host::PointerEvent>& event) {
  if (event) push(*event);
}

void VirtualWindow::settle() { desktop_.loop_.advance(0); }

}  // namespace bkuk
