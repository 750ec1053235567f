#pragma once

#include <QtGui/QAccessibleInterface>
#include <vector>

#include "host/Accessibility.h"

class QWindow;

namespace bkuk::host {

class QtAccessibility;

/// One element as Qt's bridge sees it. Keeps nothing of the element but its id and who its relatives were
/// when they were last asked for; once dropped it answers nothing, until Qt deletes it.
class QtAccessibleElement final : public QAccessibleInterface,
                                  public QAccessibleActionInterface,
                                  public QAccessibleValueInterface {
 public:
  /// `window` is given for a window's own element.
  QtAccessibleElement(QtAccessibility& owner, AccessibilityId id, QWindow* window);
  ~QtAccessibleElement() override;

  // For its owner

  [[nodiscard]] AccessibilityId id() const { return id_; }
  [[nodiscard]] const std::vector<AccessibilityId>& children() const { return children_; }
  /// Asks which children there are now.
  const std::vector<AccessibilityId>& readChildren() const;
  /// Stays valid while the clients are told of its end.
  void setLeaving() { life_ = Life::leaving; }
  void setDropped() { life_ = Life::dropped; }

  // QAccessibleInterface

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QObject* object() const override;
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  // QAccessibleActionInterface

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

  // QAccessibleValueInterface

  [[nodiscard]] QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  [[nodiscard]] QVariant maximumValue() const override;
  [[nodiscard]] QVariant minimumValue() const override;
  [[nodiscard]] QVariant minimumStepSize() const override { return {}; }

 private:
  enum class Life { alive, leaving, dropped };

  [[nodiscard]] AccessibilityElement read() const;

  QtAccessibility& owner_;
  const AccessibilityId id_;
  QWindow* const window_;
  Life life_ = Life::alive;
  mutable AccessibilityId parent_ = 0;
  mutable std::vector<AccessibilityId> children_;
};

}  // namespace bkuk::host
