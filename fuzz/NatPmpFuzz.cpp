// Any bytes as a router's answer to NAT-PMP's question for its address.

#include <arpa/inet.h>

#include "Require.h"
#include "devices/linux/probes/RouterAnswers.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string datagram(reinterpret_cast<const char*>(bytes), size);
  const auto address = linux::probes::addressFromNatPmp(datagram);
  if (!address) return 0;
  require(linux::probes::hostAddress(*address) == address, "a host may have the address");
  std::string again(12, '\0');
  again[1] = '\x80';
  require(inet_pton(AF_INET, address->c_str(), &again[8]) == 1, "it is one of IPv4");
  require(linux::probes::addressFromNatPmp(again) == address, "an answer with it is read as it");
  require(datagram.substr(0, 4) == again.substr(0, 4), "only an answer with success has one");
  return 0;
}
