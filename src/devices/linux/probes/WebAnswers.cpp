#include "devices/linux/probes/WebAnswers.h"

#include <cstring>
#include <nlohmann/json.hpp>

#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {
namespace {

using facts::PortalProbe;
using Answer = PortalProbe::Answer;

// For the log: a query may identify this device or its user.
std::string withoutQuery(const std::string& url) { return url.substr(0, url.find_first_of("?#")); }

// Whether the redirect leads to the same host by TLS: both the site itself and a sign-in page may
// require that.
bool isSameSiteByTls(const std::string& from, const std::string& to) {
  const auto one = partsOf(from);
  const auto other = partsOf(to);
  return one && other && other->scheme == "https" && other->port == "443" &&
         strcasecmp(one->host.c_str(), other->host.c_str()) == 0;
}

}  // namespace

std::optional<bool> captiveFrom(const std::string& body) {
  const auto json = nlohmann::json::parse(body, nullptr, false);
  if (!json.is_object()) return {};
  const auto captive = json.find("captive");
  if (captive == json.end() || !captive->is_boolean()) return {};
  return captive->get<bool>();
}

PortalProbe portalFrom(const HttpAnswer& answer, const std::string& url,
                       const std::string& expectedText) {
  const std::string status = "status " + std::to_string(answer.status);
  if (!answer.redirect.empty() && answer.status / 100 == 3) {
    const bool same = isSameSiteByTls(url, answer.redirect);
    return {same ? Answer::noAnswer : Answer::portal,
            shortText(status + " to " + withoutQuery(answer.redirect))};
  }
  if (answer.status == 511) return {Answer::portal, status};
  if (answer.status == 204) return {Answer::open, status};
  const bool whole = answer.complete;
  if (answer.status == 200) {
    if (!expectedText.empty() && answer.body.find(expectedText) != std::string::npos) {
      return {Answer::open, status};
    }
    if (whole && answer.body.empty()) return {Answer::open, status + ", empty"};
    if (whole) return {Answer::portal, status + ", another page"};
  }
  return {Answer::noAnswer, whole ? status : answer.problem};
}

Result<facts::SitePage> pageFrom(const HttpAnswer& answer, const std::string& expectedText) {
  const auto isNot = [](std::string problem) { return facts::SitePage{false, std::move(problem)}; };
  if (!answer.remedy.empty()) return notAsked(answer);
  if (!answer.complete) return isNot(answer.problem);
  if (answer.status != 200) return isNot("status " + std::to_string(answer.status));
  if (answer.body.find(expectedText) != std::string::npos) return facts::SitePage{true, {}};
  if (!answer.cutOff) return isNot("another page");
  return Error{Reason::notTold,
               "The first 64 KiB of the page do not have the text expected: set "
               "\"text\" of \"site\" in the settings to one near its beginning."};
}

}  // namespace wifi_profile::linux::probes
