// Any bytes as a settings file: refused with a message, or settings that are in their ranges.

#include <algorithm>

#include "Require.h"
#include "analysis/facts/IpAddresses.h"
#include "app/cli/SettingsFile.h"
#include "runtime/SafeText.h"

using namespace wifi_profile;

namespace {

bool isWithin(double value, double least, double most) { return value >= least && value <= most; }

bool areWithin(const checks::Settings& set) {
  constexpr int kMost = 1'000'000;
  const auto isCount = [](int count) { return isWithin(count, 0, kMost); };
  return isWithin(set.poorSignalBelow, -127, 0) && isWithin(set.congestedBusyShare, 0, 1) &&
         isWithin(set.congestedUtilization, 0, 255) &&
         isWithin(set.congestedNeighbours, 0, kMost) && isCount(set.longBeaconIntervalAbove) &&
         isCount(set.longDtimPeriodAbove) && isCount(set.largeSavedListAbove) &&
         isCount(set.bluetoothConnectedAbove) && isCount(set.bluetoothPairedAbove);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  cli::ToolSettings settings;
  if (const Status added = cli::addSettings(text, "settings.json", settings); !added) {
    require(added.error().subject.starts_with("settings.json"), "an error says which file");
    require(added.error().message.find("expected") != std::string::npos, "and what was expected");
    return 0;
  }
  require(areWithin(settings.checks), "numbers are in their ranges");
  for (const std::string& subnet : settings.checks.hotspotSubnets) {
    require(facts::isInSubnet(subnet.substr(0, subnet.find('/')), subnet), "networks are such");
  }
  const devices::Targets& targets = settings.targets;
  require(cli::isWebAddress(targets.siteUrl), "the site is the address of a page");
  require(cli::isWebAddress(targets.portalUrl) && targets.portalUrl.starts_with("http://"),
          "the portal's page is one without TLS");
  for (const std::string& host : {targets.pingHost, targets.name}) {
    require(!host.empty() && runtime::safeText(host) == host, "hosts are plain texts");
  }
  cli::ToolSettings again = settings;
  require(cli::addSettings(text, "settings.json", again) && again == settings, "twice is as once");
  return 0;
}
