// Keeps what is asked of a link apart from what happens to it: another network's figures, or those
// of no network, are not the link's.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "devices/linux/Gathering.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::machine {

// Follows the link of one interface for one run. Any thread.
class LinkWatch {
 public:
  explicit LinkWatch(WifiInterface interface) : interface_(std::move(interface)) {}

  // Remembers what happens from now on; only the first call does something. Where the kernel does
  // not tell, nothing is ever lost.
  void begin(const Patience& patience);
  // The network that the link belongs to, for the sentence.
  void setNetwork(const std::string& name);
  // Why nothing is known any more of the link that there was at the beginning; empty: it is still
  // there. Stays what it was first. Does not wait but for the name of the network that is joined
  // instead.
  std::optional<checks::Unknown> change(const Patience& patience);

 private:
  const WifiInterface interface_;
  std::mutex mutex_;  // guards what follows
  bool begun_ = false;
  Nl80211 kernel_;
  std::string network_;  // empty: not known
  std::optional<checks::Unknown> change_;
};

// Why nothing is known: the link to the network `name` (empty: its name is not known) was lost, and
// `now` is joined.
checks::Unknown linkChanged(const std::string& name, const checks::Known<checks::Link>& now);

using LinkChange = std::function<std::optional<checks::Unknown>(const Patience& patience)>;

// The same errand, whose facts of the link are not known when it changed before they were found. It
// does not begin when nothing could be found out any more.
Errand boundToLink(Errand errand, LinkChange change);

}  // namespace wifi_profile::machine
