// The parameters that the host hands to the diagnostic.
#pragma once

#include "platform/HostFramework.h"
#include "platform/Number.h"
#include "platform/Property.h"
#include "platform/Text.h"

namespace wifi_profile {

// Three validated parameters, and the dictionary they came from.
//
//   "maxScanCacheAge"  required  number, 0 to 600 (seconds; a fraction is kept as it is)
//   "reprofileWithUI"  required  boolean
//   "networkName"      optional  text of at most 32 characters
//
// Other keys are kept in `parameters` and not looked at. The accessors may be used on any thread.
class WiFiProfileInputs final : public HxDiagnosticInputs {
 public:
  // YES when all three keys are acceptable. Every key is read whatever became of the others, and
  // `parameters` is kept even when the answer is NO.
  bool validateAndInitializeParameters(const DictionaryRef& parameters) override;

  // Age in seconds of the oldest scan that the service may answer from its cache. nil after a
  // failed read.
  NumberRef maxScanCacheAge() const { return maxScanCacheAge_(); }
  void setMaxScanCacheAge(NumberRef age) { maxScanCacheAge_.set(std::move(age)); }

  // YES: let a person pick a network before the run.
  bool reprofileWithNetworksListUI() const { return reprofileWithNetworksListUI_(); }
  void setReprofileWithNetworksListUI(bool on) { reprofileWithNetworksListUI_.set(on); }

  // SSID of the network to profile besides the joined one; nil: none. Changes during the run.
  TextRef selectedNetworkName() const { return selectedNetworkName_(); }
  void setSelectedNetworkName(TextRef name) { selectedNetworkName_.set(std::move(name)); }

  // The whole dictionary as the host passed it.
  DictionaryRef parameters() const { return parameters_(); }
  void setParameters(DictionaryRef parameters) { parameters_.set(std::move(parameters)); }

 private:
  Property<NumberRef> maxScanCacheAge_;
  Property<bool> reprofileWithNetworksListUI_;
  Property<TextRef> selectedNetworkName_;
  Property<DictionaryRef> parameters_;
};

}  // namespace wifi_profile
