#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

namespace {

constexpr BusRemedies kSystemBus{"Start it (systemctl start dbus).",
                                 "Run as root, or log in locally."};
constexpr BusRemedies kSessionBus{"Run inside the desktop's session.",
                                  "Run as the user whose desktop it is."};

}  // namespace

const Service kNetworkManager{
    "org.freedesktop.NetworkManager", "NetworkManager",
    "Start it (systemctl start NetworkManager), or ask whoever manages the network here.",
    kSystemBus};
const Service kIwd{"net.connman.iwd", "iwd", "Start it (systemctl start iwd).", kSystemBus};
const Service kSupplicant{"fi.w1.wpa_supplicant1", "wpa_supplicant",
                          "Start it with its D-Bus interface (wpa_supplicant -u).", kSystemBus};
const Service kBluez{"org.bluez", "BlueZ", "Start it (systemctl start bluetooth).", kSystemBus};
const Service kPortal{"org.freedesktop.portal.Desktop", "The desktop's portal",
                      "Start it (systemctl --user start xdg-desktop-portal), or install one.",
                      kSessionBus};

Error unknownFrom(const BusError& error, const Service& service) {
  const std::string name = service.name;
  const std::string words = error.message.empty() ? error.name : error.message;
  switch (error.kind) {
    case BusError::Kind::noBus:
      return {Reason::noService, "The message bus (D-Bus) cannot be reached (" + words + "), so " +
                                     name + " cannot be asked. " + service.bus.noBus};
    case BusError::Kind::noService:
      return {Reason::noService, name + " is not running. " + service.remedy};
    case BusError::Kind::noSuchThing:
      return {Reason::notTold,
              name + " does not know what it was asked for (" + words + "). Install a newer one."};
    case BusError::Kind::notPermitted:
      return {Reason::notPermitted,
              "This user may not ask " + name + " (" + words + "). " + service.bus.notPermitted};
    case BusError::Kind::tookTooLong:
      return {Reason::tookTooLong, name + " did not answer in time. Try again, or restart it."};
    case BusError::Kind::cancelled:
      return {Reason::tookTooLong, name + " was not asked: the run was cancelled. Start again."};
    case BusError::Kind::unreadable:
      return {Reason::failed, name +
                                  " gave an invalid answer. Restart it, or "
                                  "install a newer one."};
    case BusError::Kind::failed:
      break;
  }
  return {Reason::failed, name + " refused: " + words + ". Try again, or restart it."};
}

Error unknownFrom(const BusAnswer& answer, const Service& service) {
  const BusError wrongType{BusError::Kind::unreadable, {}, {}};
  return unknownFrom(answer.error.value_or(wrongType), service);
}

}  // namespace wifi_profile::linux::bus
