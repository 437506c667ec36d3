// The network picker on a screen, among fakes.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/RefreshControl.h"
#include "support/DiagnosticFixture.h"
#include "support/FakeTableRows.h"

namespace wifi_profile {

using Titles = std::vector<std::string>;

// An access point of the network of that name. Its address says which: "ap of NAME".
inline ScanResultRef heard(const std::string& name, std::int64_t rssi = -50) {
  return std::make_shared<const VqWiFiScanResult>(makeText(name), makeText("ap of " + name), rssi);
}

// The answer of a scan that passed.
inline FakeAnswer scanAnswer(const std::vector<ScanResultRef>& results) {
  const auto scan =
      std::make_shared<const Array>(std::vector<ObjectRef>(results.begin(), results.end()));
  return answerOf({.didPass = true, .info = makeDictionary({{"ScanResults", scan}})});
}

class PickerFixture : public DiagnosticFixture {
 protected:
  // A scan takes so long that the main thread comes to its turn.
  PickerFixture() {
    service->whileRunning = [this](const FakeService::Request&) { queues->waitForMain(); };
  }

  // Joined to the network's one access point.
  void joinTo(const std::string& name) {
    service->joinTo(makeText(name), makeText("ap of " + name));
  }
  void joinNothing() { service->joinTo(nullptr); }

  void nextScanIs(FakeAnswer answer) {
    service->willAnswer(DiagnosticsTestID::NoScanResults, std::move(answer));
  }
  void nextScanHears(const std::vector<ScanResultRef>& results) { nextScanIs(scanAnswer(results)); }
  void nextScanHears(std::initializer_list<const char*> names) {
    std::vector<ScanResultRef> results;
    for (const char* const name : names) results.push_back(heard(name));
    nextScanHears(results);
  }

  // The picker as the host brings it up, before anything was posted.
  void startPicker(const TextRef& selected = nullptr) {
    setUpController(makeInputs(selected, true));
    controller->start();
    controller->appear();
  }
  // The picker after its first scan; what the screen was told by then is forgotten.
  void showPicker(const TextRef& selected = nullptr) {
    startPicker(selected);
    queues->runUntilIdle();
    screen->told.clear();
  }

  void pull() {
    controller->refreshControl()->pull();
    queues->runUntilIdle();
  }
  // A row of the networks' section.
  void tapRow(std::int64_t row) { controller->tableView()->tap({1, row}); }
  // The first row that shows the name.
  void tapNetwork(const std::string& name) {
    const Titles rows = networkRows();
    const auto found = std::find(rows.begin(), rows.end(), name);
    ASSERT_NE(found, rows.end()) << name;
    tapRow(found - rows.begin());
  }
  void tapOther() { tapRow(controller->networksOffset() - 1); }
  void tapAction(const std::string& title) {
    const auto alert = controller->presentedAlert();
    for (const auto& action : alert->actions()) {
      if (action->title() == title) return alert->tap(*action);
    }
    ADD_FAILURE() << "no action " << title;
  }
  // Through the prompt for another network.
  void typeAnother(const std::string& name) {
    tapOther();
    controller->presentedAlert()->type(name);
    tapAction("DONE");
  }

  // What the table shows; "-" for a row without a title.
  Titles selectedRows() const { return toolkit::titlesOf(*controller->tableView(), 0); }
  Titles networkRows() const { return toolkit::titlesOf(*controller->tableView(), 1); }
  const std::shared_ptr<toolkit::BarButtonItem>& next() const {
    return controller->navigationItem()->rightBarButtonItem();
  }
  std::string selectedName() const {
    const TextRef name = controller->inputs()->selectedNetworkName();
    return name ? name->string() : "-";
  }
};

}  // namespace wifi_profile
