#include "host/qt/accessibility/QtAccessibleElement.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <utility>

#include "host/qt/accessibility/QtAccessibility.h"
#include "host/qt/desktop/QtApplication.h"

namespace bkuk::host {

namespace {

QAccessible::Role qtRole(AccessibilityRole role) {
  static constexpr std::pair<AccessibilityRole, QAccessible::Role> roles[] = {
      {AccessibilityRole::button, QAccessible::Button},
      {AccessibilityRole::cell, QAccessible::Cell},
      {AccessibilityRole::checkBox, QAccessible::CheckBox},
      {AccessibilityRole::column, QAccessible::Column},
      {AccessibilityRole::comboBox, QAccessible::ComboBox},
      {AccessibilityRole::group, QAccessible::Grouping},
      {AccessibilityRole::heading, QAccessible::Heading},
      {AccessibilityRole::image, QAccessible::Graphic},
      {AccessibilityRole::incrementor, QAccessible::SpinBox},
      {AccessibilityRole::link, QAccessible::Link},
      {AccessibilityRole::list, QAccessible::List},
      {AccessibilityRole::menu, QAccessible::PopupMenu},
      {AccessibilityRole::menuBar, QAccessible::MenuBar},
      {AccessibilityRole::menuItem, QAccessible::MenuItem},
      {AccessibilityRole::outline, QAccessible::Tree},
      {AccessibilityRole::popover, QAccessible::Pane},
      {AccessibilityRole::popUpButton, QAccessible::ButtonMenu},
      {AccessibilityRole::progressIndicator, QAccessible::ProgressBar},
      {AccessibilityRole::radioButton, QAccessible::RadioButton},
      {AccessibilityRole::radioGroup, QAccessible::Grouping},
      {AccessibilityRole::row, QAccessible::ListItem},
      {AccessibilityRole::scrollArea, QAccessible::Pane},
      {AccessibilityRole::scrollBar, QAccessible::ScrollBar},
      {AccessibilityRole::sheet, QAccessible::Dialog},
      {AccessibilityRole::slider, QAccessible::Slider},
      {AccessibilityRole::splitter, QAccessible::Splitter},
      {AccessibilityRole::staticText, QAccessible::StaticText},
      {AccessibilityRole::tabGroup, QAccessible::PageTabList},
      {AccessibilityRole::table, QAccessible::Table},
      {AccessibilityRole::textArea, QAccessible::EditableText},
      {AccessibilityRole::textField, QAccessible::EditableText},
      {AccessibilityRole::toolbar, QAccessible::ToolBar},
      {AccessibilityRole::window, QAccessible::Window},
  };
  const auto* found = std::ranges::find(roles, role, &std::pair<AccessibilityRole, QAccessible::Role>::first);
  return found == std::end(roles) ? QAccessible::Client : found->second;
}

const QString& actionName(AccessibilityAction action) {
  switch (action) {
    case AccessibilityAction::press:
      return QAccessibleActionInterface::pressAction();
    case AccessibilityAction::increment:
      return QAccessibleActionInterface::increaseAction();
    case AccessibilityAction::decrement:
      return QAccessibleActionInterface::decreaseAction();
    case AccessibilityAction::focus:
      break;
  }
  return QAccessibleActionInterface::setFocusAction();
}

QString valueText(const AccessibilityElement& element) {
  if (element.range) return QString::number(element.range->value);
  return QString::fromStdString(element.value);
}

// Assistive clients count the pixels of the X Window System; Qt's bridge passes on what it is told.
QRect onScreen(const Rect& frame, const QWindow* window) {
  QRectF result(frame.x, frame.y, frame.width, frame.height);
  if (window && window->screen() && QtApplication::shared(QtApplication::Purpose::windows).isX11()) {
    const QPointF origin = window->screen()->geometry().topLeft();
    const double scale = window->devicePixelRatio();
    result = {(result.topLeft() - origin) * scale + origin, result.size() * scale};
  }
  return {result.topLeft().toPoint(), result.size().toSize()};
}

}  // namespace

QtAccessibleElement::QtAccessibleElement(QtAccessibility& owner, AccessibilityId id, QWindow* window)
    : owner_(owner), id_(id), window_(window) {}

QtAccessibleElement::~QtAccessibleElement() { owner_.interfaceWillGo(*this); }

AccessibilityElement QtAccessibleElement::read() const {
  auto* tree = life_ == Life::alive ? owner_.tree() : nullptr;
  auto element = tree ? tree->element(id_) : std::nullopt;
  return element ? std::move(*element) : AccessibilityElement();
}

const std::vector<AccessibilityId>& QtAccessibleElement::readChildren() const {
  auto* tree = life_ == Life::alive ? owner_.tree() : nullptr;
  if (tree) children_ = tree->children(id_);
  return children_;
}

bool QtAccessibleElement::isValid() const {
  if (life_ != Life::alive) return life_ == Life::leaving;
  auto* tree = owner_.tree();
  return tree && tree->element(id_).has_value();
}

// Relatives

QObject* QtAccessibleElement::object() const { return window_; }

QWindow* QtAccessibleElement::window() const { return window_ ? window_ : owner_.windowOf(id_); }

QAccessibleInterface* QtAccessibleElement::focusChild() const {
  auto* tree = owner_.tree();
  return window_ && tree ? owner_.interfaceFor(tree->focused(id_)) : nullptr;
}

QAccessibleInterface* QtAccessibleElement::childAt(int x, int y) const {
  const auto ids = readChildren();
  for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
    auto* child = owner_.interfaceFor(*id);
    if (child && !child->state().offscreen && child->rect().contains(x, y)) return child;
  }
  return nullptr;
}

QAccessibleInterface* QtAccessibleElement::parent() const {
  if (window_) return QAccessible::queryAccessibleInterface(qApp);
  auto* tree = life_ == Life::alive ? owner_.tree() : nullptr;
  if (const auto id = tree ? tree->parent(id_) : 0) parent_ = id;
  return owner_.interfaceFor(parent_);
}

// Clients count the children before they ask for one.
QAccessibleInterface* QtAccessibleElement::child(int index) const {
  const auto place = static_cast<std::size_t>(index);
  if (index >= 0 && place >= children_.size()) readChildren();
  auto* child = index >= 0 && place < children_.size() ? owner_.interfaceFor(children_[place]) : nullptr;
  if (auto* element = dynamic_cast<QtAccessibleElement*>(child)) element->parent_ = id_;
  return child;
}

int QtAccessibleElement::childCount() const { return static_cast<int>(readChildren().size()); }

int QtAccessibleElement::indexOfChild(const QAccessibleInterface* child) const {
  const auto* element = dynamic_cast<const QtAccessibleElement*>(child);
  const auto& ids = readChildren();
  const auto found = element ? std::ranges::find(ids, element->id_) : ids.end();
  return found == ids.end() ? -1 : static_cast<int>(found - ids.begin());
}

// Properties

QString QtAccessibleElement::text(QAccessible::Text kind) const {
  switch (kind) {
    case QAccessible::Name:
      return QString::fromStdString(read().name);
    case QAccessible::Description:
      return QString::fromStdString(read().help);
    case QAccessible::Value:
      return valueText(read());
    default:
      return {};
  }
}

QRect QtAccessibleElement::rect() const { return onScreen(read().frame, window()); }

QAccessible::Role QtAccessibleElement::role() const { return qtRole(read().role); }

QAccessible::State QtAccessibleElement::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  const auto element = read();
  state.disabled = !element.isEnabled;
  state.focusable = element.isFocusable;
  state.focused = element.isFocused;
  state.checkable = element.isCheckable;
  state.checked = element.isChecked;
  state.checkStateMixed = element.isMixed;
  state.selectable = element.isSelectable;
  state.selected = element.isSelected;
  state.offscreen = element.isOffscreen;
  state.active = window_ && window_->isActive();
  return state;
}

void* QtAccessibleElement::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ActionInterface && !read().actions.empty())
    return static_cast<QAccessibleActionInterface*>(this);
  if (type == QAccessible::ValueInterface && read().range)
    return static_cast<QAccessibleValueInterface*>(this);
  return nullptr;
}

// Actions

QStringList QtAccessibleElement::actionNames() const {
  QStringList names;
  for (const auto action : read().actions) names.append(actionName(action));
  return names;
}

void QtAccessibleElement::doAction(const QString& name) {
  for (const auto action : read().actions) {
    if (actionName(action) == name) return owner_.request(id_, action);
  }
}

QVariant QtAccessibleElement::currentValue() const {
  const auto range = read().range;
  return range ? QVariant(range->value) : QVariant();
}

void QtAccessibleElement::setCurrentValue(const QVariant& value) {
  const auto range = read().range;
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  if (!range || !range->isSettable || !isNumber || !(number == number)) return;
  owner_.requestValue(id_, std::clamp(number, range->minimum, std::max(range->minimum, range->maximum)));
}

QVariant QtAccessibleElement::maximumValue() const {
  const auto range = read().range;
  return range ? QVariant(range->maximum) : QVariant();
}

QVariant QtAccessibleElement::minimumValue() const {
  const auto range = read().range;
  return range ? QVariant(range->minimum) : QVariant();
}

}  // namespace bkuk::host
