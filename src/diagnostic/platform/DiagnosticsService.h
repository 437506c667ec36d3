// The Wi-Fi diagnostics service: its client, its requests and its records.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/Date.h"
#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"
#include "diagnostic/platform/Result.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile {

// An error that the service reports. Code 0 means that there was no error.
class VqError final {
 public:
  VqError(std::int64_t code, std::string description)
      : code_(code), cause_{Reason::failed, std::move(description)} {}
  explicit VqError(Error cause)
      : code_(static_cast<std::int64_t>(cause.reason)), cause_(std::move(cause)) {}
  std::int64_t code() const { return code_; }
  const std::string& description() const { return cause_.message; }
  const Error& cause() const { return cause_; }

 private:
  std::int64_t code_;
  Error cause_;
};

using VqErrorRef = std::shared_ptr<const VqError>;  // nil: no error

// Returns the code of an error; 0 for nil.
inline std::int64_t codeOf(const VqErrorRef& error) { return error ? error->code() : 0; }

// The result of one test.
struct DiagnosticsTestResult {
  bool result = false;
  bool didPass = false;
  DictionaryRef info;       // nil: no information
  std::string remark = {};  // the reason for the answer, a sentence; may be empty
};

// nullopt: there is no array. A null element is a slot without an object.
using DiagnosticsTestResults =
    std::optional<std::vector<std::shared_ptr<const DiagnosticsTestResult>>>;

// The network that the device has joined.
struct VqWiFiStatus {
  TextRef ssidString;  // nil: not joined
  TextRef bssid;
};

using VqWiFiStatusRef = std::shared_ptr<const VqWiFiStatus>;

// Returns the name of the joined network; nil if the device has not joined one or it is not known.
inline TextRef joinedNameOf(const VqWiFiStatusRef& status) {
  return status ? status->ssidString : nullptr;
}

// The device's status as the service reports it.
struct VqStatus {
  VqWiFiStatusRef wifi;
};

// One access point found by a scan. Stored under "ScanResults".
class VqWiFiScanResult final : public Object {
 public:
  VqWiFiScanResult(TextRef ssidString, TextRef bssid, std::int64_t rssi)
      : ssidString_(std::move(ssidString)), bssid_(std::move(bssid)), rssi_(rssi) {}
  const TextRef& ssidString() const { return ssidString_; }  // nil: a hidden network
  const TextRef& bssid() const { return bssid_; }
  std::int64_t rssi() const { return rssi_; }  // dBm; larger is stronger

 private:
  TextRef ssidString_;
  TextRef bssid_;
  std::int64_t rssi_;
};

// The measurements of a series of pings. Stored under "PingResult". Times are in the unit of the
// service.
class PingResultRecord final : public Object {
 public:
  TextRef interfaceName;  // nil: not known
  std::int64_t count = 0;
  double packetLoss = 0;
  double min = 0;
  double max = 0;
  double avg = 0;
  double stddev = 0;
  double timestamp = 0;  // seconds after 2001-01-01 00:00:00 UTC
};

// A radio channel. Stored under "CurrentChannel" and under the keys of the recommended channels.
class ChannelRecord final : public Object {
 public:
  explicit ChannelRecord(std::int64_t channel) : channel_(channel) {}
  std::int64_t channel() const { return channel_; }

 private:
  std::int64_t channel_;
};

// The saved profile of a network. Stored under "PreferredNetwork".
class PreferredNetworkRecord final : public Object {
 public:
  TextRef ssidString;  // nil: no name
  std::int64_t security = 0;
  bool isPasspoint = false;
  bool isEnabled = false;
  bool isCaptive = false;
  bool isHidden = false;
  bool isMultiAP = false;
  std::optional<Date> lastJoinedTimestamp;  // empty: never joined, or not known
};

// One numbered test to run, with its configuration.
class VqDiagnosticsTestRequest final {
 public:
  // `configuration` may be nil.
  static std::shared_ptr<const VqDiagnosticsTestRequest> requestWithTestID(
      DiagnosticsTestID testID, DictionaryRef configuration) {
    return std::shared_ptr<const VqDiagnosticsTestRequest>(
        new VqDiagnosticsTestRequest(testID, std::move(configuration)));
  }
  DiagnosticsTestID testID() const { return testID_; }
  const DictionaryRef& configuration() const { return configuration_; }

 private:
  VqDiagnosticsTestRequest(DiagnosticsTestID testID, DictionaryRef configuration)
      : testID_(testID), configuration_(std::move(configuration)) {}
  DiagnosticsTestID testID_;
  DictionaryRef configuration_;
};

using VqDiagnosticsTestRequests = std::vector<std::shared_ptr<const VqDiagnosticsTestRequest>>;

// Another device, and a callback for the progress of a running test. The diagnostic passes null for
// both: tests run on this device, and the diagnostic uses only their results.
class VqPeer;
using VqTestUpdate = std::function<void()>;

// The client of the service. Operations may be called on any thread and block it until the service
// has answered. They report failures through `error` and never throw.
class VqClient : public Interface {
 public:
  // The process-wide client.
  static VqClient* sharedClient() {
    return InstalledPlatform::get(&Platform::service, "the diagnostics service");
  }

  // Runs the requests and returns one result for each. Results and an error may come together.
  virtual DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                                     const VqPeer* peer, const VqTestUpdate& update,
                                                     VqErrorRef& error) = 0;

  // Returns the status of the device, or nil. Sets `error` if an error occurred.
  virtual std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                             VqErrorRef& error) = 0;

  // Cancels every outstanding test request.
  virtual void cancelAllRequests() = 0;
};

}  // namespace wifi_profile
