// What there is to say while the list of networks is empty.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/DiagnosticsService.h"
#include "screens/PersonScreen.h"

namespace wifi_profile {

class WiFiProfileViewController;

// How a scan for the list ended.
struct ScanOutcome {
  bool passed = false;
  std::string failure;  // the service's description of its error; empty: it gave none
};

// A service in front of another, which remembers how its latest scan ended. Any thread.
class WatchedScans final : public VqClient {
 public:
  explicit WatchedScans(std::shared_ptr<VqClient> service) : service_(std::move(service)) {}

  // Empty: no scan has ended yet.
  std::optional<ScanOutcome> latest() const;

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override {
    return service_->queryStatusForPeer(peer, error);
  }
  void cancelAllRequests() override { service_->cancelAllRequests(); }

 private:
  const std::shared_ptr<VqClient> service_;
  mutable std::mutex mutex_;
  std::optional<ScanOutcome> latest_;
};

// `powerOnFailure`: why the radio stayed off; empty: it did not, or is not known. Main thread.
// `askForPower` of the result is empty.
EmptyList emptyListOf(const WiFiProfileViewController& controller,
                      const std::optional<ScanOutcome>& scan, std::string powerOnFailure);

}  // namespace wifi_profile
