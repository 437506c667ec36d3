#include "app/window/ProgressAccessible.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace wifi_profile::window {
namespace {

const auto kProgressBar = QStringLiteral("progressBar");

class ProgressAccessible final : public QAccessibleObject, public QAccessibleValueInterface {
 public:
  explicit ProgressAccessible(QQuickItem* item) : QAccessibleObject(item) {}

  bool isValid() const override { return object() && window(); }
  QWindow* window() const override { return item() ? item()->window() : nullptr; }

  // Returns the nearest enclosing item that has an accessible interface, or the window.
  QAccessibleInterface* parent() const override {
    if (!item()) return nullptr;
    for (QQuickItem* around = item()->parentItem(); around; around = around->parentItem()) {
      if (auto* const accessible = QAccessible::queryAccessibleInterface(around)) return accessible;
    }
    return QAccessible::queryAccessibleInterface(item()->window());
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QString text(QAccessible::Text text) const override {
    if (!item()) return {};
    if (text == QAccessible::Name) return item()->property("name").toString();
    if (text == QAccessible::Description) return item()->property("description").toString();
    return {};
  }
  QRect rect() const override {
    if (!isValid()) return {};
    const QRectF scene = item()->mapRectToScene({0, 0, item()->width(), item()->height()});
    return {window()->mapToGlobal(scene.topLeft().toPoint()), scene.size().toSize()};
  }
  QAccessible::Role role() const override { return QAccessible::ProgressBar; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !isValid() || !window()->isVisible() || !item()->isVisible();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : nullptr;
  }

  QVariant currentValue() const override {
    return item() ? item()->property("value") : QVariant(0.0);
  }
  void setCurrentValue(const QVariant& /*value*/) override {}  // read-only
  QVariant minimumValue() const override { return 0.0; }
  QVariant maximumValue() const override { return 1.0; }
  QVariant minimumStepSize() const override { return 0.0; }

 private:
  QQuickItem* item() const { return static_cast<QQuickItem*>(object()); }
};

// Qt calls the latest factory first, for each class of the object from the most derived one on.
QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  auto* const item = qobject_cast<QQuickItem*>(object);
  if (!item || item->objectName() != kProgressBar) return nullptr;
  return new ProgressAccessible(item);  // Qt takes ownership
}

}  // namespace

void makeProgressAccessible() { QAccessible::installFactory(makeAccessible); }

}  // namespace wifi_profile::window
