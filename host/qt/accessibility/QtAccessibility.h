#pragma once

#include <QtGui/QAccessible>
#include <deque>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/Accessibility.h"
#include "host/Window.h"
#include "host/support/EventSource.h"

class QWindow;

namespace bkuk::host {

class QtAccessibleElement;

/// Shows the library's elements to the desktop's assistive clients, through Qt's own bridge.
///
/// An element gets an interface of Qt's when a client comes across it, or when it takes the keyboard. What a
/// client asks for waits here until the library asks for the next event, so that nothing of the application
/// runs inside of Qt's answer.
class QtAccessibility final : public Accessibility, public EventSource {
 public:
  /// `noteRequest` hears that something waits for `dispatch`.
  explicit QtAccessibility(std::function<void()> noteRequest);
  ~QtAccessibility() override;
  QtAccessibility(const QtAccessibility&) = delete;
  QtAccessibility& operator=(const QtAccessibility&) = delete;

  void setTree(AccessibilityTree* tree) override { tree_ = tree; }
  /// Whether there is an accessibility bus to tell.
  [[nodiscard]] bool hasClient() const override;
  void announce(const AccessibilityChange& change) override;

  [[nodiscard]] bool hasEvent() const override { return !requests_.empty(); }
  /// Does the oldest thing that a client asked for.
  bool dispatch() override;
  /// The same focus is told once for each event.
  void dispatchBegins() override;

  // For windows. A window is known from `add` to `remove`.

  void add(QWindow& window, WindowClient& client);
  void remove(QWindow& window);
  void didShow(QWindow& window);
  void willHide(QWindow& window);

  // For the interfaces

  [[nodiscard]] AccessibilityTree* tree() const { return tree_; }
  /// None for an element that is gone.
  [[nodiscard]] QAccessibleInterface* interfaceFor(AccessibilityId id);
  [[nodiscard]] QAccessibleInterface* interfaceFor(QWindow& window);
  /// The window that an element is in.
  [[nodiscard]] QWindow* windowOf(AccessibilityId id) const;
  void request(AccessibilityId id, AccessibilityAction action);
  void requestValue(AccessibilityId id, double value);
  void interfaceWillGo(const QtAccessibleElement& element);

 private:
  struct KnownWindow {
    QWindow* window;
    WindowClient* client;
  };
  struct Request {
    AccessibilityId id;
    AccessibilityAction action;
    std::optional<double> value;  // to be set instead of the action
  };

  static QAccessibleInterface* makeInterface(const QString& key, QObject* object);
  [[nodiscard]] const KnownWindow* find(const QObject& object) const;
  [[nodiscard]] QWindow* windowWithElement(AccessibilityId id) const;
  [[nodiscard]] QtAccessibleElement* known(AccessibilityId id) const;
  void push(const Request& request);
  void tellFocus(AccessibilityId id);
  void tellValue(QtAccessibleElement& element);
  void tellState(QtAccessibleElement& element);
  void tellChildren(QtAccessibleElement& parent);
  void drop(AccessibilityId id);
  void dropBelow(std::vector<AccessibilityId> ids);

  std::function<void()> noteRequest_;
  AccessibilityTree* tree_ = nullptr;
  std::vector<KnownWindow> windows_;
  std::unordered_map<AccessibilityId, QtAccessibleElement*> known_;
  std::vector<QAccessible::Id> dropped_;  // deleted when nothing of Qt's can be looking at them
  std::deque<Request> requests_;
  AccessibilityId announcedFocus_ = 0;
};

}  // namespace bkuk::host
