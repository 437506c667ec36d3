// Any bytes as a name server's answer: behind its number, and before and behind the question.

#include <algorithm>

#include "Require.h"
#include "devices/linux/probes/LocalServers.h"
#include "devices/linux/probes/Names.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

namespace {

constexpr std::size_t kNumber = 2, kFlags = 2, kHeader = 12;  // RFC 1035, 4.1.1

// An input is the flags, the three counts of records, and the records.
std::string answerTo(const std::string& question, const std::string& input) {
  return question.substr(0, kNumber) + input.substr(0, kFlags) + std::string{0, 1} +
         input.substr(kFlags, kHeader - 6) + question.substr(kHeader) + input.substr(kHeader - 4);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  if (size < kHeader - 4 || size > 512) return 0;
  const std::string input(reinterpret_cast<const char*>(bytes), size);
  const linux::probes::UdpServer server([&input](const std::string& question) {
    return std::vector<std::string>{answerTo(question, input)};
  });
  const std::string at = linux::probes::kHere + ":" + std::to_string(server.port());
  const auto answer = linux::probes::resolveAsSystem(
      "name.example", {at}, {linux::Clock::now() + std::chrono::milliseconds(100)});
  require(static_cast<bool>(answer), "a server's answer is no fault of this machine");
  const auto& [resolution, addresses] = *answer;
  require(resolution.resolved == !addresses.empty(), "a name with addresses is resolved");
  require(resolution.resolved == resolution.problem.empty(), "what is not resolved has a problem");
  require(linux::probes::shortText(resolution.problem) == resolution.problem,
          "a problem is short and printable");
  require(addresses.size() <= 16, "addresses are bounded");
  const auto isOfIPv6 = [](const std::string& text) { return text.find(':') != text.npos; };
  require(std::ranges::is_partitioned(addresses, std::not_fn(isOfIPv6)), "IPv4 comes first");
  for (const std::string& text : addresses) {
    const auto address = linux::probes::addressOf(text, 0, {});
    require(address && !linux::probes::isOfNoSite(*address), "an address may be a site's");
  }
  return 0;
}
