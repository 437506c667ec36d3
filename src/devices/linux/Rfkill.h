// The switches of one radio (rfkill): whether it is on, news of that, and switching it on.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "devices/linux/Descriptor.h"
#include "ieee80211/Bytes.h"

namespace wifi_profile::machine {

// What /dev/rfkill says of one switch (linux/rfkill.h).
struct RfkillEvent {
  enum class Operation { added, removed, changed };

  std::uint32_t index = 0;  // the kernel's number of the switch
  Operation operation = Operation::changed;
  bool softBlocked = false;  // by software
  bool hardBlocked = false;  // by a switch on the case, or by the firmware

  bool operator==(const RfkillEvent&) const = default;
};

// From an event's bytes: 8, or more of a newer kernel, of which the first 8 count. Nothing for
// fewer, and for operations that are no news. Pure.
std::optional<RfkillEvent> parseRfkillEvent(ieee80211::Bytes bytes);

// Belongs to one thread at a time. No operation waits.
class Rfkill {
 public:
  enum class News { on, off, removed };

  // The switches of the radio that the interface is of. The other paths are given in tests only.
  explicit Rfkill(std::string interface, std::string device = "/dev/rfkill",
                  std::string interfaces = "/sys/class/net");

  // For the same radio, with the same paths; not opened. Any thread.
  Rfkill another() const { return Rfkill(interface_, path_, interfaces_); }

  // Looks for the switches and their state. noHardware: the interface is gone; notSupported: the
  // radio has no switch, which counts as on, or the kernel does not show it; notPermitted: there
  // will be no news, but `poweredOn` tells how it is now; call `open` again to look again.
  std::optional<checks::Unknown> open();

  // Whether no switch of the radio is off. Nothing before `open`, and for a radio without switches.
  std::optional<bool> poweredOn() const;
  // Whether a switch is off that only hands can turn, or the firmware.
  bool isHardBlocked() const;

  // Readable when there are events; -1 before `open`, and where that gave notPermitted or the
  // kernel does not show the switches.
  int descriptor() const { return device_.number(); }
  // Takes what has come, and tells each change of `poweredOn`, and once that the last switch went
  // away with its radio. Does nothing when nothing has come.
  void handleEvents(const std::function<void(News)>& tell);

  // Asks for every switch of the radio to be turned on by software; the change comes as an event.
  // notPermitted: on Debian, users without a seat who are not in the group netdev; radioOff: only
  // hands can.
  std::optional<checks::Unknown> switchOn();

 private:
  struct State {
    bool softBlocked = false;
    bool hardBlocked = false;
  };

  void readEvents();

  std::string interface_;
  std::string path_;
  std::string interfaces_;
  Descriptor device_;
  std::map<std::uint32_t, State> switches_;  // the radio's, by number
  std::vector<std::uint32_t> own_;           // numbers of the radio's switches
};

}  // namespace wifi_profile::machine
