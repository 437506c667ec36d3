// The window as a screen reader finds it.
#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <vector>

namespace wifi_profile::testing {

struct AccessibleNode {
  QAccessibleInterface* accessible;
  QQuickItem* item;  // null: the window itself
  QAccessible::Role role;
  QString name;

  bool canBePressed() const;
};

// What is announced: everything below the window that does not say of itself that it is invisible.
std::vector<AccessibleNode> announcedIn(QQuickWindow& window);

// Presses by the accessible interface. Whether there is such an action.
bool pressAccessibly(QQuickItem& item);

}  // namespace wifi_profile::testing
