#include <cerrno>
#include <cstring>
#include <future>
#include <nlohmann/json.hpp>
#include <optional>
#include <system_error>

#include "devices/linux/reach/Http.h"
#include "devices/linux/reach/Sockets.h"
#include "devices/linux/reach/Web.h"

namespace wifi_profile::machine {
namespace {

using checks::PortalProbe;
using Answer = PortalProbe::Answer;

constexpr std::chrono::milliseconds kPortalTime{5000};

// RFC 8908, 5: "captive" has to be there. Nothing: the API does not say.
std::optional<bool> isCaptive(const std::string& body) {
  const auto json = nlohmann::json::parse(body, nullptr, false);
  if (!json.is_object()) return {};
  const auto captive = json.find("captive");
  if (captive == json.end() || !captive->is_boolean()) return {};
  return captive->get<bool>();
}

std::optional<PortalProbe> askApi(const std::string& url, const Way& way,
                                  const Patience& patience) {
  if (const auto parts = partsOf(url); !parts || parts->scheme != "https") return {};
  const HttpAnswer answer = exchange({.url = url,
                                      .bodyLimit = std::size_t{8} * 1024,
                                      .headers = {"Accept: application/captive+json"},
                                      .post = {}},
                                     way, patience);
  if (!answer.complete || answer.cutOff || answer.status != 200) return {};
  const auto captive = isCaptive(answer.body);
  if (!captive) return {};
  if (*captive) return PortalProbe{Answer::portal, "the network's own answer: captive"};
  return PortalProbe{Answer::open, "the network's own answer: not captive"};
}

// For the log: a query may name this device or its user.
std::string withoutQuery(const std::string& url) { return url.substr(0, url.find_first_of("?#")); }

// The same host by TLS: the site itself may want that, and so may a sign-in page in its place.
bool isSameSiteByTls(const std::string& from, const std::string& to) {
  const auto one = partsOf(from);
  const auto other = partsOf(to);
  return one && other && other->scheme == "https" && other->port == "443" &&
         strcasecmp(one->host.c_str(), other->host.c_str()) == 0;
}

PortalProbe judge(const HttpAnswer& answer, const std::string& url,
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

checks::Known<PortalProbe> askPage(const PortalQuestion& question, const Way& way,
                                   const Patience& patience) {
  if (const auto parts = partsOf(question.url); !parts || parts->scheme != "http") {
    return PortalProbe{Answer::noAnswer, "no address of http"};
  }
  const HttpAnswer answer =
      exchange({.url = question.url, .headers = {}, .post = {}}, way, patience);
  if (patience.cancellation.isCancelled()) return calledOff();
  if (!answer.remedy.empty()) return notAsked(answer);
  return judge(answer, question.url, question.expectedText);
}

}  // namespace

checks::Known<PortalProbe> probePortal(const PortalQuestion& question, const Way& way,
                                       const Patience& patience) {
  if (patience.isOver()) return calledOff();
  const Patience ours = patience.atMost(kPortalTime);
  if (question.apiUrl.empty()) return askPage(question, way, ours);
  try {
    auto told = std::async(std::launch::async, [&] { return askApi(question.apiUrl, way, ours); });
    auto page = askPage(question, way, ours);
    if (const auto answer = told.get()) return *answer;
    return page;
  } catch (const std::system_error&) {
    return noSocket(EMFILE, way.interface);  // no thread
  }
}

}  // namespace wifi_profile::machine
