// Sockets bound to one interface, for the code in this folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/Descriptor.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

// An IPv4 or IPv6 address with a port.
struct Address {
  sockaddr_storage storage{};
  socklen_t size = 0;

  int family() const { return storage.ss_family; }
  const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
};

// Parses a numeric address. A link-local IPv6 address gets the interface as its zone. Empty if
// `text` is not a numeric address.
std::optional<Address> addressOf(const std::string& text, std::uint16_t port,
                                 const std::string& interface);

// Returns the current addresses of all interfaces of this machine. Empty if the system has no
// descriptors or memory left.
std::optional<std::vector<Address>> ownAddresses();

// Whether packets to this address stay on this machine: its own addresses, loopback, and the
// unspecified address, which the kernel treats as this machine's.
bool staysHere(const Address& address, const std::vector<Address>& own);

// The same for a host; false if it is not a numeric address.
bool isHere(const std::string& host, const std::vector<Address>& own);

// Whether no site can have this address: loopback, unspecified, link-local, multicast or broadcast.
// Name servers that block a name answer with such addresses.
bool isOfNoSite(const Address& address);

// Makes the socket send only through the interface (empty: any) and, if the kernel permits this
// user to bind, receive only from it. False with errno if there is no such interface, or it has no
// address of this family.
bool bindToInterface(int socket, int family, const std::string& interface);

// Opens a non-blocking socket, bound to the interface. Without a socket, errno says why.
Descriptor openSocket(int family, int type, int protocol, const std::string& interface);

// Makes the interface the zone of a link-local IPv6 address that has none.
void setZone(Address& address, const std::string& interface);

// Whether errno's number means that this machine has no descriptors or memory left.
bool isExhaustion(int error);

// Explains, by errno's number, why a socket could not be opened on the interface.
Error noSocket(int error, const std::string& interface);

// Returns at most the first 120 bytes, with '?' for what is not printable ASCII.
std::string shortText(std::string_view text);

// The result of work that was cancelled or had no time left.
Error cancelled();

}  // namespace wifi_profile::linux::probes
