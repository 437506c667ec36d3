// The end of a run: the status code and the three sections of the record. State: `result` of the
// base class.

#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {

void WiFiProfileViewController::endTestWithStatusCode(const NumberRef& status) {
  const auto alive = self();  // the host may release the controller at any of these steps
  cleanUp();
  result().setStatusCode(status);
  // The sections are passed as they are: live, and with their null placeholders.
  result().setData(makeDictionary({
      {"device", deviceData()},
      {"currentNetwork", currentNetworkData()},
      {"selectedNetwork", selectedNetworkData()},
  }));
  finishTest();
}

void WiFiProfileViewController::finishTest() { setFinished(true); }

}  // namespace wifi_profile
