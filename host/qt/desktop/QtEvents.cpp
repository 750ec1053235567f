#include "host/qt/desktop/QtEvents.h"

#include "host/qt/desktop/QtKeyCodes.h"

namespace bkuk::host {

namespace {

// X and Wayland alike number keys from 8.
constexpr quint32 firstKey = 8;

// Points that one notch of a wheel scrolls, three lines of text; and the units in which Qt counts notches.
constexpr double pointsPerNotch = 48;
constexpr double unitsPerNotch = 120;

// The flag that a modifier key stands for, none for other keys.
bool* flagOf(int key, Modifiers& modifiers) {
  switch (key) {
    case Qt::Key_Shift:
      return &modifiers.shift;
    case Qt::Key_Control:
      return &modifiers.control;
    case Qt::Key_Alt:
      return &modifiers.option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
      return &modifiers.command;
    default:
      return nullptr;
  }
}

bool isModifierKey(int key) {
  Modifiers scratch;
  return flagOf(key, scratch) != nullptr || key == Qt::Key_CapsLock;
}

// What the key types without Control, Alt and Super, which turn letters into control characters.
QString unmodifiedText(const QKeyEvent& event) {
  constexpr int firstSpecialKey = 0x01000000;
  const bool isPlain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  if (isPlain || event.key() <= 0 || event.key() >= firstSpecialKey) return event.text();
  const char32_t character = event.key();
  const QString text = QString::fromUcs4(&character, 1);
  return event.modifiers().testFlag(Qt::ShiftModifier) ? text : text.toLower();
}

}  // namespace

Modifiers modifiersFrom(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier),
          modifiers.testFlag(Qt::AltModifier), modifiers.testFlag(Qt::MetaModifier)};
}

PointerButton buttonFrom(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return PointerButton::left;
    case Qt::RightButton:
      return PointerButton::right;
    case Qt::MiddleButton:
      return PointerButton::middle;
    default:
      return PointerButton::none;
  }
}

WheelEvent wheelEventFrom(const QWheelEvent& event, double timestamp) {
  const bool isPrecise = !event.pixelDelta().isNull();
  const QPointF delta =
      isPrecise ? QPointF(event.pixelDelta()) : QPointF(event.angleDelta()) / unitsPerNotch * pointsPerNotch;
  const QPointF position = event.position();
  return {{position.x(), position.y()},     delta.x(), delta.y(), isPrecise,
          modifiersFrom(event.modifiers()), timestamp};
}

std::optional<KeyEvent> keyEventFrom(const QKeyEvent& event, double timestamp) {
  const bool isPress = event.type() == QEvent::KeyPress;
  if (!isPress && event.isAutoRepeat()) return std::nullopt;
  KeyEvent result;
  result.kind = isPress ? KeyEvent::Kind::press : KeyEvent::Kind::release;
  result.keyCode = appleKeyCode(event.nativeScanCode() - firstKey);
  result.modifiers = modifiersFrom(event.modifiers());
  result.isRepeat = event.isAutoRepeat();
  result.timestamp = timestamp;
  if (isModifierKey(event.key())) {
    result.kind = KeyEvent::Kind::modifiersChanged;
    if (bool* flag = flagOf(event.key(), result.modifiers)) *flag = isPress;
    return result;
  }
  result.characters = event.text().toStdString();
  result.unmodifiedCharacters = unmodifiedText(event).toStdString();
  return result;
}

}  // namespace bkuk::host
