#include "app/window/Items.h"

#include <algorithm>

#include "app/window/Hand.h"

namespace wifi_profile::testing {
namespace {

void collect(QQuickItem* item, std::vector<QQuickItem*>& found) {
  if (!item->isVisible() || item->opacity() == 0) return;
  found.push_back(item);
  auto children = item->childItems();
  std::stable_sort(
      children.begin(), children.end(),
      [](const QQuickItem* one, const QQuickItem* other) { return one->z() < other->z(); });
  for (QQuickItem* const child : children) collect(child, found);
}

}  // namespace

std::vector<QQuickItem*> shownItems(const QQuickWindow& window) {
  std::vector<QQuickItem*> found;
  collect(window.contentItem(), found);
  return found;
}

// The class of a type that a file defines is called "Wheel_QMLTYPE_7".
bool isOfType(const QQuickItem& item, const char* type) {
  if (item.inherits(type)) return true;
  const QByteArray file = QByteArray(type) + "_QMLTYPE_";
  for (const QMetaObject* kind = item.metaObject(); kind; kind = kind->superClass()) {
    if (QByteArray(kind->className()).startsWith(file)) return true;
  }
  return false;
}

std::vector<QQuickItem*> shownOfType(const QQuickWindow& window, const char* type) {
  std::vector<QQuickItem*> found = shownItems(window);
  std::erase_if(found, [&](const QQuickItem* item) { return !isOfType(*item, type); });
  return found;
}

std::vector<QQuickItem*> shownTexts(const QQuickWindow& window) {
  std::vector<QQuickItem*> found = shownOfType(window, "QQuickText");
  const QRectF inside(QPointF(), QSizeF(window.size()));
  std::erase_if(found, [&](const QQuickItem* item) {
    return item->property("text").toString().isEmpty() || !placeOf(*item).intersects(inside);
  });
  return found;
}

QStringList wordsOf(const std::vector<QQuickItem*>& texts) {
  QStringList words;
  for (const QQuickItem* const text : texts) words.push_back(text->property("text").toString());
  return words;
}

QQuickItem* textSaying(const QQuickWindow& window, const QString& words) {
  const auto texts = shownTexts(window);
  const auto found = std::find_if(texts.begin(), texts.end(), [&](const QQuickItem* text) {
    return text->property("text").toString() == words;
  });
  return found == texts.end() ? nullptr : *found;
}

bool isInside(const QQuickItem& item, const QQuickItem& ancestor) {
  return &item == &ancestor || ancestor.isAncestorOf(&item);
}

QQuickItem* holderNamed(QQuickItem& item, const QString& name) {
  QQuickItem* holder = &item;
  while (holder && holder->objectName() != name) holder = holder->parentItem();
  return holder;
}

}  // namespace wifi_profile::testing
