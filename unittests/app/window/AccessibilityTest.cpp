// What a screen reader, a switch or a keyboard finds, on every page.

#include <QTest>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "app/window/AccessibleTree.h"
#include "app/window/PageFixture.h"
#include "app/window/ReportSample.h"

namespace wifi_profile::testing {
namespace {

std::string inWords(const QQuickItem& item) {
  return item.metaObject()->className() + (" " + item.objectName().toStdString()) + " \"" +
         item.property("text").toString().toStdString() + "\"";
}

class Accessibility : public PageFixture {
 protected:
  // What a mouse could press or write into now.
  std::vector<QQuickItem*> workable() {
    std::vector<QQuickItem*> found = shownItems(window());
    const QRectF inside({0, 0}, QSizeF(window().size()));
    std::erase_if(found, [&](const QQuickItem* item) {
      const bool wanted =
          isOfType(*item, "QQuickAbstractButton") || isOfType(*item, "QQuickTextField");
      return !wanted || !item->isEnabled() || !placeOf(*item).intersects(inside);
    });
    return found;
  }
  static bool isAnnounced(const std::vector<AccessibleNode>& nodes, const QQuickItem* item) {
    return std::any_of(nodes.begin(), nodes.end(),
                       [&](const AccessibleNode& node) { return node.item == item; });
  }

  void expectEverythingIsAnnounced() {
    const auto nodes = announcedIn(window());
    ASSERT_GT(nodes.size(), 2U);
    for (QQuickItem* const item : workable()) {
      const auto node = std::find_if(nodes.begin(), nodes.end(),
                                     [&](const AccessibleNode& one) { return one.item == item; });
      ASSERT_NE(node, nodes.end()) << inWords(*item);
      EXPECT_FALSE(node->name.isEmpty()) << inWords(*item);
      if (isOfType(*item, "QQuickTextField")) {
        EXPECT_EQ(node->role, QAccessible::EditableText);
      } else {
        EXPECT_TRUE(node->canBePressed()) << inWords(*item);
        EXPECT_THAT(node->role, ::testing::AnyOf(QAccessible::Button, QAccessible::ListItem));
      }
    }
    for (const QQuickItem* const text : shownTexts(window())) {
      const QString words = text->property("text").toString();
      if (words.size() < 3) continue;  // signs beside a text
      const bool read = std::any_of(nodes.begin(), nodes.end(), [&](const AccessibleNode& node) {
        return node.name.contains(words) ||
               node.accessible->text(QAccessible::Description).contains(plain(words));
      });
      EXPECT_TRUE(read) << words.toStdString();
    }
  }
  // Without the arrow in front of advice.
  static QString plain(QString words) { return words.remove(QStringLiteral("→ ")); }

  void expectNothingInvisibleIsAnnounced() {
    for (const AccessibleNode& node : announcedIn(window())) {
      if (!node.item) continue;
      EXPECT_TRUE(node.item->isVisible()) << inWords(*node.item);
      for (const QQuickItem* item = node.item; item; item = item->parentItem()) {
        EXPECT_GT(item->opacity(), 0) << inWords(*node.item);
      }
      const bool silent = node.role == QAccessible::Client || node.role == QAccessible::NoRole ||
                          node.role == QAccessible::Grouping || node.role == QAccessible::ScrollBar;
      EXPECT_TRUE(silent || !node.name.isEmpty()) << inWords(*node.item) << node.role;
    }
  }

  // Every item that a mouse can work gets the focus by Tab, or is walked to in the list that has
  // it.
  // The focus of a list may be in its current row, or in a button of a header.
  static bool isInAList(const QQuickItem& focus) {
    const QQuickItem* item = &focus;
    while (item && !isOfType(*item, "QQuickListView")) item = item->parentItem();
    return item != nullptr;
  }
  void expectEverythingIsReachedByKeys() {
    const auto items = workable();
    expectReachedByKeys({items.begin(), items.end()});
  }
  void expectReachedByKeys(const std::set<QQuickItem*>& wanted) {
    std::set<QQuickItem*> reached;
    bool walked = false;
    for (int tabs = 0; tabs < 12; ++tabs) {
      key(Qt::Key_Tab);
      QQuickItem* const focus = window().activeFocusItem();
      if (!focus) continue;
      reached.insert(focus);
      if (walked || !isInAList(*focus)) continue;
      walked = true;
      key(Qt::Key_Home);
      for (int row = 0; row < 12; ++row) {
        for (QQuickItem* const item : wanted) {
          if (item->property("highlighted").toBool()) reached.insert(item);
        }
        key(Qt::Key_Down);
      }
    }
    for (QQuickItem* const item : wanted) {
      EXPECT_TRUE(reached.contains(item)) << inWords(*item);
    }
  }

  // Under a dialog lies what cannot be worked: only the dialog's own items count.
  void expectOfTheDialog() {
    expectEverythingIsAnnounced();
    expectNothingInvisibleIsAnnounced();
    std::vector<QQuickItem*> own = workable();
    std::erase_if(own, [](const QQuickItem* item) {
      return !item->objectName().startsWith(QStringLiteral("alert"));
    });
    EXPECT_GE(own.size(), 2U);
    expectReachedByKeys({own.begin(), own.end()});
  }

  void expectEverything() {
    expectEverythingIsAnnounced();
    expectNothingInvisibleIsAnnounced();
    expectEverythingIsReachedByKeys();
  }
};

TEST_F(Accessibility, OfTheListOfNetworks) {
  joinTo("Home");
  showList({"Alpha", "Beta", "Home"});
  expectEverything();
}

TEST_F(Accessibility, OfTheListWhileItIsRefreshed) {
  showList({"Alpha", "Beta"});
  key(Qt::Key_F5);
  rest();
  expectEverythingIsAnnounced();
  expectNothingInvisibleIsAnnounced();
}

TEST_F(Accessibility, OfAnEmptyList) {
  showList({});
  expectEverything();
}

TEST_F(Accessibility, OfThePromptForAName) {
  showList({"Alpha"});
  press("row1.1");
  settle();
  model().type("Lab");
  rest();
  expectOfTheDialog();
}

TEST_F(Accessibility, OfTheQuestionAboutPower) {
  wifiManager->power = 0;
  startList();
  settle();
  expectOfTheDialog();
}

TEST_F(Accessibility, OfTheQuestionWhetherToStop) {
  showList({"Alpha"});
  window().close();
  rest();
  expectOfTheDialog();
}

TEST_F(Accessibility, NamesADialogByWhatItAsks) {
  showList({"Alpha"});
  window().close();
  rest();
  int dialogs = 0;
  for (const AccessibleNode& node : announcedIn(window())) {
    if (node.role != QAccessible::Dialog) continue;
    ++dialogs;
    EXPECT_EQ(node.name, words("STOP_QUESTION"));
  }
  EXPECT_EQ(dialogs, 1);
}

TEST_F(Accessibility, OfTheTestsUnderWay) {
  atTheNextRequest({[this] {
    drawn->showTests({.done = 7, .total = 41, .running = "Ping WAN"});
    rest();
    expectEverything();
  }});
  startTests();
  settle();
}

TEST_F(Accessibility, OfTheReport) {
  resize({360, 1200});
  drawn->showReport(sampleReport());
  rest();
  expectEverything();
  ASSERT_NE(item("finding1"), nullptr);
  ASSERT_TRUE(pressAccessibly(*item("finding1")));
  rest();
  expectEverythingIsAnnounced();
}

TEST_F(Accessibility, TellsWhichNetworkIsChosen) {
  joinTo("Home");
  showList({"Alpha"});
  for (const AccessibleNode& node : announcedIn(window())) {
    if (node.role != QAccessible::ListItem) continue;
    const bool chosen = node.item == item("row0.0");
    EXPECT_EQ(node.accessible->text(QAccessible::Description), chosen ? words("CHOSEN") : "");
  }
}

// The page below a dialog is still there for a screen reader, but cannot be worked.
TEST_F(Accessibility, LeavesWhatIsUnderADialogAlone) {
  showList({"Alpha"});
  press("row1.1");
  settle();
  pressAccessibly(*item("row1.0"));
  pressAccessibly(*item("barButton"));
  settle();
  EXPECT_EQ(selectedName(), "-");
  EXPECT_EQ(model().page(), "picker");
}

class ProgressForAScreenReader : public Accessibility {
 protected:
  ProgressForAScreenReader() {
    seen().clear();
    QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
      if (event->object()) seen().push_back({event->object(), event->type()});
    });
  }
  ~ProgressForAScreenReader() override { QAccessible::installUpdateHandler(nullptr); }

  struct Seen {
    QObject* object;
    QAccessible::Event event;
  };
  static std::vector<Seen>& seen() {
    static std::vector<Seen> all;
    return all;
  }
  int valueChanges() {
    return static_cast<int>(std::count_if(seen().begin(), seen().end(), [&](const Seen& one) {
      return one.object == item("progressBar") && one.event == QAccessible::ValueChanged;
    }));
  }
};

TEST_F(ProgressForAScreenReader, IsAProgressBarWithItsValue) {
  atTheNextRequest({[this] {
    rest();
    QAccessibleInterface* const bar = QAccessible::queryAccessibleInterface(item("progressBar"));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), words("PROGRESS_TEXT"));
    QAccessibleValueInterface* const value = bar->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 1);
    EXPECT_EQ(value->currentValue().toDouble(), controller->progressView()->progress());
    EXPECT_EQ(bar->rect().size(), QSize(240, 2));
  }});
  startTests();
  settle();
}

TEST_F(ProgressForAScreenReader, IsAnnouncedWhenItChanges) {
  if (!QAccessible::isActive()) GTEST_SKIP() << "no bus of assistive technology";
  atTheNextRequest({[this] { rest(); },
                    [this] {
                      seen().clear();
                      controller->progressView()->setProgress(0.5F);
                      rest();
                      EXPECT_EQ(valueChanges(), 1);
                    }});
  startTests();
  settle();
}

}  // namespace
}  // namespace wifi_profile::testing
