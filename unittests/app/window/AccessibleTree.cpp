#include "app/window/AccessibleTree.h"

namespace wifi_profile::testing {
namespace {

void collect(QAccessibleInterface* accessible, std::vector<AccessibleNode>& found) {
  if (!accessible || !accessible->isValid() || accessible->state().invisible) return;
  found.push_back({accessible, qobject_cast<QQuickItem*>(accessible->object()), accessible->role(),
                   accessible->text(QAccessible::Name)});
  for (int child = 0; child < accessible->childCount(); ++child) {
    collect(accessible->child(child), found);
  }
}

}  // namespace

bool AccessibleNode::canBePressed() const {
  QAccessibleActionInterface* const actions = accessible->actionInterface();
  return actions && actions->actionNames().contains(QAccessibleActionInterface::pressAction());
}

std::vector<AccessibleNode> announcedIn(QQuickWindow& window) {
  std::vector<AccessibleNode> found;
  collect(QAccessible::queryAccessibleInterface(&window), found);
  return found;
}

bool pressAccessibly(QQuickItem& item) {
  QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&item);
  QAccessibleActionInterface* const actions = accessible ? accessible->actionInterface() : nullptr;
  if (!actions || !actions->actionNames().contains(QAccessibleActionInterface::pressAction())) {
    return false;
  }
  actions->doAction(QAccessibleActionInterface::pressAction());
  return true;
}

}  // namespace wifi_profile::testing
