// The window's pages among fakes, in virtual time.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "app/window/Hand.h"
#include "app/window/Items.h"
#include "app/window/WindowRun.h"
#include "support/PickerFixture.h"

namespace wifi_profile::testing {

// Of the diagnostic nothing happens but in `queues->runUntilIdle()`, so that a test can look at the
// window in the middle of a scan or of the tests for as long as it likes. No test may leave a
// warning behind.
class PageFixture : public PickerFixture {
 protected:
  explicit PageFixture(std::string_view language = "en", QSize size = {360, 640});
  ~PageFixture() override;

  // A new controller that the window shows: with the list of networks, or with the tests at once.
  void startList(const TextRef& selected = nullptr) { start(selected, true); }
  void startTests() { start(nullptr, false); }
  // The list after its first scan.
  void showList(std::initializer_list<const char*> names);

  // Does `steps` on the main thread while the service is at its next request, each after all that
  // came of the one before.
  void atTheNextRequest(std::vector<std::function<void()>> steps);

  // Lets the diagnostic go on until it is idle, and the window until nothing in it moves.
  void settle();
  // The window alone.
  void rest();

  QQuickWindow& window() { return drawn->window(); }
  window::WindowModel& model() { return drawn->model(); }
  // Visible, or null.
  QQuickItem* item(const QString& name) { return itemNamed(window(), name); }
  // The place in the window of an item that must be visible.
  QRectF placeOfItem(const QString& name);
  // Presses an item that must be visible.
  void press(const QString& name, HandKind with = HandKind::mouse);
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void resize(QSize size);
  // The text of a localisation key.
  static QString words(const char* key) {
    return window::WindowModel::text(QString::fromLatin1(key));
  }

  runtime::BuiltInStringTable texts;
  const InstalledPlatform platformOfTheWindow{{.texts = &texts}};
  const std::shared_ptr<window::WindowScreen> drawn;
  int timesAskedToStop = 0;

 private:
  void start(const TextRef& selected, bool list);
  const InstalledPlatform installedWindow_;
};

}  // namespace wifi_profile::testing
