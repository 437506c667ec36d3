// Reads Wi-Fi facts from the kernel (nl80211): interfaces, the link, the scan, the radio and its
// regulatory rules.
//
// Every operation ends at its deadline, and within 50 ms of being cancelled, unless the kernel
// itself holds a lock for longer. Data from the air is untrusted: names may hold any bytes; a
// damaged entry is left out or has fewer values. No operation throws, except for lack of memory. An
// object belongs to one thread at a time. To query while another thread waits for a scan, make
// another object, which costs two descriptors.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/LinkEntries.h"
#include "devices/linux/netlink/ScanEntries.h"
#include "devices/linux/netlink/ScanEvents.h"
#include "devices/linux/netlink/Socket.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::netlink {

// The reason to give when this machine has no Wi-Fi device.
Error noWifiDevice();

class Nl80211 {
 public:
  // Finds the nl80211 family. noHardware: no Wi-Fi driver is loaded. notSupported: the kernel or
  // the container has no netlink. The other operations call it; after a failure they try again.
  Status open(const Deadline& deadline);

  // Returns all interfaces of all radios: stations before others, joined ones before those that are
  // not, then by the kernel's number. Never an empty list; noHardware instead.
  Result<std::vector<WifiInterface>> interfaces(const Deadline& deadline);

  // Returns the access point that the interface is joined to. notJoined; noHardware: the interface
  // is gone.
  Result<facts::Link> link(const WifiInterface& interface, const Deadline& deadline);

  // Returns the kernel's list of access points. The kernel keeps each for 30 s after it was last
  // heard. With `heardSince`, a time since boot, access points last heard earlier are left out (see
  // `removeOlderThan`). An empty list is a valid answer. Any user.
  Result<ScanList> scan(const WifiInterface& interface, const Deadline& deadline,
                        std::optional<std::chrono::nanoseconds> heardSince = std::nullopt);

  // Scans all channels, with probes for any network, and waits for the results. Waits for another
  // program's scan to end first. Returns the time since boot when the scan began. notPermitted:
  // ordinary users may not scan. radioOff. failed: the scan was aborted. tookTooLong.
  Result<std::chrono::nanoseconds> triggerScan(const WifiInterface& interface,
                                               const Deadline& deadline);

  // For a scan that another program makes. `watchScans` starts to record scan events.
  // `awaitScanResults` returns when a scan that counts (see ScansThat) has brought results, at once
  // if it has already. Errors as for triggerScan. Any user.
  Status watchScans(const Deadline& deadline);
  Status awaitScanResults(const WifiInterface& interface, ScansThat which,
                          const Deadline& deadline);

  // For changes of the link. `watchLink` starts to record them. `takeLinkEvents` returns those
  // since its previous call, without waiting. Any user.
  Status watchLink(const Deadline& deadline);
  LinkEvents takeLinkEvents(const WifiInterface& interface);

  // Returns the channel surveys in order of frequency. notSupported: the driver does not measure.
  Result<std::vector<facts::ChannelSurvey>> surveys(const WifiInterface& interface,
                                                    const Deadline& deadline);

  // Returns the abilities of the radio and its other interfaces.
  Result<facts::Radio> radio(const WifiInterface& interface, const Deadline& deadline);
  // Returns the same without the interfaces, with one request less.
  Result<facts::Radio> abilities(const WifiInterface& interface, const Deadline& deadline);

  // Returns the country whose rules the interface's radio follows: the radio's own rules if it
  // manages them itself, otherwise the kernel's. notTold: the rules are not a country's.
  Result<facts::Regulatory> regulatory(const WifiInterface& interface, const Deadline& deadline);

 private:
  static constexpr int kProtocol = 16;  // NETLINK_GENERIC

  // `subject` names the request, as for `unknownFor`.
  Result<std::vector<Message>> ask(Request& request, std::string_view subject,
                                   const Deadline& deadline);
  Result<WifiInterface> now(const WifiInterface& interface, const Deadline& deadline);
  Result<std::vector<ScanEntry>> scanEntries(const WifiInterface& interface,
                                             const Deadline& deadline);
  // Returns 0 or errno's number. `flags` are nl80211's.
  int startScan(const WifiInterface& interface, const Deadline& deadline, std::uint32_t flags);
  // Explains why this interface refused to scan.
  Error whyNoScan(const WifiInterface& interface, const Deadline& deadline);
  // Waits for the end of a scan. Returns 0 or errno's number. ENOBUFS: events were lost.
  int awaitScanEnd(const WifiInterface& interface, ScansThat which, const Deadline& deadline,
                   ScanEvents::End& end);

  NetlinkSocket requests_{kProtocol};
  NetlinkSocket events_{kProtocol};
  int family_ = 0;     // 0: not looked up yet
  int scanGroup_ = 0;  // multicast group of scans; 0: there is none
  int linkGroup_ = 0;  // multicast group of changes of the link; 0: there is none
};

}  // namespace wifi_profile::linux::netlink
