// What the kernel knows of Wi-Fi: interfaces, the link, the scan, the radio and its rules
// (nl80211).
//
// Every operation ends at its deadline, and within 50 ms of being called off, unless the kernel
// itself holds a lock for longer. What came from the air is any bytes: names may hold anything, and
// a damaged entry is left out or has fewer values. Nothing throws but for lack of memory. One
// object belongs to one thread at a time; who wants to ask while a scan is awaited makes another
// one, which costs two descriptors.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/AirFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/LinkEntries.h"
#include "devices/linux/netlink/ScanEntries.h"
#include "devices/linux/netlink/ScanEvents.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// What comes without a value: nothing when it was done, otherwise why it was not.
using NotDone = std::optional<checks::Unknown>;

// Why nothing is known where no radio is.
checks::Unknown noWifiDevice();

class Nl80211 {
 public:
  // Looks for nl80211. noHardware: no Wi-Fi driver is there; notSupported: a kernel or a container
  // without netlink. The other operations do it themselves; after a failure they try anew.
  NotDone open(const Patience& patience);

  // All interfaces of all radios, those to use first: stations before others, joined ones before
  // those that are not, then in order of the kernel's numbers. Never empty: noHardware.
  checks::Known<std::vector<WifiInterface>> interfaces(const Patience& patience);

  // The access point that the interface is joined to. notJoined; noHardware: the interface is gone.
  checks::Known<checks::Link> link(const WifiInterface& interface, const Patience& patience);

  // The kernel's list of access points, which it keeps for 30 s after it last heard them; with
  // `heardSince`, a time since boot, without those last heard before it (see `removeOlderThan`). An
  // empty list is a list. Any user.
  checks::Known<ScanList> scan(const WifiInterface& interface, const Patience& patience,
                               std::optional<std::chrono::nanoseconds> heardSince = std::nullopt);

  // Scans all channels, also with probes for any network, and returns when the results are there:
  // the time since boot when the scan began. Waits for another program's scan to end first.
  // notPermitted: ordinary users may not; radioOff; failed: the scan was given up half-way;
  // tookTooLong.
  checks::Known<std::chrono::nanoseconds> triggerScan(const WifiInterface& interface,
                                                      const Patience& patience);

  // For scans that another program is asked to do: from the last `watchScans` on, beginnings and
  // results are remembered, and `awaitScanResults` returns when those of the interface have come
  // that count, at once where they came before it was called. Errors as for triggerScan. Any user.
  NotDone watchScans(const Patience& patience);
  NotDone awaitScanResults(const WifiInterface& interface, ScansThat which,
                           const Patience& patience);

  // For changes of the link: from `watchLink` on they are remembered, and `takeLinkEvents` tells,
  // without waiting, those since it was last asked. Any user.
  NotDone watchLink(const Patience& patience);
  LinkEvents takeLinkEvents(const WifiInterface& interface);

  // How the channels were found, in order of frequency. notSupported: the driver does not measure.
  checks::Known<std::vector<checks::ChannelSurvey>> surveys(const WifiInterface& interface,
                                                            const Patience& patience);

  // What the radio can do, and which interfaces it has besides this one.
  checks::Known<checks::Radio> radio(const WifiInterface& interface, const Patience& patience);
  // The same without the interfaces, for one question less.
  checks::Known<checks::Radio> abilities(const WifiInterface& interface, const Patience& patience);

  // The country whose rules the interface's radio follows: its own where it manages them itself,
  // otherwise the kernel's. notTold: rules that are no country's.
  checks::Known<checks::Regulatory> regulatory(const WifiInterface& interface,
                                               const Patience& patience);

 private:
  static constexpr int kProtocol = 16;  // NETLINK_GENERIC

  // `subject` names what is asked for, as for `unknownFor`.
  checks::Known<std::vector<Message>> ask(Request& request, std::string_view subject,
                                          const Patience& patience);
  checks::Known<WifiInterface> now(const WifiInterface& interface, const Patience& patience);
  checks::Known<std::vector<ScanEntry>> scanEntries(const WifiInterface& interface,
                                                    const Patience& patience);
  // `flags` are nl80211's; errno's number.
  int startScan(const WifiInterface& interface, const Patience& patience, std::uint32_t flags);
  // Of an interface that says that it cannot.
  checks::Unknown whyNoScan(const WifiInterface& interface, const Patience& patience);
  // Waits for an event; errno's number where there was none. ENOBUFS: some were lost.
  int awaitScanEnd(const WifiInterface& interface, ScansThat which, const Patience& patience,
                   ScanEvents::End& end);

  NetlinkSocket requests_{kProtocol};
  NetlinkSocket events_{kProtocol};
  int family_ = 0;     // 0: not looked up
  int scanGroup_ = 0;  // of multicast; 0: there is none
  int linkGroup_ = 0;  // as above
};

}  // namespace wifi_profile::machine
