// What is on the window's scene, as a test looks at it.
#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <ostream>
#include <vector>

// How GoogleTest prints them.
inline void PrintTo(const QRectF& rect, std::ostream* out) {
  *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

namespace wifi_profile::testing {

// Visible items that are not wholly transparent, from the back to the front; those of dialogs are
// among them.
std::vector<QQuickItem*> shownItems(const QQuickWindow& window);

// `type`: the name of one of the window's own files ("Wheel"), or of a class of Qt ("QQuickText").
bool isOfType(const QQuickItem& item, const char* type);
std::vector<QQuickItem*> shownOfType(const QQuickWindow& window, const char* type);

// The texts of which at least a part is inside the window; empty ones are left out.
std::vector<QQuickItem*> shownTexts(const QQuickWindow& window);
QStringList wordsOf(const std::vector<QQuickItem*>& texts);
// null: no text says just that.
QQuickItem* textSaying(const QQuickWindow& window, const QString& words);

bool isInside(const QQuickItem& item, const QQuickItem& ancestor);
// The nearest item of that object name that holds `item`; null: none.
QQuickItem* holderNamed(QQuickItem& item, const QString& name);

}  // namespace wifi_profile::testing
