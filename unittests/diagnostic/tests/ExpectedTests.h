// What each test is expected to be and do, written down a second time by hand: nothing here is
// taken from the catalogue, so that a slip in the one shows against the other.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {

// What becomes of the values that a test finds in its result's information.
enum class Reading {
  unchanged,         // stored as the very object
  pingSummary,       // a PingResultRecord, stored as a dictionary of eight entries
  preferredSummary,  // a PreferredNetworkRecord, stored as a dictionary of eight entries
  channel,           // a ChannelRecord, stored as its number
  elementCount,      // an array, stored as the number of its elements
  scanList,          // an array, not stored but made the controller's list
};

struct ExpectedCopy {
  std::string infoKey;
  std::string outputKey;  // empty: not stored in the findings
  std::string logName;    // empty: passed over in silence
};

struct ExpectedTest {
  int number;
  std::string member;
  std::string label;
  std::string resultKey;
  Gate gate = Gate::none;
  std::vector<ExpectedCopy> copies = {};
  Reading reading = Reading::unchanged;
  bool ofDevice = false;

  DiagnosticsTestID id() const { return static_cast<DiagnosticsTestID>(number); }
};

inline std::ostream& operator<<(std::ostream& out, const ExpectedTest& test) {
  return out << test.number << ' ' << test.member;
}

// All 41, in order of their numbers.
const std::vector<ExpectedTest>& expectedTests();

// The operations that bear a test's name, by the test's number.
struct DeviceOperation {
  int number;
  void (WiFiProfileViewController::*run)();
};
struct NetworkOperation {
  int number;
  void (WiFiProfileViewController::*run)(const DictionaryRef&, const MutableDictionaryRef&);
};
struct SelectedOperation {
  int number;
  void (WiFiProfileViewController::*run)();
};

const std::vector<DeviceOperation>& deviceOperations();      // 11
const std::vector<NetworkOperation>& networkOperations();    // 30
const std::vector<SelectedOperation>& selectedOperations();  // 16

}  // namespace wifi_profile
