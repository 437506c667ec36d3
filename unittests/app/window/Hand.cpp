#include "app/window/Hand.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QPointingDevice>
#include <QTest>
#include <functional>

#include "app/window/AccessibleTree.h"

namespace wifi_profile::testing {
namespace {

constexpr int kPullDistance = 260;  // points; more than it takes
constexpr int kSteps = 13;          // of a drag
constexpr int kBetweenMoves = 10;   // ms: a finger's moves come one a frame, at most
constexpr int kMostTabs = 40;

QQuickItem* findItem(QQuickItem* item, const std::function<bool(const QQuickItem&)>& wanted) {
  if (!item || !item->isVisible()) return nullptr;
  if (wanted(*item)) return item;
  for (QQuickItem* const child : item->childItems()) {
    if (QQuickItem* const found = findItem(child, wanted)) return found;
  }
  return nullptr;
}

QPoint centerOf(const QQuickItem& item) { return placeOf(item).center().toPoint(); }

// Text as an on-screen keyboard gives it.
void commit(QQuickItem& field, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(&field, &event);
}

void selectAll(QQuickItem& field) { QMetaObject::invokeMethod(&field, "selectAll"); }

class Mouse final : public Hand {
 public:
  bool press(QQuickWindow& window, QQuickItem& item) override {
    QTest::mouseClick(&window, Qt::LeftButton, {}, centerOf(item));
    return true;
  }
  bool type(QQuickWindow& window, QQuickItem& field, const QString& text) override {
    QTest::mouseClick(&window, Qt::LeftButton, {}, centerOf(field));
    selectAll(field);
    if (text.isEmpty()) {
      QTest::keyClick(&window, Qt::Key_Backspace);
    } else {
      for (const QChar letter : text) {
        QTest::sendKeyEvent(QTest::Click, &window, Qt::Key_unknown, QString(letter), {});
      }
    }
    return true;
  }
  bool pullToRefresh(QQuickWindow& window) override {
    QPoint place(window.width() / 2, 160);
    QTest::mousePress(&window, Qt::LeftButton, {}, place);
    for (int step = 0; step < kSteps; ++step) {
      place.ry() += kPullDistance / kSteps;
      QTest::mouseMove(&window, place, kBetweenMoves);
    }
    QTest::mouseRelease(&window, Qt::LeftButton, {}, place);
    return true;
  }
};

class Touch final : public Hand {
 public:
  bool press(QQuickWindow& window, QQuickItem& item) override {
    QTest::touchEvent(&window, finger()).press(0, centerOf(item), &window);
    QTest::touchEvent(&window, finger()).release(0, centerOf(item), &window);
    return true;
  }
  bool type(QQuickWindow& window, QQuickItem& field, const QString& text) override {
    press(window, field);
    selectAll(field);
    commit(field, text);
    if (text.isEmpty()) QTest::keyClick(&window, Qt::Key_Backspace);
    return true;
  }
  bool pullToRefresh(QQuickWindow& window) override {
    QPoint place(window.width() / 2, 160);
    QTest::touchEvent(&window, finger()).press(0, place, &window);
    for (int step = 0; step < kSteps; ++step) {
      place.ry() += kPullDistance / kSteps;
      QTest::touchEvent(&window, finger()).move(0, place, &window);
      QTest::qWait(kBetweenMoves);
    }
    QTest::touchEvent(&window, finger()).release(0, place, &window);
    return true;
  }

 private:
  static QPointingDevice* finger() {
    static QPointingDevice* const device = QTest::createTouchDevice();
    return device;
  }
};

class Keys final : public Hand {
 public:
  bool press(QQuickWindow& window, QQuickItem& item) override {
    if (item.objectName().startsWith(u"row")) return pressRow(window, item);
    for (int tabs = 0; tabs < kMostTabs && !item.hasActiveFocus(); ++tabs) {
      QTest::keyClick(&window, Qt::Key_Tab);
    }
    if (!item.hasActiveFocus()) return false;
    QTest::keyClick(&window, Qt::Key_Return);
    return true;
  }
  bool type(QQuickWindow& window, QQuickItem& field, const QString& text) override {
    if (!field.hasActiveFocus()) return false;  // the prompt gives it the focus
    QTest::keyClick(&window, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(&window, Qt::Key_Delete);
    for (const QChar letter : text) {
      QTest::sendKeyEvent(QTest::Click, &window, Qt::Key_unknown, QString(letter), {});
    }
    return true;
  }
  bool pullToRefresh(QQuickWindow& window) override {
    QTest::keyClick(&window, Qt::Key_F5);
    return true;
  }

 private:
  static bool pressRow(QQuickWindow& window, const QQuickItem& item) {
    QQuickItem* const list = itemNamed(window, QStringLiteral("networkList"));
    for (int tabs = 0; tabs < kMostTabs && !list->hasActiveFocus(); ++tabs) {
      QTest::keyClick(&window, Qt::Key_Tab);
    }
    if (!list->hasActiveFocus()) return false;
    QTest::keyClick(&window, Qt::Key_Home);
    for (int row = 0; row < kMostTabs; ++row) {
      if (item.property("highlighted").toBool()) {
        QTest::keyClick(&window, Qt::Key_Return);
        return true;
      }
      QTest::keyClick(&window, Qt::Key_Down);
    }
    return false;
  }
};

// What a screen reader or a switch does: it presses by the accessible interface, and never looks at
// where things are.
class Assistive final : public Hand {
 public:
  bool press(QQuickWindow& /*window*/, QQuickItem& item) override { return pressAccessibly(item); }
  bool type(QQuickWindow& window, QQuickItem& field, const QString& text) override {
    selectAll(field);
    commit(field, text);
    if (text.isEmpty()) QTest::keyClick(&window, Qt::Key_Backspace);
    return true;
  }
  bool pullToRefresh(QQuickWindow& window) override {
    QQuickItem* const button = itemNamed(window, QStringLiteral("refreshButton"));
    return button && press(window, *button);
  }
};

}  // namespace

QQuickItem* itemNamed(const QQuickWindow& window, const QString& name) {
  return findItem(window.contentItem(),
                  [&](const QQuickItem& item) { return item.objectName() == name; });
}

QQuickItem* itemSaying(const QQuickWindow& window, const QString& prefix, const QString& text) {
  return findItem(window.contentItem(), [&](const QQuickItem& item) {
    return item.objectName().startsWith(prefix) && item.property("text").toString() == text;
  });
}

QRectF placeOf(const QQuickItem& item) {
  return item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
}

std::unique_ptr<Hand> makeHand(HandKind kind) {
  switch (kind) {
    case HandKind::mouse:
      return std::make_unique<Mouse>();
    case HandKind::touch:
      return std::make_unique<Touch>();
    case HandKind::keys:
      return std::make_unique<Keys>();
    case HandKind::assistive:
      break;
  }
  return std::make_unique<Assistive>();
}

}  // namespace wifi_profile::testing
