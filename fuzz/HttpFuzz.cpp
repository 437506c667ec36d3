// Any bytes as what a web server sends, and as an address in it.

#include "Require.h"
#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/WebAnswers.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

namespace {

bool isPlain(const std::string& text) {
  return linux::probes::shortText(text) == text.substr(0, 120) &&
         text.find(' ') == std::string::npos;
}

void resolveAddress(const std::string& reference) {
  const std::string base = "http://router.example:8080/a/b?c";
  const std::string url = linux::probes::resolvedUrl(base, reference);
  require(url.empty() || linux::probes::resolvedUrl(base, url) == url,
          "a resolved address stands for itself");
  const auto parts = linux::probes::partsOf(url);
  if (!parts) return;
  require(parts->scheme == "http" || parts->scheme == "https", "only http and https have parts");
  require(!parts->host.empty() && isPlain(parts->host), "a host is plain text");
  require(std::atoi(parts->port.c_str()) <= 65535, "a port has 16 bits");
}

void receive(const std::string& reply) {
  constexpr std::size_t kBodyLimit = 256;
  const linux::probes::TcpServer server(linux::probes::answering(reply));
  const std::string url = linux::probes::urlOf(server);
  const linux::probes::HttpAnswer answer =
      linux::probes::exchange({.url = url, .bodyLimit = kBodyLimit, .headers = {}, .post = {}}, {},
                              linux::probes::longDeadline());
  require(answer.body.size() <= kBodyLimit, "a body is no longer than its limit");
  require(!answer.cutOff || answer.body.size() == kBodyLimit, "what is cut off fills the limit");
  require(answer.complete == answer.problem.empty(), "what is not complete has a problem");
  require(linux::probes::shortText(answer.problem) == answer.problem,
          "a problem is short and printable");
  require(answer.remedy.empty(), "a server's answer is no fault of this machine");
  const auto portal = linux::probes::portalFrom(answer, url, "expected");
  require(linux::probes::shortText(portal.detail) == portal.detail,
          "details are short and printable");
  const auto page = linux::probes::pageFrom(answer, "expected");
  require(!page || !page->retrieved || answer.status == 200, "a page comes with status 200");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  resolveAddress(text);
  receive(text);
  return 0;
}
