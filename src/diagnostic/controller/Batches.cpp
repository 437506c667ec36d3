// The three batches: sequences of tests. Each test is followed by one step of the progress bar.

#include "diagnostic/tests/Batches.h"

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {

void WiFiProfileViewController::runDeviceConfigurationDiagnosticsTests() {
  for (const DiagnosticsTestID test : kDeviceConfigurationBatch) {
    runDeviceConfigurationTest(test);
    updateProgress();
  }
}

void WiFiProfileViewController::runCurrentNetworkDiagnosticsTests() {
  for (const DiagnosticsTestID test : kCurrentNetworkBatch) {
    runCurrentNetworkTest(test, currentNetworkConfiguration(), currentNetworkData());
    updateProgress();
  }
}

void WiFiProfileViewController::runSelectedNetworkDiagnosticsTests() {
  for (const DiagnosticsTestID test : kSelectedNetworkBatch) {
    runCurrentNetworkTest(test, configuration(), selectedNetworkData());
    updateProgress();
  }
}

}  // namespace wifi_profile
