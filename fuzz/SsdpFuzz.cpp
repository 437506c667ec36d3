// Any bytes as a router's answers to UPnP: to the discovery, its description, and what it says of
// its address.

#include <algorithm>

#include "Require.h"
#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/RouterAnswers.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

namespace {

const std::string kGateway = "192.168.1.1";

void requireOfGateway(const std::string& url) {
  const auto parts = linux::probes::partsOf(url);
  require(parts && parts->scheme == "http" && parts->host == kGateway, "it is at the router");
  require(std::ranges::none_of(url, [](char c) { return c >= 0 && c <= ' '; }), "it has no blanks");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  if (const auto url = linux::probes::descriptionUrl(text, kGateway)) {
    requireOfGateway(*url);
    require(linux::probes::descriptionUrl("LOCATION: " + *url + "\r\n", kGateway) == url,
            "it is read as told");
  }
  const auto services =
      linux::probes::upnpServices(text, "http://192.168.1.1:5000/root.xml", kGateway);
  require(services.size() <= 2, "services are bounded");
  for (const linux::probes::UpnpService& service : services) {
    requireOfGateway(service.controlUrl);
    require(service.type.starts_with("urn:"), "a type is a URN");
    require(service.type.find_first_of("\r\n\"<>& ") == std::string::npos,
            "a type stands in a header and in XML as it is");
  }
  const auto address = linux::probes::addressFromUpnp(text);
  require(!address || linux::probes::hostAddress(*address) == address,
          "a host may have the address");
  return 0;
}
