#include "diagnostic/platform/HostFramework.h"

namespace wifi_profile {

void HxDiagnosticResult::setStatusCode(const NumberRef& statusCode) {
  statusCode_.set(statusCode);
  if (const auto observer = observer_()) observer->statusCodeWasSet(statusCode);
}

void HxDiagnosticResult::setData(const DictionaryRef& data) {
  data_.set(data);
  if (const auto observer = observer_()) observer->dataWasSet(data);
}

void HxDiagnosticViewController::setFinished(bool finished) {
  if (const auto observer = result_.observer_()) observer->finishedWasSet(finished);
}

}  // namespace wifi_profile
