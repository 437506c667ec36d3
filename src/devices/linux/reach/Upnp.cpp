#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <miniupnpc/miniupnpc.h>
#include <miniupnpc/upnpreplyparse.h>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>
#include <string_view>

#include "devices/linux/reach/Http.h"
#include "devices/linux/reach/RouterQuestions.h"
#include "devices/linux/reach/Sockets.h"

// The library's own functions that talk to the network block and read without a limit. Only its
// parsers are used.

namespace wifi_profile::machine {
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

// The value of the header "LOCATION".
std::string locationIn(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.size() < 9 || strncasecmp(line.data(), "location:", 9) != 0) continue;
    line.remove_prefix(9);
    const std::size_t first = line.find_first_not_of(" \t");
    const std::size_t last = line.find_last_not_of(" \t\r");
    return first == std::string_view::npos ? "" : std::string(line.substr(first, last - first + 1));
  }
  return {};
}

bool isOfGateway(const std::string& url, const std::string& gateway) {
  const auto parts = partsOf(url);
  return parts && parts->scheme == "http" && parts->host == gateway;
}

// Where the router itself says that it is described; empty: it does not say so in time.
std::string locationFrom(int socket, const Address& router, const std::string& gateway,
                         const Patience& patience) {
  const auto& expected = reinterpret_cast<const sockaddr_in&>(router.storage);
  while (waitFor(socket, POLLIN, patience) == Waited::ready && !patience.isOver()) {
    std::array<char, 2048> buffer{};
    sockaddr_in from{};
    socklen_t size = sizeof(from);
    const ssize_t length = recvfrom(socket, buffer.data(), buffer.size(), 0,
                                    reinterpret_cast<sockaddr*>(&from), &size);
    if (length <= 0 || from.sin_addr.s_addr != expected.sin_addr.s_addr) continue;
    std::string location = locationIn({buffer.data(), static_cast<std::size_t>(length)});
    if (isOfGateway(location, gateway)) return location;
  }
  return {};
}

// Where the router describes itself; empty: it does not.
std::string discover(const std::string& gateway, const std::string& interface,
                     const Patience& patience) {
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
      locationFrom(socket.number(), *router, gateway, patience.atMost(kBeforeRepeat));
  if (!location.empty() || patience.isOver()) return location;
  search();
  return locationFrom(socket.number(), *router, gateway, patience);
}

bool isServiceType(std::string_view text) {
  return text.starts_with("urn:") && std::all_of(text.begin(), text.end(), [](unsigned char c) {
           return std::isalnum(c) != 0 || c == ':' || c == '.' || c == '_' || c == '-';
         });
}

std::optional<std::string> addressIn(const std::string& reply) {
  NameValueParserData data{};
  ParseNameValue(reply.data(), static_cast<int>(reply.size()), &data);
  const char* value = GetValueFromNameValueList(&data, "NewExternalIPAddress");
  const std::string text = value == nullptr ? "" : value;
  ClearNameValueList(&data);
  return hostAddress(text);
}

template <std::size_t size>
std::string textOf(const char (&field)[size]) {
  return {field, strnlen(field, size)};
}

std::optional<std::string> askService(const IGDdatas_service& service, const std::string& base,
                                      const std::string& gateway, const Way& way,
                                      const Patience& patience) {
  const std::string type = textOf(service.servicetype);
  const std::string url = resolvedUrl(base, textOf(service.controlurl));
  if (!isServiceType(type) || !isOfGateway(url, gateway)) return {};
  const std::string envelope =
      "<?xml version=\"1.0\"?>\r\n<s:Envelope "
      "xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\" "
      "s:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"><s:Body>"
      "<u:GetExternalIPAddress xmlns:u=\"" +
      type + "\"></u:GetExternalIPAddress></s:Body></s:Envelope>\r\n";
  const HttpAnswer answer =
      exchange({.url = url,
                .headers = {"Content-Type: text/xml; charset=\"utf-8\"",
                            "SOAPAction: \"" + type + "#GetExternalIPAddress\""},
                .post = envelope},
               way, patience);
  if (!answer.complete || answer.status != 200) return {};
  return addressIn(answer.body);
}

}  // namespace

std::optional<std::string> askUpnp(const std::string& gateway, const std::string& interface,
                                   const Patience& patience) {
  const std::string location = discover(gateway, interface, patience.atMost(kDiscoveryTime));
  if (location.empty()) return {};
  const Patience ours = patience.atMost(kHttpTime);
  const Way way{interface, {}};
  const HttpAnswer answer = exchange({.url = location, .headers = {}, .post = {}}, way, ours);
  if (!answer.complete || answer.status != 200 || answer.cutOff) return {};
  IGDdatas description{};
  parserootdesc(answer.body.data(), static_cast<int>(answer.body.size()), &description);
  const std::string base = textOf(description.urlbase);
  for (const IGDdatas_service* service : {&description.first, &description.second}) {
    if (ours.isOver()) break;
    auto address = askService(*service, base.empty() ? location : base, gateway, way, ours);
    if (address) return address;
  }
  return {};
}

}  // namespace wifi_profile::machine
