#include "devices/linux/probes/Upnp.h"

#include <array>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>

#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/RouterAnswers.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr std::chrono::milliseconds kDiscoveryTime{1000};
constexpr std::chrono::milliseconds kBeforeRepeat{400};
constexpr std::chrono::milliseconds kHttpTime{3000};
constexpr std::uint16_t kDiscoveryPort = 1900;
const std::string kGroup = "239.255.255.250";

std::string searchFor(const std::string& host) {
  return "M-SEARCH * HTTP/1.1\r\nHOST: " + host +
         ":1900\r\nMAN: \"ssdp:discover\"\r\nMX: 1\r\n"
         "ST: urn:schemas-upnp-org:device:InternetGatewayDevice:1\r\n\r\n";
}

bool send(int socket, const std::string& text, const Address& to) {
  return sendto(socket, text.data(), text.size(), MSG_NOSIGNAL, to.get(), to.size) > 0;
}

// Waits for the router's own answer with the URL of its description. Empty: no answer in time.
std::string locationFrom(int socket, const Address& router, const std::string& gateway,
                         const Deadline& deadline) {
  const auto& expected = reinterpret_cast<const sockaddr_in&>(router.storage);
  while (waitFor(socket, POLLIN, deadline) == Waited::ready && !deadline.isOver()) {
    std::array<char, 2048> buffer{};
    sockaddr_in from{};
    socklen_t size = sizeof(from);
    const ssize_t length = recvfrom(socket, buffer.data(), buffer.size(), 0,
                                    reinterpret_cast<sockaddr*>(&from), &size);
    if (length <= 0 || from.sin_addr.s_addr != expected.sin_addr.s_addr) continue;
    auto location = descriptionUrl({buffer.data(), static_cast<std::size_t>(length)}, gateway);
    if (location) return *location;
  }
  return {};
}

// Returns the URL of the router's description; empty if the router gives none.
std::string discover(const std::string& gateway, const std::string& interface,
                     const Deadline& deadline) {
  const auto router = addressOf(gateway, kDiscoveryPort, interface);
  const auto group = addressOf(kGroup, kDiscoveryPort, interface);
  const Descriptor socket = openSocket(AF_INET, SOCK_DGRAM, 0, interface);
  if (!socket || !router || !group) return {};
  const auto search = [&] {
    send(socket.number(), searchFor(gateway), *router);
    if (interface.empty()) return;
    ip_mreqn through{};
    through.imr_ifindex = static_cast<int>(if_nametoindex(interface.c_str()));
    setsockopt(socket.number(), IPPROTO_IP, IP_MULTICAST_IF, &through, sizeof(through));
    send(socket.number(), searchFor(kGroup), *group);
  };
  search();
  std::string location =
      locationFrom(socket.number(), *router, gateway, deadline.atMost(kBeforeRepeat));
  if (!location.empty() || deadline.isOver()) return location;
  search();
  return locationFrom(socket.number(), *router, gateway, deadline);
}

std::optional<std::string> askService(const UpnpService& service, const Route& route,
                                      const Deadline& deadline) {
  const std::string envelope =
      "<?xml version=\"1.0\"?>\r\n<s:Envelope "
      "xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\" "
      "s:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"><s:Body>"
      "<u:GetExternalIPAddress xmlns:u=\"" +
      service.type + "\"></u:GetExternalIPAddress></s:Body></s:Envelope>\r\n";
  const HttpAnswer answer =
      exchange({.url = service.controlUrl,
                .headers = {"Content-Type: text/xml; charset=\"utf-8\"",
                            "SOAPAction: \"" + service.type + "#GetExternalIPAddress\""},
                .post = envelope},
               route, deadline);
  if (!answer.complete || answer.status != 200) return {};
  return addressFromUpnp(answer.body);
}

}  // namespace

std::optional<std::string> askUpnp(const std::string& gateway, const std::string& interface,
                                   const Deadline& deadline) {
  const std::string location = discover(gateway, interface, deadline.atMost(kDiscoveryTime));
  if (location.empty()) return {};
  const Deadline ours = deadline.atMost(kHttpTime);
  const Route route{interface, {}};
  const HttpAnswer answer = exchange({.url = location, .headers = {}, .post = {}}, route, ours);
  if (!answer.complete || answer.status != 200 || answer.cutOff) return {};
  for (const UpnpService& service : upnpServices(answer.body, location, gateway)) {
    if (ours.isOver()) break;
    if (auto address = askService(service, route, ours)) return address;
  }
  return {};
}

}  // namespace wifi_profile::linux::probes
