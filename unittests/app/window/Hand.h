// The ways in which a person works a window: with real events, as the window system would deliver
// them.
#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <memory>

namespace wifi_profile::testing {

// The visible item of that object name in the window, its overlay included; null: none.
QQuickItem* itemNamed(const QQuickWindow& window, const QString& name);
// The visible item whose object name begins with `prefix` and whose property "text" is `text`.
QQuickItem* itemSaying(const QQuickWindow& window, const QString& prefix, const QString& text);
// Where an item is in the window.
QRectF placeOf(const QQuickItem& item);

// Main thread only. Each returns whether it could be done.
class Hand {
 public:
  virtual ~Hand() = default;
  // A row, or a button that is there and enabled.
  virtual bool press(QQuickWindow& window, QQuickItem& item) = 0;
  // Replaces what the field that has the focus holds.
  virtual bool type(QQuickWindow& window, QQuickItem& field, const QString& text) = 0;
  virtual bool pullToRefresh(QQuickWindow& window) = 0;
};

enum class HandKind { mouse, touch, keys, assistive };
std::unique_ptr<Hand> makeHand(HandKind kind);

}  // namespace wifi_profile::testing
