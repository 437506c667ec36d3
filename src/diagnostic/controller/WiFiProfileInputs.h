// The parameters that the host passes to the diagnostic.
#pragma once

#include "diagnostic/platform/HostFramework.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Property.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile {

// Three validated parameters, and the dictionary that contains them.
//
//   "maxScanCacheAge"  required  number, 0 to 600 (seconds; a fraction is kept as it is)
//   "reprofileWithUI"  required  boolean
//   "networkName"      optional  text of at most 32 characters
//
// Other keys are kept in `parameters` and ignored. The accessors may be called on any thread.
class WiFiProfileInputs final : public HxDiagnosticInputs {
 public:
  // Returns true if all three keys are acceptable. Reads every key even if another one failed, and
  // keeps `parameters` even if it returns false.
  bool validateAndInitializeParameters(const DictionaryRef& parameters) override;
  // Returns what the validation returned; false before it.
  bool areValid() const { return areValid_(); }

  // The maximum age in seconds of a scan that the service may answer from its cache. Nil after a
  // failed read.
  NumberRef maxScanCacheAge() const { return maxScanCacheAge_(); }
  void setMaxScanCacheAge(NumberRef age) { maxScanCacheAge_.set(std::move(age)); }

  // True: the user selects a network before the run.
  bool reprofileWithNetworksListUI() const { return reprofileWithNetworksListUI_(); }
  void setReprofileWithNetworksListUI(bool on) { reprofileWithNetworksListUI_.set(on); }

  // SSID of the network to profile in addition to the joined one; nil: no network. Changes during
  // the run.
  TextRef selectedNetworkName() const { return selectedNetworkName_(); }
  void setSelectedNetworkName(TextRef name) { selectedNetworkName_.set(std::move(name)); }

  // The complete dictionary as the host passed it.
  DictionaryRef parameters() const { return parameters_(); }
  void setParameters(DictionaryRef parameters) { parameters_.set(std::move(parameters)); }

 private:
  Property<bool> areValid_;
  Property<NumberRef> maxScanCacheAge_;
  Property<bool> reprofileWithNetworksListUI_;
  Property<TextRef> selectedNetworkName_;
  Property<DictionaryRef> parameters_;
};

}  // namespace wifi_profile
