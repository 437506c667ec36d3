// What each test is expected to be and do, written by hand: nothing here is taken from the
// catalogue.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {

// What a test does with the values that it finds in the information of its result.
enum class Reading {
  unchanged,         // stored as the same object
  pingSummary,       // a PingResultRecord, stored as a dictionary of eight entries
  preferredSummary,  // a PreferredNetworkRecord, stored as a dictionary of eight entries
  channel,           // a ChannelRecord, stored as its number
  elementCount,      // an array, stored as the number of its elements
  scanList,          // an array, not stored: it becomes the controller's list
};

struct ExpectedCopy {
  std::string infoKey;
  std::string outputKey;  // empty: not stored in the findings
  std::string logName;    // empty: its absence is not logged
};

// A test's name, and the operations of the controller that have it. Null: there is none.
struct ExpectedOperations {
  std::string member;
  void (WiFiProfileViewController::*ofDevice)() = nullptr;
  void (WiFiProfileViewController::*ofNetwork)(const DictionaryRef&,
                                               const MutableDictionaryRef&) = nullptr;
  void (WiFiProfileViewController::*ofSelected)() = nullptr;
};

struct ExpectedTest {
  int number;
  ExpectedOperations operations;
  std::string label;
  std::string resultKey;
  Gate gate = Gate::none;
  std::vector<ExpectedCopy> copies = {};
  Reading reading = Reading::unchanged;

  DiagnosticsTestID id() const { return static_cast<DiagnosticsTestID>(number); }
  const std::string& member() const { return operations.member; }
  bool isOfDevice() const { return operations.ofDevice != nullptr; }
};

inline std::ostream& operator<<(std::ostream& out, const ExpectedTest& test) {
  return out << test.number << ' ' << test.member();
}

// All 41, in the order in which a run requests them; the test of the list of networks comes last.
const std::vector<ExpectedTest>& expectedTests();

// The numbers of a batch's tests, in order.
std::vector<int> expectedDeviceBatch();
std::vector<int> expectedCurrentBatch();
std::vector<int> expectedSelectedBatch();

}  // namespace wifi_profile
