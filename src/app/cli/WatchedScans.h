// Explains why the list of networks is empty.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/PersonScreen.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/Mutex.h"

namespace wifi_profile {
class WiFiProfileViewController;
}

namespace wifi_profile::cli {

// The result of a scan for the list.
struct ScanOutcome {
  bool passed = false;
  std::string failure;  // the service's description of its error; empty: the service gave none
};

// A service that forwards to another service and records how its latest scan ended. Any thread.
class WatchedScans final : public VqClient {
 public:
  explicit WatchedScans(std::shared_ptr<VqClient> service) : service_(std::move(service)) {}

  // Returns the latest scan's result; empty: no scan has ended.
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
  mutable Mutex mutex_;
  std::optional<ScanOutcome> latest_ GUARDED_BY(mutex_);
};

// `powerOnFailure` is why the radio stayed off; empty: the radio did not fail to turn on, or the
// reason is unknown. Leaves `askForPower` of the result empty. Main thread.
app::EmptyList emptyListOf(const WiFiProfileViewController& controller,
                           const std::optional<ScanOutcome>& scan, std::string powerOnFailure);

}  // namespace wifi_profile::cli
