#include "host/qt/accessibility/QtAccessibility.h"

#include <QtGui/QWindow>
#include <algorithm>
#include <utility>

#include "host/qt/accessibility/QtAccessibleElement.h"

namespace bkuk::host {

namespace {

using Kind = AccessibilityChange::Kind;

// Qt asks a plain function for interfaces; there is one host at a time.
QtAccessibility* present = nullptr;

void tell(QAccessibleInterface& element, QAccessible::Event what) {
  QAccessibleEvent event(&element, what);
  QAccessible::updateAccessibility(&event);
}

void tellState(QAccessibleInterface& element, const QAccessible::State& changed) {
  QAccessibleStateChangeEvent event(&element, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

QtAccessibility::QtAccessibility(std::function<void()> noteRequest) : noteRequest_(std::move(noteRequest)) {
  present = this;
  QAccessible::installFactory(makeInterface);
}

QtAccessibility::~QtAccessibility() {
  QAccessible::removeFactory(makeInterface);
  for (const auto& [id, element] : std::exchange(known_, {}))
    dropped_.push_back(QAccessible::uniqueId(element));
  dispatchBegins();
  if (present == this) present = nullptr;
}

bool QtAccessibility::hasClient() const { return tree_ && QAccessible::isActive(); }

// Windows

QAccessibleInterface* QtAccessibility::makeInterface(const QString&, QObject* object) {
  const auto* entry = present && object ? present->find(*object) : nullptr;
  const auto id = entry ? entry->client->accessibilityElement() : 0;
  if (id == 0) return nullptr;
  auto* element = new QtAccessibleElement(*present, id, entry->window);
  present->known_.insert_or_assign(id, element);
  return element;
}

void QtAccessibility::add(QWindow& window, WindowClient& client) { windows_.push_back({&window, &client}); }

// Qt deletes the window's interface with the window.
void QtAccessibility::remove(QWindow& window) {
  const auto* entry = find(window);
  if (!entry) return;
  if (hasClient()) {
    if (auto* element = known(entry->client->accessibilityElement())) dropBelow(element->children());
  }
  std::erase_if(windows_, [&](const auto& each) { return each.window == &window; });
}

void QtAccessibility::didShow(QWindow& window) {
  auto* element = hasClient() ? interfaceFor(window) : nullptr;
  if (element) tell(*element, QAccessible::ObjectCreated);
}

void QtAccessibility::willHide(QWindow& window) {
  auto* element = hasClient() ? interfaceFor(window) : nullptr;
  if (element) tell(*element, QAccessible::ObjectDestroyed);
}

const QtAccessibility::KnownWindow* QtAccessibility::find(const QObject& object) const {
  const auto found = std::ranges::find_if(windows_, [&](const auto& each) { return each.window == &object; });
  return found == windows_.end() ? nullptr : &*found;
}

QWindow* QtAccessibility::windowWithElement(AccessibilityId id) const {
  const auto found = std::ranges::find_if(
      windows_, [id](const auto& each) { return each.client->accessibilityElement() == id; });
  return found == windows_.end() ? nullptr : found->window;
}

QWindow* QtAccessibility::windowOf(AccessibilityId id) const {
  for (auto parent = id; tree_ && parent != 0; parent = tree_->parent(parent)) id = parent;
  return windowWithElement(id);
}

// Interfaces

QtAccessibleElement* QtAccessibility::known(AccessibilityId id) const {
  const auto found = known_.find(id);
  return found == known_.end() ? nullptr : found->second;
}

QAccessibleInterface* QtAccessibility::interfaceFor(QWindow& window) {
  return QAccessible::queryAccessibleInterface(&window);
}

QAccessibleInterface* QtAccessibility::interfaceFor(AccessibilityId id) {
  if (auto* element = known(id)) return element;
  if (id == 0 || !tree_ || !tree_->element(id)) return nullptr;
  if (auto* window = windowWithElement(id)) return interfaceFor(*window);
  auto* element = new QtAccessibleElement(*this, id, nullptr);
  known_.emplace(id, element);
  QAccessible::registerAccessibleInterface(element);
  return element;
}

void QtAccessibility::interfaceWillGo(const QtAccessibleElement& element) {
  const auto found = known_.find(element.id());
  if (found != known_.end() && found->second == &element) known_.erase(found);
}

// Changes

void QtAccessibility::announce(const AccessibilityChange& change) {
  if (!hasClient()) return;
  if (change.kind == Kind::focus) return tellFocus(change.id);
  if (change.kind == Kind::destroyed) return drop(change.id);
  auto* element = known(change.kind == Kind::created ? tree_->parent(change.id) : change.id);
  if (!element || !element->isValid()) return;
  switch (change.kind) {
    case Kind::value:
      return tellValue(*element);
    case Kind::name:
      return tell(*element, QAccessible::NameChanged);
    case Kind::state:
      return tellState(*element);
    default:
      return tellChildren(*element);
  }
}

void QtAccessibility::dispatchBegins() {
  announcedFocus_ = 0;
  for (const auto id : std::exchange(dropped_, {})) QAccessible::deleteAccessibleInterface(id);
}

void QtAccessibility::tellFocus(AccessibilityId id) {
  if (id == announcedFocus_) return;
  auto* element = interfaceFor(id);
  if (!element) return;
  announcedFocus_ = id;
  tell(*element, QAccessible::Focus);
}

void QtAccessibility::tellValue(QtAccessibleElement& element) {
  if (element.state().checkable) {
    QAccessible::State checked;
    checked.checked = true;
    return host::tellState(element, checked);
  }
  // A text that has no caret is known to clients by its name.
  if (!element.valueInterface()) return tell(element, QAccessible::NameChanged);
  QAccessibleValueChangeEvent event(&element, element.currentValue());
  QAccessible::updateAccessibility(&event);
}

void QtAccessibility::tellState(QtAccessibleElement& element) {
  QAccessible::State disabled;
  disabled.disabled = true;
  host::tellState(element, disabled);
  if (element.state().selectable) tell(element, QAccessible::Selection);
}

void QtAccessibility::tellChildren(QtAccessibleElement& parent) {
  const auto before = parent.children();
  const auto now = parent.readChildren();
  for (const auto id : before) {
    if (std::ranges::find(now, id) == now.end()) drop(id);
  }
  for (const auto id : now) {
    if (std::ranges::find(before, id) != before.end()) continue;
    if (auto* element = interfaceFor(id)) tell(*element, QAccessible::ObjectCreated);
  }
}

void QtAccessibility::drop(AccessibilityId id) {
  auto* element = known(id);
  if (!element || element->object()) return;
  element->setLeaving();
  tell(*element, QAccessible::ObjectDestroyed);
  dropBelow({id});
}

void QtAccessibility::dropBelow(std::vector<AccessibilityId> ids) {
  while (!ids.empty()) {
    auto* element = known(ids.back());
    ids.pop_back();
    if (!element || element->object()) continue;
    ids.insert(ids.end(), element->children().begin(), element->children().end());
    element->setDropped();
    known_.erase(element->id());
    dropped_.push_back(QAccessible::uniqueId(element));
  }
}

// Requests

void QtAccessibility::request(AccessibilityId id, AccessibilityAction action) {
  push({id, action, std::nullopt});
}

void QtAccessibility::requestValue(AccessibilityId id, double value) {
  push({id, AccessibilityAction::press, value});
}

void QtAccessibility::push(const Request& request) {
  requests_.push_back(request);
  noteRequest_();
}

bool QtAccessibility::dispatch() {
  if (requests_.empty()) return false;
  const Request request = requests_.front();
  requests_.pop_front();
  if (!tree_) return true;
  if (request.value) {
    tree_->setValue(request.id, *request.value);
  } else {
    tree_->perform(request.id, request.action);
  }
  return true;
}

}  // namespace bkuk::host
