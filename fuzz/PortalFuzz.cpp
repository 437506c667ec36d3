// Any bytes as what a network says of its sign-in page (RFC 8908), and as the page in the place of
// another one. Two readers of JSON agree on what is said.

#include "Require.h"
#include "devices/linux/probes/Sockets.h"
#include "devices/linux/probes/WebAnswers.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "runtime/JsonReader.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;
using Answer = facts::PortalProbe::Answer;

namespace {

void readApi(const std::string& body) {
  const auto captive = linux::probes::captiveFrom(body);
  const auto read = runtime::readJson(body);
  // The other reader refuses more, such as a key that stands twice.
  if (!read) return;
  const auto object = as<Dictionary>(*read);
  const auto number = object ? as<Number>(object->objectForKey("captive")) : nullptr;
  const bool* const flag = number ? std::get_if<bool>(&number->value()) : nullptr;
  require(captive == (flag ? std::optional(*flag) : std::nullopt), "both say the same");
}

void readPage(long status, const std::string& text) {
  linux::probes::HttpAnswer answer;
  answer.complete = true;
  answer.status = status;
  answer.body = text;
  if (status == 302) answer.redirect = text;
  const auto probe = linux::probes::portalFrom(answer, "http://page.example/", "expected");
  require(linux::probes::shortText(probe.detail) == probe.detail,
          "details are short and printable");
  const bool isExpected = text.empty() || text.find("expected") != std::string::npos;
  if (status == 204) require(probe.answer == Answer::open, "no content is open");
  if (status == 511) require(probe.answer == Answer::portal, "511 is a portal");
  if (status == 200) require((probe.answer == Answer::open) == isExpected, "a page is as expected");
  if (status == 302) require(probe.answer != Answer::open, "a redirect is not open");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  readApi(text);
  for (const long status : {200, 204, 302, 404, 511}) readPage(status, text);
  return 0;
}
