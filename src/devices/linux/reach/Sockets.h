// Sockets of one interface, for the code of this folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <vector>

#include "checks/Known.h"
#include "devices/linux/Descriptor.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// An address of IPv4 or IPv6 with a port.
struct Address {
  sockaddr_storage storage{};
  socklen_t size = 0;

  int family() const { return storage.ss_family; }
  const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
};

// Of a numeric address; one that is local to a link gets the interface for its zone. Nothing for
// anything else.
std::optional<Address> addressOf(const std::string& text, std::uint16_t port,
                                 const std::string& interface);

// The addresses that all interfaces of this machine have now. Empty when the system has no
// descriptors or memory left.
std::optional<std::vector<Address>> ownAddresses();

// Whether what is sent there stays on this machine: its own addresses, loopback, and the address of
// none, which the kernel takes for it.
bool staysHere(const Address& address, const std::vector<Address>& own);

// Whether no site can have this address: loopback, none, link-local, a group or broadcast. Name
// servers that block a name answer with these.
bool isOfNoSite(const Address& address);

// Everything that the socket sends goes out through the interface (empty: any), and nothing else
// comes in where the kernel lets this user say so. False with errno when there is no such
// interface, or it has no address of this family.
bool bindToInterface(int socket, int family, const std::string& interface);

// A socket that does not block, bound to the interface. Without one errno says why.
Descriptor openSocket(int family, int type, int protocol, const std::string& interface);

// Gives an address that is local to a link the interface as its zone, if it has none.
void setZone(Address& address, const std::string& interface);

// Whether errno's number says that this machine has no descriptors or memory left.
bool isExhaustion(int error);

// Why a socket could not be opened on the interface, by errno's number.
checks::Unknown noSocket(int error, const std::string& interface);

// Printable ASCII, no more than 120 bytes of it; '?' for the rest.
std::string shortText(std::string_view text);

// For work that was called off, or had no time.
checks::Unknown calledOff();

}  // namespace wifi_profile::machine
