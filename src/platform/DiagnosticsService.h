// The Wi-Fi diagnostics service: its client, its requests and its records.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Date.h"
#include "platform/DiagnosticsTestID.h"
#include "platform/Dictionary.h"
#include "platform/Installed.h"
#include "platform/Interface.h"
#include "platform/Text.h"

namespace wifi_profile {

// An error that the service reports. Code 0 means that nothing went wrong after all.
class VqError final {
 public:
  VqError(std::int64_t code, std::string description)
      : code_(code), description_(std::move(description)) {}
  std::int64_t code() const { return code_; }
  const std::string& description() const { return description_; }

 private:
  std::int64_t code_;
  std::string description_;
};

using VqErrorRef = std::shared_ptr<const VqError>;  // nil: no error

// The code of an error; an absent error counts as 0.
inline std::int64_t codeOf(const VqErrorRef& error) { return error ? error->code() : 0; }

// What one test found.
struct DiagnosticsTestResult {
  bool result = false;
  bool didPass = false;
  DictionaryRef info;  // nil: none
};

// nullopt: no array at all. A null element is a slot without an object.
using DiagnosticsTestResults =
    std::optional<std::vector<std::shared_ptr<const DiagnosticsTestResult>>>;

// The network that the device is joined to.
struct VqWiFiStatus {
  TextRef ssidString;  // nil: not joined
  TextRef bssid;
};

using VqWiFiStatusRef = std::shared_ptr<const VqWiFiStatus>;

// Returns the name of the joined network; nil: not joined, or not known.
inline TextRef joinedNameOf(const VqWiFiStatusRef& status) {
  return status ? status->ssidString : nullptr;
}

// The device's status as the service reports it.
struct VqStatus {
  VqWiFiStatusRef wifi;
};

// One access point as a scan heard it. Under "ScanResults".
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

// What a series of pings measured. Under "PingResult". Times are in the service's own unit.
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

// A radio channel. Under "CurrentChannel" and the recommended channels' keys.
class ChannelRecord final : public Object {
 public:
  explicit ChannelRecord(std::int64_t channel) : channel_(channel) {}
  std::int64_t channel() const { return channel_; }

 private:
  std::int64_t channel_;
};

// The remembered profile of a network. Under "PreferredNetwork".
class PreferredNetworkRecord final : public Object {
 public:
  TextRef ssidString;  // nil: no name
  std::int64_t security = 0;
  bool isPasspoint = false;
  bool isEnabled = false;
  bool isCaptive = false;
  bool isHidden = false;
  bool isMultiAP = false;
  std::optional<Date> lastJoinedTimestamp;  // nothing: never joined, or not known
};

// One numbered test to run, with the configuration that goes with it.
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

// Another device, and a callback for news of a test under way. The diagnostic passes null for both:
// tests run on this device, and only their results are wanted.
class VqPeer;
using VqTestUpdate = std::function<void()>;

// The service's client. Operations may be called on any thread and block it until the service has
// answered. They report failures through the error slot and never throw.
class VqClient : public Interface {
 public:
  // The process-wide client.
  static std::shared_ptr<VqClient> sharedClient() { return Installed<VqClient>::get(); }

  // Runs the requests, one result each. Results may come together with an error.
  virtual DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                                     const VqPeer* peer, const VqTestUpdate& update,
                                                     VqErrorRef& error) = 0;

  // The device's status, or nil, with an error in the slot where there was one.
  virtual std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                             VqErrorRef& error) = 0;

  // Abandons every outstanding test request.
  virtual void cancelAllRequests() = 0;
};

}  // namespace wifi_profile
