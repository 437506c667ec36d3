#include <arpa/inet.h>
#include <array>
#include <natpmp.h>
#include <poll.h>

#include "devices/linux/reach/RouterQuestions.h"
#include "devices/linux/reach/Sockets.h"

namespace wifi_profile::machine {
namespace {

constexpr std::chrono::milliseconds kTime{1000};  // asks anew after 250 and 750 ms

class Session {
 public:
  explicit Session(in_addr gateway) { usable_ = initnatpmp(&state_, 1, gateway.s_addr) == 0; }
  ~Session() { closenatpmp(&state_); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // The library's socket is connected already, by the system's route, and keeps the address that it
  // got with it until it is let go.
  bool bindTo(const std::string& interface, const Address& gateway) {
    if (!usable_ || interface.empty()) return usable_;
    const sockaddr nobody{.sa_family = AF_UNSPEC, .sa_data = {}};
    return connect(state_.s, &nobody, sizeof(nobody)) == 0 &&
           bindToInterface(state_.s, AF_INET, interface) &&
           connect(state_.s, gateway.get(), gateway.size) == 0;
  }

  std::optional<in_addr> ask(const Patience& patience) {
    if (sendpublicaddressrequest(&state_) < 0) return {};
    while (!patience.isOver()) {
      timeval next{};
      if (getnatpmprequesttimeout(&state_, &next) != 0) return {};
      const auto repeat =
          std::chrono::seconds(next.tv_sec) + std::chrono::microseconds(next.tv_usec);
      waitFor(state_.s, POLLIN,
              patience.atMost(std::chrono::ceil<std::chrono::milliseconds>(repeat)));
      natpmpresp_t response{};
      const int result = readnatpmpresponseorretry(&state_, &response);
      if (result == 0 && response.type == NATPMP_RESPTYPE_PUBLICADDRESS) {
        return response.pnu.publicaddress.addr;
      }
      if (result == 0 || result == NATPMP_ERR_NOGATEWAYSUPPORT) return {};
      // A refusal or an odd answer may not be the last.
    }
    return {};
  }

 private:
  natpmp_t state_{};
  bool usable_ = false;
};

}  // namespace

std::optional<std::string> hostAddress(const std::string& text) {
  in_addr address{};
  if (inet_pton(AF_INET, text.c_str(), &address) != 1) return {};
  const std::uint32_t number = ntohl(address.s_addr);
  if (number >> 24U == 0 || number >> 28U >= 14) return {};  // "this network", groups, reserved
  std::array<char, INET_ADDRSTRLEN> written{};
  inet_ntop(AF_INET, &address, written.data(), written.size());
  return written.data();
}

std::optional<std::string> askNatPmp(const std::string& gateway, const std::string& interface,
                                     const Patience& patience) {
  const auto address = addressOf(gateway, NATPMP_PORT, interface);
  in_addr router{};
  if (!address || inet_pton(AF_INET, gateway.c_str(), &router) != 1) return {};
  Session session(router);
  if (!session.bindTo(interface, *address)) return {};
  const auto told = session.ask(patience.atMost(kTime));
  if (!told) return {};
  std::array<char, INET_ADDRSTRLEN> written{};
  inet_ntop(AF_INET, &*told, written.data(), written.size());
  return hostAddress(written.data());
}

}  // namespace wifi_profile::machine
