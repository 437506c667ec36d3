// What people, radios and scans do at random: the table shows the list all the time.

#include <random>

#include "runtime/SimpleNameCollator.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

// An order without regard to the case and the width of Latin letters.
class WidthFoldingCollator final : public NameCollator {
 public:
  void appendSortKey(std::string_view name, std::string& key) const override {
    std::string narrow;
    for (std::size_t i = 0; i < name.size(); ++i) {
      // U+FF01 to U+FF3F are wide forms of U+0021 to U+005F.
      if (name.substr(i, 2) == "\xEF\xBC" && i + 2 < name.size()) {
        narrow += static_cast<char>(name[i + 2] - '\x80' + ' ');
        i += 2;
      } else {
        narrow += name[i];
      }
    }
    simple_.appendSortKey(narrow, key);
  }

 private:
  runtime::SimpleNameCollator simple_;
};

const std::vector<std::string> kNames = {"Guest",
                                         "guest",
                                         "GUEST",
                                         "\xEF\xBC\xA7uest",
                                         "gues\xEF\xBC\xB4",
                                         "Cafe",
                                         "\xEF\xBC\xA3"
                                         "afe",
                                         "cafe",
                                         "Zoo"};

class ShownRows : public PickerFixture {
 protected:
  std::size_t upTo(std::size_t end) { return random_() % end; }
  bool oneIn(std::size_t chances) { return upTo(chances) == 0; }
  const std::string& someName() { return kNames[upTo(kNames.size())]; }

  static TextRef addressOf(const std::string& name, std::size_t accessPoint) {
    return makeText(std::to_string(accessPoint) + " of " + name);
  }

  // Every network has two access points.
  void somethingIsHeard() {
    if (oneIn(10)) return nextScanIs(answerOf({}, makeError(5, "radio asleep")));
    std::vector<ScanResultRef> results;
    for (auto left = upTo(2 * kNames.size()); left > 0; --left) {
      const std::string& name = someName();
      results.push_back(std::make_shared<const VqWiFiScanResult>(
          makeText(name), addressOf(name, upTo(2)), -static_cast<std::int64_t>(upTo(3))));
    }
    nextScanHears(results);
  }

  void deviceMoves() {
    if (oneIn(3)) return joinNothing();
    const std::string& name = someName();
    service->joinTo(makeText(name), addressOf(name, upTo(2)));
  }

  std::string step() {
    if (oneIn(6)) deviceMoves();
    switch (upTo(8)) {
      case 0: {
        const std::string& name = someName();
        typeAnother(name);
        return "typed " + name;
      }
      case 1:
        somethingIsHeard();
        wifiManager->changePower(1);
        queues->runUntilIdle();
        return "power on";
      case 2:
      case 3:
        somethingIsHeard();
        pull();
        return "refresh";
      default: {
        const std::size_t networks = networkRows().size() - 1;
        if (networks == 0) return "";
        const std::size_t row = upTo(networks);
        tapRow(static_cast<std::int64_t>(row));
        queues->runUntilIdle();
        return "row " + std::to_string(row);
      }
    }
  }

  Titles listedNames() const {
    Titles names;
    for (const auto& network : *controller->filteredWiFiScanResults()) {
      names.push_back(network->ssidString()->string());
    }
    return names;
  }

  WidthFoldingCollator order_;
  const InstalledPlatform platform_{{.collator = &order_}};
  std::mt19937 random_;
};

TEST_F(ShownRows, AreTheElementsOfTheListAfterEveryStep) {
  for (unsigned seed = 0; seed < 600; ++seed) {
    random_.seed(seed);
    deviceMoves();
    somethingIsHeard();
    showPicker(oneIn(3) ? makeText(someName()) : nullptr);
    std::string history = "seed " + std::to_string(seed);
    for (int steps = 0; steps < 25; ++steps) {
      history += ", " + step();
      Titles expected = listedNames();
      expected.push_back("OTHER");
      ASSERT_EQ(networkRows(), expected) << history;
    }
    controller->disappear();
  }
}

}  // namespace
}  // namespace wifi_profile
