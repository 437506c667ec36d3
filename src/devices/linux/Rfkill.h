// The switches of one radio (rfkill): reads its power, reports changes and switches it on.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Bytes.h"
#include "devices/linux/Descriptor.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux {

// An event of /dev/rfkill about one switch (linux/rfkill.h).
struct RfkillEvent {
  enum class Operation { added, removed, changed };

  std::uint32_t index = 0;  // the kernel's number of the switch
  Operation operation = Operation::changed;
  bool softBlocked = false;  // by software
  bool hardBlocked = false;  // by a switch on the case, or by the firmware

  bool operator==(const RfkillEvent&) const = default;
};

// Parses an event: 8 bytes, or more from a newer kernel, whose first 8 count. Empty for fewer bytes
// and for operations other than the three above. Pure.
std::optional<RfkillEvent> parseRfkillEvent(ieee80211::Bytes bytes);

// Belongs to one thread at a time. No operation blocks.
class Rfkill {
 public:
  enum class News { on, off, removed };

  // For the radio of this interface. Only tests pass the other paths.
  explicit Rfkill(std::string interface, std::string device = "/dev/rfkill",
                  std::string interfaces = "/sys/class/net");

  // Returns an unopened object for the same radio, with the same paths. Any thread.
  Rfkill another() const { return Rfkill(interface_, path_, interfaces_); }

  // Finds the switches and reads their state. noHardware: the interface is gone. notSupported: the
  // radio has no switch (treat it as on), or the kernel does not show it. notPermitted: there will
  // be no events, but `poweredOn` returns the current state; call `open` again to refresh it.
  Status open();

  // Whether no switch blocks the radio. Empty before `open` and for a radio without switches.
  std::optional<bool> poweredOn() const;
  // Whether a switch blocks the radio that software cannot change: one on the case, or the
  // firmware's.
  bool isHardBlocked() const;

  // Readable when there are events. -1 before `open`, and after an `open` that returned
  // notPermitted or found that the kernel does not show the switches.
  int descriptor() const { return device_.number(); }
  // Reads all pending events. Calls `tell` once if they changed `poweredOn`; with `removed` if they
  // removed the radio's last switch. Does not block without events.
  void handleEvents(const std::function<void(News)>& tell);

  // Turns on every switch of the radio by software; the change arrives as an event. notPermitted:
  // on Debian, users without a local session who are not in the group netdev. radioOff: a switch
  // that software cannot change blocks the radio.
  Status switchOn();

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
  std::map<std::uint32_t, State> switches_;  // the radio's switches, by number
  std::vector<std::uint32_t> own_;           // numbers of the radio's switches
};

}  // namespace wifi_profile::linux
